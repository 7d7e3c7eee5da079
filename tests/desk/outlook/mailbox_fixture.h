// What the tests of the simulated Outlook share.
#pragma once

#include "automation/object.h"
#include "desk/outlook/in_process.h"
#include "support/failure.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

inline constexpr std::int32_t olInbox = 6;
inline constexpr std::int32_t olContacts = 10;
inline constexpr std::int32_t olJournal = 11;

class MailboxFixture : public testing::Test {
protected:
    automation::Object folder(std::int32_t number)
    {
        const automation::Object session = outlook.application().get(L"GetNamespace", {L"MAPI"}).object();
        return session.get(L"GetDefaultFolder", {number}).object();
    }

    automation::Object items(std::int32_t number) { return folder(number).get(L"Items").object(); }

    desk::outlook::InProcess outlook;
};
