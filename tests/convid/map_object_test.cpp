// The members of the automation object, called as clients call them.
#include "automation/enumeration.h"
#include "automation/error.h"
#include "convid/map_object.h"
#include "store_files.h"
#include "support/failure.h"

#include <gtest/gtest.h>

#include <set>

using namespace convid_tests;
using automation::AutomationError;
using automation::byRef;
using automation::Object;
using automation::Value;
namespace server = automation::server;

namespace {

constexpr std::int32_t outlook = 0;
constexpr std::int32_t lotus = 1;
constexpr std::int32_t history = 0;
constexpr std::int32_t addressBook = 1;

// What a client gets that asks with a text of 1024 NULs and the length 1024.
struct Converted {
    std::int32_t result;
    std::wstring text;
    std::int32_t length;
};

Converted convert(const Object& map, const wchar_t* idOrvel, std::int32_t typApplication)
{
    Value text(std::wstring(1024, L'\0'));
    Value length(std::int32_t{1024});
    const Value result = map.get(L"ConvertIdOrvel", {idOrvel, byRef(text), byRef(length), typApplication});
    return {result.int32(), text.text(), length.int32()};
}

// An argument as script hosts pass a variable: a VARIANT by reference.
Value variantByRef(Value& variable)
{
    Value reference;
    VARIANT* const variant = reference.receive();
    V_VT(variant) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(variant) = const_cast<VARIANT*>(&variable.variant());
    return reference;
}

class Map : public testing::Test {
protected:
    Object newObject() { return Object(server::make<convid::MapObject>(store).get()); }

    ScratchFolder folder;
    std::shared_ptr<convid::IdentifierStore> store = std::make_shared<convid::IdentifierStore>(folder.file(L"map"));
    Object map = newObject();
};

}

TEST_F(Map, InsertedIdentifier_IsWrittenIntoTextAndLength_AndResultIsOne)
{
    map.call(L"InsertId", {L"00000000EF12", L"5.7", outlook, addressBook});
    const Converted answer = convert(map, L"5.7", outlook);
    EXPECT_EQ(answer.result, 1);
    EXPECT_EQ(answer.length, 12);
    EXPECT_EQ(answer.text.substr(0, 12), L"00000000EF12");
}

TEST_F(Map, UnknownIdentifier_GivesZero_AndLeavesTextAndLength)
{
    map.call(L"InsertId", {L"00000000EF12", L"5.7", outlook, addressBook});
    for (const Converted& answer : {convert(map, L"5.8", outlook), convert(map, L"5.7", lotus)}) {
        EXPECT_EQ(answer.result, 0);
        EXPECT_EQ(answer.length, 1024);
        EXPECT_EQ(answer.text, std::wstring(1024, L'\0'));
    }
}

TEST_F(Map, LongAndUnicodeIdentifier_ComesBackWhole)
{
    const std::wstring identifier = std::wstring(1022, L'\u4E2D') + L"\xD800";
    map.call(L"InsertId", {identifier, L"5.7", lotus, history});
    const Converted answer = convert(map, L"5.7", lotus);
    EXPECT_EQ(answer.length, 1023);
    EXPECT_EQ(answer.text.substr(0, 1023), identifier);
}

TEST_F(Map, IdentifierLongerThanRoom_IsAnError_AndNothingIsWritten)
{
    map.call(L"InsertId", {std::wstring(1024, L'x'), L"1.1", outlook, addressBook});
    map.call(L"InsertId", {std::wstring(1025, L'x'), L"1.2", outlook, addressBook});
    EXPECT_EQ(convert(map, L"1.1", outlook).length, 1024);

    Value text(std::wstring(1024, L'\0'));
    Value length(std::int32_t{1024});
    const auto error = failureOf([&] { map.get(L"ConvertIdOrvel", {L"1.2", byRef(text), byRef(length), outlook}); });
    EXPECT_EQ(error.code(), HRESULT_FROM_WIN32(ERROR_MORE_DATA));
    EXPECT_EQ(error.source(), L"PavexConvId");
    EXPECT_EQ(error.description(), L"The groupware identifier has 1025 characters, there is room for 1024");
    EXPECT_EQ(text.text(), std::wstring(1024, L'\0'));
    EXPECT_EQ(length.int32(), 1024);
}

