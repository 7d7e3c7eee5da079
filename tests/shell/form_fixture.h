// The form, in the test's own process: real window, real registry keys, a
// real ini file in a scratch folder. Only the desktop's answers are the
// test's: message boxes are kept and answered, the end of the process is
// counted. No softphone, Outlook or map server can be reached.
#pragma once

#include "shell/hublink.h"
#include "support/dummy_program.h"
#include "support/raw_partner.h"
#include "support/saved_value.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace hublink::shell_tests {

// The icon's.
inline constexpr const wchar_t* question = L"Do you want to really stop Hublink ?";

using support::HiddenClass;
using support::SavedValue;

struct Box {
    std::wstring text;
    UINT flags;
};

class FormFixture : public testing::Test {
protected:
    FormFixture();
    ~FormFixture() override;

    // The softphone's folder and its ini file.
    std::wstring iniPath() const { return folder.file(L"pavex\\Connector\\pavexconnector.ini"); }
    void writeIni(const std::string& content) const { support::writeFile(iniPath(), content); }
    std::wstring iniValue(const char* section, const char* key) const;
    // Gives the file another modification time, its content unchanged.
    void touchIni() const;

    // The form, made on first use, and loaded.
    Hublink& form();
    Hublink& load();

    // The next run: a new form, loaded.
    Hublink& startAgain();
    const Configuration& configuration() { return form().configuration(); }

    // What Windows sends when the supervision timer's time has come.
    void tick() { SendMessageW(form().window().handle(), WM_TIMER, FormWindow::supervisionTimer, 0); }

    // Handles what waits in the thread's message queue.
    static void pump();

    bool iconIsShown();
    std::vector<std::wstring> boxTexts() const;
    bool wasShown(const std::wstring& text) const;

    // An open Outlook session, of which only "quit" and the log item exist.
    void openOutlook();

    const support::ScratchFolder folder;
    const std::wstring programFolder = folder.folder(L"program");
    const SavedValue pavexPath{HKEY_LOCAL_MACHINE,
                               L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\Pavex.exe", L"Path"};
    const SavedValue server{HKEY_CURRENT_USER, L"Software\\Orvel\\Pavex\\Name", L"HostZRB"};
    const SavedValue user{HKEY_CURRENT_USER, L"Software\\Orvel\\Pavex\\Name", L"Man"};
    const HiddenClass noSoftphone{L"Pavex.Application"};
    const HiddenClass noMap{L"PavexConvId.OrvelConvertId"};
    const HiddenClass noOutlook{L"outlook.application"};

    CallWatch::Times callTimes; // of the form, when it is made
    std::vector<Box> boxes;
    std::function<int(const std::wstring&)> onBox; // while a box is open; its answer
    std::atomic<int> ended{0}; // also by the watch over long calls, on its thread
    std::function<void()> onEnd;
    std::function<bool(DWORD message)> onIcon; // the notification area's answer; without it the real one's
    support::RawPartner outlook{{{L"quit", 1}, {L"CreateItem", 2}}};
    support::RawPartner logItem{
        {{L"Subject", 1}, {L"Start", 2}, {L"End", 3}, {L"Type", 4}, {L"Body", 5}, {L"Close", 6}}};
    support::RawPartner map{{{L"StopOrvelConvertId", 1}}};

private:
    std::unique_ptr<Hublink> form_;
};

// An ini file that names Outlook, with these lines added to its sections.
std::string iniText(const std::string& application = "", const std::string& features = "",
                    const std::string& type = "type=OUTLOOK\r\n");

}
