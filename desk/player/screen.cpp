#include "desk/player/screen.h"

#include "automation/catch_all.h"
#include "desk/player/windows_files.h"

#include <cstring>
#include <stdexcept>

namespace desk::player {

namespace {

std::wstring textOf(HWND window)
{
    wchar_t text[1024];
    const int length = GetWindowTextW(window, text, 1024);
    return std::wstring(text, static_cast<std::size_t>(length > 0 ? length : 0));
}

// The text of a message box stands in the one static control that has any.
BOOL CALLBACK keepStaticText(HWND child, LPARAM result) noexcept
{
    return automation::catchAll(BOOL{FALSE}, [&] {
        wchar_t name[32];
        GetClassNameW(child, name, 32);
        wchar_t text[1024] = L"";
        if (!lstrcmpiW(name, L"Static"))
            SendMessageTimeoutW(child, WM_GETTEXT, 1024, reinterpret_cast<LPARAM>(text), SMTO_ABORTIFHUNG, 1000,
                                nullptr);
        if (*text) *reinterpret_cast<std::wstring*>(result) = text;
        return BOOL{TRUE};
    });
}

struct TitleSearch {
    DWORD processId;
    std::vector<std::wstring> titles;
};

BOOL CALLBACK keepTitle(HWND window, LPARAM parameter) noexcept
{
    return automation::catchAll(BOOL{FALSE}, [&] {
        auto& search = *reinterpret_cast<TitleSearch*>(parameter);
        DWORD processId = 0;
        GetWindowThreadProcessId(window, &processId);
        const std::wstring title = textOf(window);
        if (processId == search.processId && IsWindowVisible(window) && !title.empty()) search.titles.push_back(title);
        return BOOL{TRUE};
    });
}

void mouse(DWORD flags, LONG x = 0, LONG y = 0)
{
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = x;
    input.mi.dy = y;
    input.mi.dwFlags = flags;
    SendInput(1, &input, sizeof input);
    waitFor(100);
}

void moveTo(LONG x, LONG y)
{
    // Absolute co-ordinates divide the screen into 65536 parts.
    mouse(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE, x * 65536 / GetSystemMetrics(SM_CXSCREEN) + 1,
          y * 65536 / GetSystemMetrics(SM_CYSCREEN) + 1);
}

}

std::vector<MessageBoxSeen> messageBoxes(const wchar_t* title)
{
    std::vector<MessageBoxSeen> boxes;
    for (HWND window = nullptr; (window = FindWindowExW(nullptr, window, L"#32770", title));) {
        MessageBoxSeen box{window, L""};
        EnumChildWindows(window, keepStaticText, reinterpret_cast<LPARAM>(&box.text));
        boxes.push_back(box);
    }
    return boxes;
}

void answer(const MessageBoxSeen& box, int button)
{
    PostMessageW(box.window, WM_COMMAND, static_cast<WPARAM>(button), 0);
}

void moveToNotificationIcon()
{
    // The icons stand in the right corner at the bottom.
    moveTo(GetSystemMetrics(SM_CXSCREEN) - 10, GetSystemMetrics(SM_CYSCREEN) - 10);
}

void rightPress()
{
    mouse(MOUSEEVENTF_RIGHTDOWN);
    mouse(MOUSEEVENTF_RIGHTUP);
}

void leftPress()
{
    mouse(MOUSEEVENTF_LEFTDOWN);
    mouse(MOUSEEVENTF_LEFTUP);
}

void clickButton(const MessageBoxSeen& box, int button)
{
    RECT place;
    if (!GetWindowRect(GetDlgItem(box.window, button), &place))
        throw std::runtime_error("the message box has no such button");
    moveTo((place.left + place.right) / 2, (place.top + place.bottom) / 2);
    leftPress();
}

std::vector<std::wstring> windowTitles(DWORD processId)
{
    TitleSearch search{processId, {}};
    EnumWindows(keepTitle, reinterpret_cast<LPARAM>(&search));
    return search.titles;
}

void bringToFront(const std::wstring& title)
{
    if (const HWND window = FindWindowW(nullptr, title.c_str()))
        SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void takePicture(const std::wstring& file)
{
    const int width = GetSystemMetrics(SM_CXSCREEN);
    const int height = GetSystemMetrics(SM_CYSCREEN);
    BITMAPINFOHEADER info{sizeof info, width, height, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
    const auto size = static_cast<DWORD>((width * 3 + 3) / 4 * 4 * height);
    const BITMAPFILEHEADER header{0x4D42, static_cast<DWORD>(sizeof header + sizeof info + size), 0, 0,
                                  sizeof header + sizeof info};
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    void* pixels = nullptr;
    const HBITMAP bitmap =
        CreateDIBSection(screen, reinterpret_cast<BITMAPINFO*>(&info), DIB_RGB_COLORS, &pixels, nullptr, 0);
    const HGDIOBJ before = SelectObject(memory, bitmap);
    const BOOL copied = BitBlt(memory, 0, 0, width, height, screen, 0, 0, SRCCOPY);
    GdiFlush();
    std::string bytes(sizeof header + sizeof info + size, '\0');
    std::memcpy(bytes.data(), &header, sizeof header);
    std::memcpy(bytes.data() + sizeof header, &info, sizeof info);
    std::memcpy(bytes.data() + sizeof header + sizeof info, pixels, size);
    SelectObject(memory, before);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    if (!copied) throw std::runtime_error("the screen cannot be read");
    writeFile(file, bytes);
}

void waitFor(DWORD milliseconds)
{
    const DWORD start = GetTickCount();
    for (;;) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
        const DWORD passed = GetTickCount() - start;
        if (passed >= milliseconds) return;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, milliseconds - passed, QS_ALLINPUT);
    }
}

}
