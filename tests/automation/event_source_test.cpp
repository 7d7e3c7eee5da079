// The ways to an object's events, in their order.
#include "automation/event_source.h"

#include "automation/error.h"
#include "automation/server/registration.h"
#include "thing.h"

#include <gtest/gtest.h>

using automation::AutomationError;
using automation::EventSource;
using automation::findEventSource;
using automation::Object;
using partners::Thing;
using partners::ThingLibrary;
using partners::ThingManners;
namespace server = automation::server;

namespace {

constexpr const wchar_t* progId = L"HublinkTest.Thing";

EventSource found(const ThingManners& manners, const wchar_t* registeredAs = L"")
{
    const auto thing = server::make<Thing>(manners);
    return findEventSource(Object(thing.get()), registeredAs);
}

// The class Thing, registered with a type library for as long as this lives.
class RegisteredThing {
public:
    explicit RegisteredThing(const ThingLibrary& library)
        : registration_{progId, partners::thingClass, L"Test object"}, library_(library)
    {
        server::registerClass(registration_, L"C:\\nowhere\\thing.exe");
        setLibrary(HKEY_LOCAL_MACHINE);
        setLibrary(HKEY_CURRENT_USER);
        automation::check(RegisterTypeLib(library.library(), const_cast<LPOLESTR>(library.path().c_str()), nullptr),
                          L"RegisterTypeLib");
    }
    ~RegisteredThing()
    {
        TLIBATTR* attributes = nullptr;
        if (SUCCEEDED(library_.library()->GetLibAttr(&attributes))) {
            UnRegisterTypeLib(attributes->guid, attributes->wMajorVerNum, attributes->wMinorVerNum, attributes->lcid,
                              attributes->syskind);
            library_.library()->ReleaseTLibAttr(attributes);
        }
        registration_.typeLibrary = partners::thingLibrary;
        server::unregisterClass(registration_);
    }

private:
    void setLibrary(HKEY root) const
    {
        wchar_t classText[64];
        wchar_t libraryText[64];
        StringFromGUID2(partners::thingClass, classText, 64);
        StringFromGUID2(partners::thingLibrary, libraryText, 64);
        const std::wstring key = std::wstring(L"Software\\Classes\\CLSID\\") + classText + L"\\TypeLib";
        RegSetValueW(root, key.c_str(), REG_SZ, libraryText, 0);
    }

    server::ClassRegistration registration_;
    const ThingLibrary& library_;
};

}

TEST(EventSource, ObjectThatNamesItsSource_IsBelieved)
{
    const ThingLibrary library;
    ThingManners manners;
    manners.classInfo = library.type(partners::thingClass);
    manners.defaultSource = &partners::otherEvents;
    const EventSource source = found(manners);
    EXPECT_EQ(source.interfaceId, partners::otherEvents);
    EXPECT_EQ(source.names.at(9), L"OnSecond");
    EXPECT_EQ(source.names.count(7), 0u);
}

TEST(EventSource, NamedSourceThatTheClassDoesNotHave_GivesWayToTheDefaultSource)
{
    const ThingLibrary library;
    ThingManners manners;
    manners.classInfo = library.type(partners::thingClass);
    manners.defaultSource = &IID_IUnknown;
    EXPECT_EQ(found(manners).interfaceId, partners::thingEvents);
}

TEST(EventSource, ObjectWithClassInformation_GivesItsDefaultSource)
{
    const ThingLibrary library;
    ThingManners manners;
    manners.classInfo = library.type(partners::thingClass);
    const EventSource source = found(manners);
    EXPECT_EQ(source.interfaceId, partners::thingEvents);
    EXPECT_EQ(source.names.at(7), L"OnThing");
    EXPECT_EQ(source.names.at(8), L"OnOther");
    EXPECT_EQ(source.names.count(9), 0u);
}

TEST(EventSource, ObjectWithItsOwnTypeOnly_IsFoundInTheLibraryAroundIt)
{
    const ThingLibrary library;
    ThingManners manners;
    manners.ownType = library.type(partners::thingInterface);
    const EventSource source = found(manners);
    EXPECT_EQ(source.interfaceId, partners::thingEvents);
    EXPECT_EQ(source.names.at(7), L"OnThing");
}

TEST(EventSource, ClassInformation_IsPreferredToTheLibraryAroundTheObject)
{
    const ThingLibrary library;
    ThingManners manners;
    manners.classInfo = library.type(partners::thingClass);
    manners.defaultSource = &partners::otherEvents;
    manners.ownType = library.type(partners::thingInterface);
    EXPECT_EQ(found(manners).interfaceId, partners::otherEvents);
}

TEST(EventSource, SilentObject_IsFoundInTheLibraryRegisteredForItsClass)
{
    const ThingLibrary library;
    const RegisteredThing registered(library);
    const EventSource source = found({}, progId);
    EXPECT_EQ(source.interfaceId, partners::thingEvents);
    EXPECT_EQ(source.names.at(7), L"OnThing");
}

TEST(EventSource, RegisteredLibraryOfAnyVersion_IsFound)
{
    const ThingLibrary library(2, 1);
    const RegisteredThing registered(library);
    EXPECT_EQ(found({}, progId).interfaceId, partners::thingEvents);
}

TEST(EventSource, ObjectThatRaisesItsSecondSource_IsFoundByItsConnectionPoint)
{
    const ThingLibrary library;
    const RegisteredThing registered(library);
    const auto thing = server::make<Thing>(ThingManners{nullptr, nullptr, nullptr, partners::otherEvents});
    const EventSource source = findEventSource(Object(thing.get()), progId);
    EXPECT_EQ(source.interfaceId, partners::otherEvents);
    EXPECT_EQ(source.names.at(9), L"OnSecond");
}

TEST(EventSource, SilentObjectOfAnUnregisteredClass_HasNoEvents)
{
    EXPECT_THROW(found({}, progId), AutomationError);
    EXPECT_THROW(found({}), AutomationError);
}

TEST(EventSource, OfAnEmptyReference_FailsWithObjectNotSet)
{
    try {
        findEventSource(Object(), progId);
        FAIL() << "no error";
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.code(), automation::objectNotSet);
    }
}
