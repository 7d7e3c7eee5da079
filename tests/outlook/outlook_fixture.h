// What the tests of the Outlook room share: a simulated Outlook in this
// process, reached through real automation, and an open session with it.
#pragma once

#include "common/dictionary.h"
#include "common/text.h"
#include "desk/common/store_file.h"
#include "desk/common/text.h"
#include "desk/outlook/outlook.h"
#include "outlook/initialisation.h"
#include "outlook/outlook_session.h"
#include "support/outlook_records.h"
#include "support/scratch_folder.h"
#include "support/test_host.h"

#include <gtest/gtest.h>

namespace hublink {

class OutlookFixture : public testing::Test {
protected:
    OutlookFixture()
    {
        host.settings.bgWithOutlook = true;
        host.settings.szFileConnectorIni = L"C:\\no such folder\\pavexconnector.ini";
    }

    // A session that is open, with the records (store text) in Outlook.
    void open(const std::wstring& records = L"")
    {
        outlook.load(desk::parseStore(records));
        session.OutlookApp = automation::Object(outlook.application().get());
        InitOutlook(session);
        ASSERT_TRUE(session.bOutlookInit);
        forgetCalls();
    }

    void forgetCalls() { recorder.clear(); }

    // How often a member was called or a name looked up: "ContactItem.Close method".
    unsigned long calls(const std::wstring& member) { return recorder.count(member); }

    // The record of every call, a line each.
    std::vector<std::wstring> record() { return split(recorder.record(), L'\n'); }

    // The same without the look-ups of names.
    std::vector<std::wstring> carriedOut()
    {
        std::vector<std::wstring> lines = record();
        std::erase_if(lines, [](const std::wstring& line) { return line.ends_with(L" lookup"); });
        return lines;
    }

    std::wstring field(const wchar_t* kind, std::size_t index, const wchar_t* name)
    {
        return support::savedField(outlook, kind, index, name);
    }

    std::size_t count(const wchar_t* kind) { return support::savedCount(outlook, kind); }

    TestHost host;
    GroupwareState groupware;
    Dictionary dictionary{L"C:\\nowhere"};
    desk::Recorder recorder;
    desk::outlook::NoScreen screen;
    desk::outlook::Outlook outlook{recorder, screen};
    OutlookSession session{host, groupware, dictionary};
};

}
