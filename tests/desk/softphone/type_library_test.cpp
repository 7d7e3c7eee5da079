#include "automation/owners.h"
#include "desk/softphone/guids.h"
#include "desk/softphone/type_library.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace {

using namespace desk::softphone;

std::wstring nameOf(ITypeInfo* type, MEMBERID member)
{
    automation::Bstr name;
    EXPECT_EQ(type->GetDocumentation(member, name.receive(), nullptr, nullptr, nullptr), S_OK);
    return name.text();
}

std::map<std::wstring, DISPID> membersOf(REFGUID id)
{
    TypeLibrary library;
    const auto type = library.describe(id);
    std::map<std::wstring, DISPID> members;
    FUNCDESC* function = nullptr;
    for (UINT index = 0; SUCCEEDED(type->GetFuncDesc(index, &function)); ++index) {
        members.emplace(nameOf(type.get(), function->memid), function->memid);
        type->ReleaseFuncDesc(function);
    }
    return members;
}

using Members = std::map<std::wstring, DISPID>;

}

TEST(SoftphoneTypeLibrary, Description_IsFoundUnderEachIdentifier)
{
    const std::pair<GUID, const wchar_t*> names[] = {
        {applicationClassId, L"Application"},
        {lineClassId, L"Line"},
        {historyClassId, L"History"},
        {addressBookClassId, L"AddressBook"},
        {applicationId, L"IPavexApplication"},
        {userId, L"IPavexUser"},
        {lineId, L"IPavexLine"},
        {historyId, L"IPavexHistory"},
        {historyItemId, L"IPavexHistoryItem"},
        {addressBookId, L"IPavexAddressBook"},
        {lineEventsId, L"IPavexLineEvents"},
        {applicationEventsId, L"IPavexApplicationEvents"},
        {historyEventsId, L"IPavexHistoryEvents"},
        {addressBookEventsId, L"IPavexAddressBookEvents"},
    };
    TypeLibrary library;
    for (const auto& [id, name] : names) EXPECT_EQ(nameOf(library.describe(id).get(), MEMBERID_NIL), name);
}

TEST(SoftphoneTypeLibrary, Library_CarriesItsIdentifier)
{
    TypeLibrary library;
    automation::ComPtr<ITypeLib> containing;
    UINT index = 0;
    ASSERT_EQ(library.describe(userId)->GetContainingTypeLib(containing.receive(), &index), S_OK);
    TLIBATTR* attributes = nullptr;
    ASSERT_EQ(containing->GetLibAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->guid, libraryId);
    containing->ReleaseTLibAttr(attributes);
}

TEST(SoftphoneTypeLibrary, Events_AreFoundInTheirInterfaces_UnderTheirIdentifiers)
{
    EXPECT_EQ(membersOf(applicationEventsId), (Members{{L"OnQuit", PAVEX_ON_QUIT}}));
    EXPECT_EQ(membersOf(lineEventsId), (Members{{L"OnLineNewCall", PAVEX_ON_LINE_NEW_CALL}}));
    EXPECT_EQ(membersOf(historyEventsId), (Members{{L"OnHistoricNewItem", PAVEX_ON_HISTORIC_NEW_ITEM},
                                                   {L"OnHistoricDeleteItem", PAVEX_ON_HISTORIC_DELETE_ITEM}}));
    EXPECT_EQ(membersOf(addressBookEventsId), (Members{{L"OnRepertoryNewEntry", PAVEX_ON_REPERTORY_NEW_ENTRY},
                                                       {L"OnRepertoryDeleteEntry", PAVEX_ON_REPERTORY_DELETE_ENTRY}}));
}

TEST(SoftphoneTypeLibrary, DescribedMembers_AreThoseOfTheObjects)
{
    EXPECT_EQ(membersOf(applicationId),
              (Members{{L"User", 9}, {L"Line", 10}, {L"History", 11}, {L"AddressBook", 12}, {L"Attached", 14}}));
    EXPECT_EQ(membersOf(userId), (Members{{L"FirstText", 2}, {L"SecondText", 3}}));
    EXPECT_EQ(membersOf(historyId), (Members{{L"Count", 1}, {L"Item", 3}, {L"Find", 4}}));
    EXPECT_EQ(membersOf(addressBookId), (Members{{L"Count", 1}, {L"Item", 3}, {L"Find", 4}}));
}
