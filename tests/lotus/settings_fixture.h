// What the tests of the Notes settings share: ini files, and what was read of them.
#pragma once

#include "lotus/settings.h"
#include "lotus_fixture.h"

namespace hublink {

class SettingsFixture : public LotusFixture {
protected:
    void read(const std::string& ini)
    {
        writeIni(ini);
        ReadLotusIni(session);
    }

    // Two books named by their base files, then this order and these marks of personal ones.
    static std::string twoBooks(const std::string& order, const char* firstPersonal = "false",
                                const char* secondPersonal = "false")
    {
        return "[lotus]\nNbPublicAddressBook=2\nOrder=" + order +
               "\n[lotus base description 1]\nbase=one.nsf||||\nPersonalAddressBook=" + firstPersonal +
               "\n[lotus base description 2]\nbase=two.nsf||||\nPersonalAddressBook=" + secondPersonal + "\n";
    }

    static std::string oneBook(const std::string& keys)
    {
        return "[lotus]\nNbPublicAddressBook=1\nOrder=Base 1\n[lotus base description 1]\n" + keys + "\n";
    }

    std::vector<std::wstring> bases() const
    {
        std::vector<std::wstring> names;
        for (const LotusAddressBook& book : session.LotusAddressBooks) names.push_back(book.Base);
        return names;
    }

    // The reading ends with an error and leaves these books behind.
    void expectStopped(const std::string& ini, const std::vector<std::wstring>& left)
    {
        session.LotusAddressBooks.assign(1, {});
        session.LotusAddressBooks[0].Base = L"old.nsf";
        session.nSelectedPersonal = 0;
        session.bShowGrpwAgenda = true;
        session.LotusCallLog.LastName = L"kept";
        trapped.procedures.clear();
        read(ini);
        EXPECT_EQ(trapped.procedures, Names{L"ReadLotusIni"}) << ini;
        EXPECT_EQ(bases(), left) << ini;
        EXPECT_TRUE(session.bShowGrpwAgenda) << ini;
        EXPECT_EQ(session.LotusCallLog.LastName, L"kept") << ini;
    }

    using Names = std::vector<std::wstring>;
};

}
