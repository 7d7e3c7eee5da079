// The real programs end to end: hublink.exe between softphone, Outlook and
// identifier map, each a process of its own. Only what a user or an
// administrator could see is looked at.
#pragma once

#include "desk/common/text.h"
#include "desk/player/desk.h"

#include <gtest/gtest.h>

class DeskFixture : public testing::Test {
protected:
    static constexpr DWORD eventTimeout = 15'000; // milliseconds

    // Starts softphone, Outlook (with these contacts) and Hublink, and waits
    // until its initialisation is through.
    void start(std::string_view contacts = {}, std::string_view softphone = {})
    {
        desk.startSoftphone(softphone);
        desk.startOutlook(contacts);
        desk.startHublink();
        ASSERT_TRUE(logGets(L"Connector Initialization  Ok"));
        // The form's window answers only when the start-up is over.
        ASSERT_TRUE(desk::player::waitUntil([&] { return idle(); }, eventTimeout));
    }

    bool logGets(const std::wstring& line)
    {
        return desk::player::waitUntil([&] { return desk.logHolds(line); }, eventTimeout);
    }

    // Whether Hublink's message loop answers.
    static bool idle()
    {
        DWORD_PTR result = 0;
        const HWND form = FindWindowW(L"Hublink", nullptr);
        return form && SendMessageTimeoutW(form, WM_NULL, 0, 0, SMTO_NORMAL, 1000, &result);
    }

    // A tick that has begun. What it brings about is to be waited for: the
    // window answers also while the tick waits for a partner.
    void tick()
    {
        desk.tick();
        desk::player::waitFor(50);
        ASSERT_TRUE(desk::player::waitUntil([] { return idle(); }, eventTimeout));
    }

    // Waits until everything that came before is over, a tick's own work too: a
    // call on the line is handled after it. Of one without a number nothing is
    // read after its direction.
    void settle()
    {
        const auto served = [&] { return timesAsked(desk.softphone(L"calls"), L"Call.Incoming get"); };
        const unsigned long before = served();
        desk.softphone(L"call Incoming=false");
        ASSERT_TRUE(desk::player::waitUntil([&] { return served() > before; }, eventTimeout)) << "a call is not served";
    }

    // How often a line stands in Outlook's logs of all runs.
    std::size_t timesLogged(const std::wstring& line)
    {
        std::size_t found = 0;
        for (const desk::StoreRecord& record : desk::parseStore(desk.outlook(L"journal"))) {
            const std::wstring* subject = record.find(L"Subject");
            const std::wstring* body = record.find(L"Body");
            if (!subject || *subject != L"Connector Log" || !body) continue;
            for (const std::wstring& each : desk::linesOf(*body)) found += each.ends_with(L" " + line);
        }
        return found;
    }

    bool isLogged(const std::wstring& line, std::size_t times)
    {
        return desk::player::waitUntil([&] { return timesLogged(line) >= times; }, eventTimeout);
    }

    // The number before a call in what the control command "calls" answered.
    static unsigned long timesAsked(const std::wstring& calls, const std::wstring& call)
    {
        for (const std::wstring& line : desk::linesOf(calls))
            if (line.ends_with(L" " + call)) return std::stoul(line);
        return 0;
    }

    bool ends(DWORD milliseconds = eventTimeout) { return desk.hublinkProcess().ended(milliseconds); }

    bool outlookIsAskedFor(const std::wstring& member)
    {
        return desk::player::waitUntil([&] { return desk.outlook(L"calls").find(member) != std::wstring::npos; },
                                       eventTimeout);
    }

    // Waits for a message box of the program with that text; answers it with OK.
    bool boxShows(const std::wstring& text)
    {
        return desk::player::waitUntil(
            [&] {
                const auto boxes = desk::player::messageBoxes(L"Hublink");
                if (boxes.empty() || boxes[0].text != text) return false;
                desk::player::answer(boxes[0], IDOK);
                return desk::player::waitUntil([&] { return !IsWindow(boxes[0].window); }, 2000);
            },
            eventTimeout);
    }

    desk::player::Desk desk;
};
