// What the tests of the search for a number share: an open session, a person, the search.
#pragma once

#include "lotus/number_search.h"
#include "lotus_fixture.h"

namespace hublink {

class NumberSearchFixture : public LotusFixture {
protected:
    static constexpr const wchar_t* company = L"CN=Mail1/O=Acme!!books\\company.nsf";
    static constexpr const wchar_t* durand = L"Form=Person\nLastName=Durand\nFirstName=Marc\nFullName=Marc Durand\n"
                                             L"OfficePhoneNumber=014567\nMailAddress=\nInternetAddress=marc@acme.fr\n";

    NumberSearchFixture() { ready(); }

    bool search(const std::wstring& number, const std::wstring& wanted = L"", Show show = Show::no)
    {
        const LotusSearchResult result = SearchByNumber(session, number, show, wanted, person);
        person = result.person;
        book = result.book;
        return result.isFound;
    }

    bool searchAndShow(const std::wstring& number) { return search(number, L"", Show::yes); }

    static std::wstring keyed(const wchar_t* key)
    {
        return L"NotesView.GetDocumentByKey method (BSTR \"" + std::wstring(key) + L"\", BOOL True)";
    }

    static std::wstring noAccess(const std::wstring& place)
    {
        return L"\n3/15/2023 12:00:00 PM Error acces " + place + L" in SearchInPublicAdressBook";
    }

    LotusPerson person;
    LotusAddressBook book;
};

}