TEST_F(Map, VariablesOfAScript_PassedAsVariantsByReference_AreWritten)
{
    Value appli(L"entry"), orvel(L"5.7"), type(std::int16_t{0}), collection(std::int16_t{1});
    map.call(L"InsertId", {variantByRef(appli), variantByRef(orvel), variantByRef(type), variantByRef(collection)});
    Value text, length(std::int16_t{1024});
    const Value result =
        map.get(L"ConvertIdOrvel", {variantByRef(orvel), variantByRef(text), variantByRef(length), variantByRef(type)});
    EXPECT_EQ(result.int32(), 1);
    EXPECT_EQ(text.type(), VT_BSTR);
    EXPECT_EQ(text.text(), L"entry");
    EXPECT_EQ(length.int32(), 5);
}

TEST_F(Map, Numbers_AreConvertedAsAutomationDoes)
{
    map.call(L"InsertId", {L"a", L"1.1", std::int16_t{1}, std::int16_t{0}});
    map.call(L"InsertId", {L"b", L"1.2", L"1", true});
    map.call(L"InsertId", {std::int32_t{17}, L"1.3", Value::date(1.0), std::int32_t{0}});
    EXPECT_EQ(convert(map, L"1.1", lotus).text, L"a");
    EXPECT_EQ(convert(map, L"1.2", lotus).text, L"b");
    EXPECT_EQ(convert(map, L"1.3", lotus).text, L"17");
}

