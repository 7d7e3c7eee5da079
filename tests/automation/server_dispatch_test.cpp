// The server side, asked directly as a client's Invoke asks it.
#include "automation/server/class_factory.h"
#include "automation/server/dispatch.h"
#include "automation/server/registration.h"
#include "automation/server/standing_stubs.h"
#include "partner.h"

#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <stdexcept>

using automation::AutomationError;
using automation::Object;
using automation::Value;
using partners::Partner;
namespace server = automation::server;

namespace {

// Everything that one Invoke answers.
struct Answer {
    HRESULT result = S_OK;
    Value value;
    UINT refused = 99;
    EXCEPINFO exception{};
};

Answer invoke(IDispatch& object, DISPID id, WORD flags, std::vector<VARIANT> fromTheRight)
{
    Answer answer;
    DISPID putName = DISPID_PROPERTYPUT;
    const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    DISPPARAMS parameters{fromTheRight.data(), isPut ? &putName : nullptr, static_cast<UINT>(fromTheRight.size()),
                          isPut ? 1u : 0u};
    answer.result = object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, answer.value.receive(),
                                  &answer.exception, &answer.refused);
    return answer;
}

// An object whose members misbehave, or write into their arguments.
class Clumsy final : public server::TableDispatch<Clumsy> {
public:
    static const std::vector<server::MemberRow<Clumsy>>& members();
    HRESULT admission = S_OK;

protected:
    HRESULT admitCall(const server::IncomingCall&) override { return admission; }
};

// An object that fails when it is asked for a name.
class Nameless final : public server::Dispatch {
public:
    std::function<DISPID()> onLookUp;

protected:
    DISPID idOf(std::wstring_view) override { return onLookUp(); }
    Value answer(const server::IncomingCall&) override { return {}; }
};

const std::vector<server::MemberRow<Clumsy>>& Clumsy::members()
{
    using Call = const server::IncomingCall&;
    static const std::vector<server::MemberRow<Clumsy>> rows{
        {L"Break", 1, server::method, 0, 0, [](Clumsy&, Call) -> Value { throw std::runtime_error("broken"); }},
        {L"Write", 2, server::method, 2, 2,
         [](Clumsy&, Call call) -> Value {
             call.arguments.write({{0, call.arguments.value(1)}});
             return {};
         }},
        {L"Optional", 3, server::method, 0, 1, [](Clumsy&, Call call) -> Value { return call.arguments.isGiven(0); }},
        {L"Refer", 4, server::method, 1, 1, [](Clumsy&, Call call) -> Value { return call.arguments.object(0); }},
        {L"Busy", 5, server::method, 0, 0, [](Clumsy&, Call) -> Value { throw server::Failure{E_PENDING}; }},
        {L"Inner", 6, server::method, 0, 0, [](Clumsy&, Call) -> Value { throw AutomationError(L"x", E_ABORT); }},
        {L"NoMemory", 7, server::method, 0, 0, [](Clumsy&, Call) -> Value { throw std::bad_alloc(); }},
    };
    return rows;
}

VARIANT number(LONG value)
{
    VARIANT variant;
    V_VT(&variant) = VT_I4;
    V_I4(&variant) = value;
    return variant;
}

}

