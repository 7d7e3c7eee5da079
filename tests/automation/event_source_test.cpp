// The ways to an object's events, in their order.
#include "automation/event_source.h"

#include "automation/error.h"
#include "automation/server/registration.h"
#include "sample_object.h"

#include <gtest/gtest.h>

using automation::AutomationError;
using automation::EventSource;
using automation::findEventSource;
using automation::Object;
using partners::Sample;
using partners::SampleLibrary;
using partners::SampleManners;
namespace server = automation::server;

namespace {

constexpr const wchar_t* progId = L"HublinkTest.Sample";

EventSource found(const SampleManners& manners, const wchar_t* registeredAs = L"")
{
    const auto sample = server::make<Sample>(manners);
    return findEventSource(Object(sample.get()), registeredAs);
}

// The class Sample, registered with a type library for as long as this lives.
class RegisteredSample {
public:
    explicit RegisteredSample(const SampleLibrary& library)
        : registration_{progId, partners::sampleClass, L"Test object"}, library_(library)
    {
        server::registerClass(registration_, L"C:\\nowhere\\sample.exe");
        setLibrary(HKEY_LOCAL_MACHINE);
        setLibrary(HKEY_CURRENT_USER);
        automation::check(RegisterTypeLib(library.library(), const_cast<LPOLESTR>(library.path().c_str()), nullptr),
                          L"RegisterTypeLib");
    }
    ~RegisteredSample()
    {
        TLIBATTR* attributes = nullptr;
        if (SUCCEEDED(library_.library()->GetLibAttr(&attributes))) {
            UnRegisterTypeLib(attributes->guid, attributes->wMajorVerNum, attributes->wMinorVerNum, attributes->lcid,
                              attributes->syskind);
            library_.library()->ReleaseTLibAttr(attributes);
        }
        registration_.typeLibrary = partners::sampleLibrary;
        server::unregisterClass(registration_);
    }

private:
    void setLibrary(HKEY root) const
    {
        wchar_t classText[64];
        wchar_t libraryText[64];
        StringFromGUID2(partners::sampleClass, classText, 64);
        StringFromGUID2(partners::sampleLibrary, libraryText, 64);
        const std::wstring key = std::wstring(L"Software\\Classes\\CLSID\\") + classText + L"\\TypeLib";
        RegSetValueW(root, key.c_str(), REG_SZ, libraryText, 0);
    }

    server::ClassRegistration registration_;
    const SampleLibrary& library_;
};

}

TEST(EventSource, ObjectThatNamesItsSource_IsBelieved)
{
    const SampleLibrary library;
    SampleManners manners;
    manners.classInfo = library.type(partners::sampleClass);
    manners.defaultSource = &partners::otherEvents;
    const EventSource source = found(manners);
    EXPECT_EQ(source.interfaceId, partners::otherEvents);
    EXPECT_EQ(source.names.at(9), L"OnSecond");
    EXPECT_EQ(source.names.count(7), 0u);
}

TEST(EventSource, NamedSourceThatTheClassDoesNotHave_GivesWayToTheDefaultSource)
{
    const SampleLibrary library;
    SampleManners manners;
    manners.classInfo = library.type(partners::sampleClass);
    manners.defaultSource = &IID_IUnknown;
    EXPECT_EQ(found(manners).interfaceId, partners::sampleEvents);
}

TEST(EventSource, ObjectWithClassInformation_GivesItsDefaultSource)
{
    const SampleLibrary library;
    SampleManners manners;
    manners.classInfo = library.type(partners::sampleClass);
    const EventSource source = found(manners);
    EXPECT_EQ(source.interfaceId, partners::sampleEvents);
    EXPECT_EQ(source.names.at(7), L"OnSample");
    EXPECT_EQ(source.names.at(8), L"OnOther");
    EXPECT_EQ(source.names.count(9), 0u);
}

TEST(EventSource, ObjectWithItsOwnTypeOnly_IsFoundInTheLibraryAroundIt)
{
    const SampleLibrary library;
    SampleManners manners;
    manners.ownType = library.type(partners::sampleInterface);
    const EventSource source = found(manners);
    EXPECT_EQ(source.interfaceId, partners::sampleEvents);
    EXPECT_EQ(source.names.at(7), L"OnSample");
}

TEST(EventSource, ClassInformation_IsPreferredToTheLibraryAroundTheObject)
{
    const SampleLibrary library;
    SampleManners manners;
    manners.classInfo = library.type(partners::sampleClass);
    manners.defaultSource = &partners::otherEvents;
    manners.ownType = library.type(partners::sampleInterface);
    EXPECT_EQ(found(manners).interfaceId, partners::otherEvents);
}

TEST(EventSource, SilentObject_IsFoundInTheLibraryRegisteredForItsClass)
{
    const SampleLibrary library;
    const RegisteredSample registered(library);
    const EventSource source = found({}, progId);
    EXPECT_EQ(source.interfaceId, partners::sampleEvents);
    EXPECT_EQ(source.names.at(7), L"OnSample");
}

TEST(EventSource, RegisteredLibraryOfAnyVersion_IsFound)
{
    const SampleLibrary library(2, 1);
    const RegisteredSample registered(library);
    EXPECT_EQ(found({}, progId).interfaceId, partners::sampleEvents);
}

TEST(EventSource, ObjectThatRaisesItsSecondSource_IsFoundByItsConnectionPoint)
{
    const SampleLibrary library;
    const RegisteredSample registered(library);
    const auto sample = server::make<Sample>(SampleManners{nullptr, nullptr, nullptr, partners::otherEvents});
    const EventSource source = findEventSource(Object(sample.get()), progId);
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
