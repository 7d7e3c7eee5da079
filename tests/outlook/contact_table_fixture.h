// What the tests of the contacts' table share.
#pragma once

#include "outlook/contact_lookup.h"
#include "outlook/contact_table.h"
#include "outlook_fixture.h"

namespace hublink {

class ContactTableFixture : public OutlookFixture {
protected:
    void openAs(desk::outlook::Version version, const std::wstring& records)
    {
        session.bOutlookInit = false;
        outlook.setVersion(version);
        open(records);
        outlook.setVersion(version);
    }

    PossibleOwner ownerOf(const std::wstring& number) { return findPossibleOwner(session, number).owner; }
    bool isProvedAbsent(const std::wstring& number) { return ownerOf(number) == PossibleOwner::nobody; }

    unsigned long questions() { return outlook.guard().questions(); }

    // Whether a walk finds the number; the last name of whom it finds.
    bool walkFinds(const std::wstring& number) { return static_cast<bool>(WalkOutlookContacts(session, number)); }
    std::wstring walkFindsWhom(const std::wstring& number)
    {
        const automation::Object contact = WalkOutlookContacts(session, number);
        return contact ? contact.get(L"LastName").text() : L"nobody";
    }

    // Whether the contact was taken by its identifier, and no walk was needed.
    bool wasTakenByIdentifier()
    {
        return calls(L"NameSpace.GetItemFromID method") == 1 && calls(L"Items.GetFirst method") == 0;
    }

    static std::wstring people(int number)
    {
        std::wstring records;
        for (int n = 0; n < number; ++n)
            records += L"[contact]\nLastName=P\nHomeTelephoneNumber=5 5." + std::to_wstring(n) + L"\n";
        return records;
    }

    static std::wstring personWith(const std::wstring& number)
    {
        return L"[contact]\nLastName=Wanted\nCarTelephoneNumber=" + number + L"\n";
    }
};

}