TEST(Dispatch, TooFewOrTooManyArguments_AreRefused)
{
    const auto partner = server::make<Partner>();
    EXPECT_EQ(invoke(*partner.get(), 2, DISPATCH_METHOD, {}).result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(invoke(*partner.get(), 2, DISPATCH_METHOD, {number(1)}).result, S_OK);
    EXPECT_EQ(invoke(*partner.get(), 2, DISPATCH_METHOD, {number(3), number(2), number(1)}).result, S_OK);
    EXPECT_EQ(invoke(*partner.get(), 2, DISPATCH_METHOD, {number(4), number(3), number(2), number(1)}).result,
              DISP_E_BADPARAMCOUNT);
}

TEST(Dispatch, PutWithoutItsValueOrWithMore_IsRefused)
{
    const auto partner = server::make<Partner>();
    EXPECT_EQ(invoke(*partner.get(), 1, DISPATCH_PROPERTYPUT, {}).result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(invoke(*partner.get(), 1, DISPATCH_PROPERTYPUT, {number(1), number(2)}).result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(invoke(*partner.get(), 1, DISPATCH_PROPERTYPUT, {number(1)}).result, S_OK);
    EXPECT_EQ(partner->name, L"1");
}

TEST(Dispatch, PutByReference_IsAPut)
{
    const auto partner = server::make<Partner>();
    EXPECT_EQ(invoke(*partner.get(), 1, DISPATCH_PROPERTYPUTREF, {number(5)}).result, S_OK);
    EXPECT_EQ(partner->name, L"5");
}

TEST(Dispatch, ArgumentOfTheWrongType_IsNamedFromTheRight)
{
    const auto partner = server::make<Partner>();
    Value text(L"abc");
    const Answer answer = invoke(*partner.get(), 4, DISPATCH_METHOD, {text.variant(), number(1)});
    EXPECT_EQ(answer.result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(answer.refused, 0u);
}

TEST(Dispatch, PutOfAReadOnlyProperty_IsMemberNotFound)
{
    const auto partner = server::make<Partner>();
    EXPECT_EQ(invoke(*partner.get(), 5, DISPATCH_PROPERTYPUT, {number(1)}).result, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(invoke(*partner.get(), 5, DISPATCH_PROPERTYGET, {}).value.int32(), 7);
}

TEST(Dispatch, MethodReadAsAProperty_IsMemberNotFound)
{
    const auto partner = server::make<Partner>();
    EXPECT_EQ(invoke(*partner.get(), 2, DISPATCH_PROPERTYGET, {number(1)}).result, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(invoke(*partner.get(), 2, DISPATCH_METHOD | DISPATCH_PROPERTYGET, {number(1)}).result, S_OK);
}

TEST(Dispatch, UnknownIdentifier_IsMemberNotFound)
{
    const auto partner = server::make<Partner>();
    EXPECT_EQ(invoke(*partner.get(), 1234, DISPATCH_METHOD, {}).result, DISP_E_MEMBERNOTFOUND);
}

TEST(Dispatch, Names_AreFoundWithoutRegardToCase)
{
    const auto partner = server::make<Partner>();
    DISPID id = 0;
    for (const wchar_t* spelling : {L"Number", L"NUMBER", L"number"}) {
        auto name = const_cast<LPOLESTR>(spelling);
        EXPECT_EQ(partner->GetIDsOfNames(IID_NULL, &name, 1, 0, &id), S_OK);
        EXPECT_EQ(id, 4);
    }
}

TEST(Dispatch, UnknownName_IsSaidToBeUnknown)
{
    const auto partner = server::make<Partner>();
    DISPID id = 0;
    auto name = const_cast<LPOLESTR>(L"Numbers");
    EXPECT_EQ(partner->GetIDsOfNames(IID_NULL, &name, 1, 0, &id), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(id, DISPID_UNKNOWN);
}

TEST(Dispatch, NamedArguments_AreNotOffered)
{
    const auto partner = server::make<Partner>();
    DISPID ids[2] = {0, 0};
    LPOLESTR names[] = {const_cast<LPOLESTR>(L"Number"), const_cast<LPOLESTR>(L"first")};
    EXPECT_EQ(partner->GetIDsOfNames(IID_NULL, names, 2, 0, ids), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(ids[0], 4);
    EXPECT_EQ(ids[1], DISPID_UNKNOWN);
}

TEST(Dispatch, Exception_FillsTheRecord)
{
    const auto partner = server::make<Partner>();
    Answer answer = invoke(*partner.get(), 3, DISPATCH_METHOD, {});
    EXPECT_EQ(answer.result, DISP_E_EXCEPTION);
    EXPECT_EQ(answer.exception.scode, E_FAIL);
    EXPECT_STREQ(answer.exception.bstrSource, L"Partner");
    EXPECT_STREQ(answer.exception.bstrDescription, L"it is broken");
    SysFreeString(answer.exception.bstrSource);
    SysFreeString(answer.exception.bstrDescription);
}

TEST(Dispatch, ExceptionWithoutARecord_BecomesItsCode)
{
    const auto partner = server::make<Partner>();
    DISPPARAMS none{};
    EXPECT_EQ(partner->Invoke(3, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr), E_FAIL);
}

TEST(Dispatch, NoExceptionOfItsOwn_ReachesTheClient)
{
    const auto clumsy = server::make<Clumsy>();
    Answer answer = invoke(*clumsy.get(), 1, DISPATCH_METHOD, {});
    EXPECT_EQ(answer.result, DISP_E_EXCEPTION);
    EXPECT_EQ(answer.exception.scode, E_UNEXPECTED);
    EXPECT_STREQ(answer.exception.bstrDescription, L"broken");
    SysFreeString(answer.exception.bstrSource);
    SysFreeString(answer.exception.bstrDescription);
    EXPECT_EQ(invoke(*clumsy.get(), 5, DISPATCH_METHOD, {}).result, E_PENDING);
    EXPECT_EQ(invoke(*clumsy.get(), 6, DISPATCH_METHOD, {}).result, E_ABORT);
    EXPECT_EQ(invoke(*clumsy.get(), 7, DISPATCH_METHOD, {}).result, E_OUTOFMEMORY);
}

TEST(Dispatch, CallThatIsNotAdmitted_IsAnsweredWithThatCode)
{
    const auto clumsy = server::make<Clumsy>();
    clumsy->admission = RPC_E_CALL_REJECTED;
    EXPECT_EQ(invoke(*clumsy.get(), 3, DISPATCH_METHOD, {}).result, RPC_E_CALL_REJECTED);
}

TEST(Dispatch, OmittedOptionalArgument_IsNotGiven)
{
    const auto clumsy = server::make<Clumsy>();
    VARIANT omitted;
    V_VT(&omitted) = VT_ERROR;
    V_ERROR(&omitted) = DISP_E_PARAMNOTFOUND;
    EXPECT_FALSE(invoke(*clumsy.get(), 3, DISPATCH_METHOD, {}).value.isTrue());
    EXPECT_FALSE(invoke(*clumsy.get(), 3, DISPATCH_METHOD, {omitted}).value.isTrue());
    EXPECT_TRUE(invoke(*clumsy.get(), 3, DISPATCH_METHOD, {number(0)}).value.isTrue());
}

TEST(Dispatch, ArgumentsByReference_AreWrittenWithTheirOwnType)
{
    const auto clumsy = server::make<Clumsy>();
    const Object object(clumsy.get());
    Value text(L"before");
    Value count{std::int32_t{1}};
    object.call(L"Write", {byRef(text), L"a text of another length"});
    object.call(L"Write", {byRef(count), L"12"});
    EXPECT_EQ(text.text(), L"a text of another length");
    EXPECT_EQ(count.type(), VT_I4);
    EXPECT_EQ(count.int32(), 12);

    VARIANT holder = number(1);
    VARIANT reference;
    V_VT(&reference) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&reference) = &holder;
    EXPECT_EQ(invoke(*clumsy.get(), 2, DISPATCH_METHOD, {number(5), reference}).result, S_OK);
    EXPECT_EQ(V_I4(&holder), 5);
}

TEST(Dispatch, WriteIntoAnArgumentByValue_IsATypeMismatch)
{
    const auto clumsy = server::make<Clumsy>();
    const Answer answer = invoke(*clumsy.get(), 2, DISPATCH_METHOD, {number(2), number(1)});
    EXPECT_EQ(answer.result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(answer.refused, 1u);
}

TEST(Dispatch, ObjectArgument_MustBeAnObject)
{
    const auto clumsy = server::make<Clumsy>();
    const Object object(clumsy.get());
    EXPECT_EQ(object.get(L"Refer", {object}).object().dispatch(), clumsy.get());
    EXPECT_THROW(object.get(L"Refer", {L"text"}), AutomationError);
}

TEST(Dispatch, LiveObjects_AreCounted)
{
    {
        const auto first = server::make<Partner>();
        const auto second = server::make<Clumsy>();
        EXPECT_EQ(server::Dispatch::liveCount(), 2);
    }
    EXPECT_EQ(server::Dispatch::liveCount(), 0);
}

TEST(Dispatch, LookUpThatThrows_IsAnsweredWithItsCode)
{
    const auto nameless = server::make<Nameless>();
    wchar_t text[] = L"Name";
    LPOLESTR name = text;
    DISPID id = 0;
    nameless->onLookUp = []() -> DISPID { throw std::bad_alloc(); };
    EXPECT_EQ(nameless->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id), E_OUTOFMEMORY);
    nameless->onLookUp = []() -> DISPID { throw server::Failure{E_PENDING}; };
    EXPECT_EQ(nameless->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id), E_PENDING);
}

TEST(Dispatch, OtherInterfaces_AreNotOffered)
{
    const auto partner = server::make<Partner>();
    EXPECT_FALSE(automation::query<IUnknown>(partner.get(), IID_IEnumVARIANT));
    UINT count = 9;
    EXPECT_EQ(partner->GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 0u);
}

TEST(Registration, RegisteredClass_CanBeCreated_UntilItIsRemoved)
{
    const server::ClassRegistration registration{
        L"HublinkTest.Partner",
        {0x6a0c1d40, 0x52f7, 0x4e0b, {0x9d, 0x31, 0x77, 0x20, 0x15, 0xe8, 0x4a, 0x10}},
        L"Test"};
    server::registerClass(registration, L"C:\\nowhere\\partner.exe");
    {
        int created = 0;
        const server::ClassFactory factory(registration.classId, [&] {
            ++created;
            return automation::ComPtr<IDispatch>(server::make<Partner>());
        });
        EXPECT_EQ(Object::create(L"HublinkTest.Partner").get(L"Name").text(), L"first");
        EXPECT_EQ(Object::create(L"hublinktest.partner").get(L"Count").int32(), 7);
        EXPECT_EQ(created, 2);
    }
    server::unregisterClass(registration);
    EXPECT_THROW(Object::create(L"HublinkTest.Partner"), AutomationError);
    server::unregisterClass(registration); // nothing left: no failure
}

TEST(StandingStubs, AllServedInterfaces_HaveOne_HoweverOftenTheyAreAskedFor)
{
    EXPECT_EQ(server::keepStandingStubs(), 7u);
    EXPECT_EQ(server::keepStandingStubs(), 7u);
}
