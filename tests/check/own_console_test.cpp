// HublinkCheck.exe in a console window that is its own, as by a double click.
#include "automation/owners.h"
#include "support/process.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

namespace hublink::check {

namespace {

constexpr const wchar_t* title = L"HublinkCheck of a test";

// In a console of its own; hidden, as some who start programs wish it, or not.
class OwnConsole {
public:
    explicit OwnConsole(const std::wstring& arguments, WORD show = SW_SHOWNORMAL)
    {
        std::wstring line = support::command(L"HublinkCheck.exe") + L" " + arguments;
        STARTUPINFOW start{};
        start.cb = sizeof start;
        start.dwFlags = STARTF_USESHOWWINDOW;
        start.wShowWindow = show;
        std::wstring ownTitle = title;
        start.lpTitle = ownTitle.data();
        PROCESS_INFORMATION process{};
        CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, CREATE_NEW_CONSOLE, nullptr, nullptr, &start,
                       &process);
        CloseHandle(process.hThread);
        process_.reset(process.hProcess);
    }
    ~OwnConsole() { TerminateProcess(process_.get(), 9); }
    OwnConsole(const OwnConsole&) = delete;
    OwnConsole& operator=(const OwnConsole&) = delete;

    bool endsWithin(DWORD milliseconds) const
    {
        return WaitForSingleObject(process_.get(), milliseconds) == WAIT_OBJECT_0;
    }

    // Not through the console itself: whoever attaches to it changes whose it is, and loses his own.
    static void press(WPARAM key)
    {
        const HWND window = FindWindowW(nullptr, title);
        PostMessageW(window, WM_KEYDOWN, key, 1);
        PostMessageW(window, WM_KEYUP, key, 1);
    }

private:
    automation::Handle process_;
};

}

TEST(CheckConsole, OfItsOwn_StaysUntilAKeyIsPressed)
{
    const OwnConsole check(L"--help");
    ASSERT_TRUE(support::eventually([] { return FindWindowW(nullptr, title) != nullptr; }, 30'000));
    EXPECT_FALSE(check.endsWithin(2'000)) << "the window has closed at once";
    OwnConsole::press(VK_SHIFT);
    OwnConsole::press(VK_DOWN);
    EXPECT_FALSE(check.endsWithin(500)) << "these are no characters";
    const auto ends = [&] {
        OwnConsole::press(VK_RETURN);
        return check.endsWithin(100);
    };
    EXPECT_TRUE(support::eventually(ends, 30'000));
}

TEST(CheckConsole, ThatNobodySees_IsNotWaitedFor)
{
    EXPECT_TRUE(OwnConsole(L"--help", SW_HIDE).endsWithin(20'000));
}

TEST(CheckConsole, OfAProgramThatSavesItsReport_IsNotWaitedFor)
{
    const support::ScratchFolder folder;
    EXPECT_TRUE(OwnConsole(L"--save \"" + folder.file(L"report.txt") + L"\"").endsWithin(30'000));
}

}