TEST_F(Map, ArgumentThatIsNoNumber_IsATypeMismatch_NamingTheArgument)
{
    const auto error = failureOf([&] { map.call(L"InsertId", {L"a", L"1.1", outlook, L"contacts"}); });
    EXPECT_EQ(error.code(), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(error.argument(), 3u);
    EXPECT_EQ(convert(map, L"1.1", outlook).result, 0);
}

TEST_F(Map, TextOrLengthByValue_IsATypeMismatch_NamingTheArgument)
{
    map.call(L"InsertId", {L"entry", L"5.7", outlook, addressBook});
    Value text(std::wstring(1024, L'\0'));
    Value length(std::int32_t{1024});
    const auto aboutText = failureOf([&] { map.get(L"ConvertIdOrvel", {L"5.7", L"", byRef(length), outlook}); });
    EXPECT_EQ(aboutText.code(), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(aboutText.argument(), 1u);
    EXPECT_EQ(length.int32(), 1024) << "the one is written with the other or not at all";
    const auto aboutLength =
        failureOf([&] { map.get(L"ConvertIdOrvel", {L"5.7", byRef(text), std::int32_t{1024}, outlook}); });
    EXPECT_EQ(aboutLength.code(), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(aboutLength.argument(), 2u);
    EXPECT_EQ(text.text(), std::wstring(1024, L'\0'));
}

TEST_F(Map, WrongNumberOfArguments_IsRefused)
{
    EXPECT_EQ(failureOf([&] { map.call(L"InsertId", {L"a", L"1.1", outlook}); }).code(), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(failureOf([&] { map.call(L"StopOrvelConvertId", {outlook}); }).code(), DISP_E_BADPARAMCOUNT);
}

TEST_F(Map, EmptyIdentifier_IsAnErrorWithADescription)
{
    const auto error = failureOf([&] { map.call(L"InsertId", {L"", L"5.7", outlook, addressBook}); });
    EXPECT_EQ(error.code(), E_INVALIDARG);
    EXPECT_EQ(error.source(), L"PavexConvId");
    EXPECT_EQ(error.description(), L"idAppli is empty");
    EXPECT_EQ(failureOf([&] { map.call(L"InsertId", {L"e", L"", outlook, addressBook}); }).description(),
              L"idOrvel is empty");
}

TEST_F(Map, MemberNames_AreFoundWithoutRegardToCase)
{
    map.call(L"INSERTID", {L"entry", L"5.7", outlook, addressBook});
    EXPECT_EQ(map.get(L"idcollection", {addressBook}).object().get(L"COUNT").int32(), 1);
}

TEST_F(Map, RemovedIdentifier_IsNotMapped_TheOtherApplicationsIs)
{
    map.call(L"InsertId", {L"entry", L"5.7", outlook, addressBook});
    map.call(L"InsertId", {L"note", L"5.7", lotus, addressBook});
    map.call(L"RemoveIdOrvel", {L"5.7", outlook});
    map.call(L"RemoveIdOrvel", {L"5.7", outlook}); // not there any more: no error
    EXPECT_EQ(convert(map, L"5.7", outlook).result, 0);
    EXPECT_EQ(convert(map, L"5.7", lotus).result, 1);
}

TEST_F(Map, Collection_HasCountItemsAndTheirMembers)
{
    map.call(L"InsertId", {L"entry", L"5.7", outlook, addressBook});
    map.call(L"InsertId", {L"journal", L"5.7", lotus, history});
    const Object contacts = map.get(L"idCollection", {addressBook}).object();
    EXPECT_EQ(contacts.get(L"Count").int32(), 1);
    const Object first = contacts.get(L"Item", {std::int32_t{1}}).object();
    EXPECT_EQ(first.get(L"idOrvel").text(), L"5.7");
    EXPECT_EQ(first.get(L"idAppli").text(), L"entry");
    EXPECT_EQ(first.get(L"typApplication").type(), VT_I4);
    EXPECT_EQ(first.get(L"typApplication").int32(), outlook);
    EXPECT_EQ(contacts.get(automation::Member(DISPID{DISPID_VALUE}), {std::int32_t{1}}).object().get(L"idOrvel").text(),
              L"5.7");
    for (const std::int32_t outside : {0, 2, -1})
        EXPECT_EQ(failureOf([&] { contacts.get(L"Item", {outside}); }).code(), DISP_E_BADINDEX);
    EXPECT_EQ(map.get(L"idCollection", {std::int32_t{7}}).object().get(L"Count").int32(), 0);
}

TEST_F(Map, RecordsRemovedWhileEnumerated_AreAllSeen_AndAllGone)
{
    std::set<std::wstring> expected;
    for (int number = 0; number < 30; ++number) {
        const std::wstring id = L"1." + std::to_wstring(number);
        map.call(L"InsertId", {L"entry", id, number % 2, addressBook});
        expected.insert(id);
    }
    std::set<std::wstring> seen;
    const Object contacts = map.get(L"idCollection", {addressBook}).object();
    automation::Enumeration records(contacts);
    for (Value element; records.next(element);) {
        const Object found = element.object();
        seen.insert(found.get(L"idOrvel").text());
        map.call(L"RemoveIdOrvel", {found.get(L"idOrvel"), found.get(L"typApplication")});
    }
    EXPECT_EQ(seen, expected);
    EXPECT_EQ(map.get(L"idCollection", {addressBook}).object().get(L"Count").int32(), 0);
    EXPECT_EQ(contacts.get(L"Count").int32(), 30);
}

TEST_F(Map, StoppedServer_HasLetGoOfItsFile_AndNextCallOfAnyObjectOpensItAgain)
{
    const Object other = newObject();
    map.call(L"InsertId", {L"entry", L"5.7", outlook, addressBook});
    map.call(L"StopOrvelConvertId");
    EXPECT_TRUE(MoveFileW(folder.file(L"map").c_str(), folder.file(L"moved").c_str()));
    EXPECT_TRUE(MoveFileW(folder.file(L"moved").c_str(), folder.file(L"map").c_str()));
    EXPECT_EQ(convert(other, L"5.7", outlook).result, 1);
    map.call(L"StopOrvelConvertId");
    map.call(L"StopOrvelConvertId");
}

TEST_F(Map, StoreThatCannotBeOpened_IsAnErrorWithADescription_InEveryMemberThatNeedsIt)
{
    CreateDirectoryW(folder.file(L"map").c_str(), nullptr);
    const auto expectRefusal = [](const AutomationError& error) {
        EXPECT_TRUE(FAILED(error.code()));
        EXPECT_EQ(error.source(), L"PavexConvId");
        EXPECT_NE(error.description().find(L"cannot be opened"), std::wstring::npos);
    };
    expectRefusal(failureOf([&] { map.call(L"InsertId", {L"entry", L"5.7", outlook, addressBook}); }));
    expectRefusal(failureOf([&] { convert(map, L"5.7", outlook); }));
    expectRefusal(failureOf([&] { map.call(L"RemoveIdOrvel", {L"5.7", outlook}); }));
    expectRefusal(failureOf([&] { map.get(L"idCollection", {addressBook}); }));
    EXPECT_NO_THROW(map.call(L"StopOrvelConvertId"));
}
