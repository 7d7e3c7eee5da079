// Outlook inside a unit test's own process: the same objects as the program's,
// with an empty mailbox and no windows.
//
//     desk::outlook::InProcess outlook;
//     outlook.load(L"[contact]\nFullName=Marc Durand\nMobileTelephoneNumber=0612345678\n");
//     const automation::Object application = outlook.application();
//     ...
//     EXPECT_EQ(outlook.ask(L"contacts"), L"[contact]\n...");
#pragma once

#include "desk/common/text.h"
#include "desk/outlook/outlook.h"

#include <stdexcept>

namespace desk::outlook {

class InProcess {
public:
    InProcess() : outlook_(recorder_, screen_, [this] { ++changes_; }, [this] { ++quits_; }) {}

    // "Outlook.Application". Every object got from it ends before this does.
    automation::Object application() { return automation::Object(outlook_.application().get()); }

    // Replaces all records by those of the store text.
    void load(std::wstring_view storeText) { outlook_.load(parseStore(storeText)); }

    // A control command of Outlook's own (contacts, journal, windows...); its
    // errors are thrown.
    std::wstring ask(std::wstring_view request)
    {
        const std::wstring word = takeWord(request);
        if (auto response = outlook_.command(word, request)) return *response;
        throw std::runtime_error("unknown command");
    }

    Recorder& recorder() noexcept { return recorder_; }
    Outlook& model() noexcept { return outlook_; }
    int changes() const noexcept { return changes_; } // of what is saved
    int quits() const noexcept { return quits_; }     // calls of Quit

private:
    Recorder recorder_;
    NoScreen screen_;
    int changes_ = 0;
    int quits_ = 0;
    Outlook outlook_;
};

}
