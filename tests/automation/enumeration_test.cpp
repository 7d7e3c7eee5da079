#include "automation/enumeration.h"

#include "automation/error.h"
#include "automation/server/collection.h"
#include "partner.h"
#include "support/raw_partner.h"

#include <gtest/gtest.h>

using automation::AutomationError;
using automation::Enumeration;
using automation::Object;
using automation::Value;
using partners::Partner;
using support::RawPartner;
namespace server = automation::server;

namespace {

// A collection whose enumerator is `enumerator`.
class Collection final : public RawPartner {
public:
    explicit Collection(std::vector<Value> values) : values_(std::move(values))
    {
        onCall = [this](const Call& call) -> HRESULT {
            if (call.id != DISPID_NEWENUM) return DISP_E_MEMBERNOTFOUND;
            *call.result = server::enumerationOf(values_).release();
            return S_OK;
        };
    }

private:
    const std::vector<Value> values_;
};

// An enumerator that gives one number and then fails as told.
class FailingEnumerator final : public support::StackObject<IEnumVARIANT, IID_IEnumVARIANT> {
public:
    explicit FailingEnumerator(std::vector<HRESULT> answers) : answers_(std::move(answers)) {}

    STDMETHODIMP Next(ULONG, VARIANT* value, ULONG* fetched) override
    {
        const HRESULT answer = answers_.at(asked++);
        *fetched = SUCCEEDED(answer) ? 1 : 0;
        if (SUCCEEDED(answer)) {
            V_VT(value) = VT_I4;
            V_I4(value) = 1;
        }
        return answer;
    }
    STDMETHODIMP Skip(ULONG) override { return E_NOTIMPL; }
    STDMETHODIMP Reset() override { return E_NOTIMPL; }
    STDMETHODIMP Clone(IEnumVARIANT**) override { return E_NOTIMPL; }

    std::size_t asked = 0;

private:
    std::vector<HRESULT> answers_;
};

std::vector<std::wstring> texts(Enumeration& elements)
{
    std::vector<std::wstring> result;
    Value element;
    while (elements.next(element)) result.push_back(element.text());
    return result;
}

automation::ComPtr<IEnumVARIANT> enumeratorOf(std::vector<Value> values)
{
    const Value value = server::enumerationOf(std::move(values));
    return automation::query<IEnumVARIANT>(V_UNKNOWN(&value.variant()), IID_IEnumVARIANT);
}

}

TEST(Enumeration, Collection_IsWalkedInItsOrder)
{
    Collection collection({L"one", L"two", L"three"});
    Enumeration elements{Object(&collection)};
    EXPECT_EQ(texts(elements), (std::vector<std::wstring>{L"one", L"two", L"three"}));
    EXPECT_TRUE(collection.lookUps.empty()) << "the enumerator has an identifier of its own";
}

TEST(Enumeration, PastTheEnd_StaysAtTheEnd)
{
    Collection collection({L"one"});
    Enumeration elements{Object(&collection)};
    Value element;
    EXPECT_TRUE(elements.next(element));
    EXPECT_FALSE(elements.next(element));
    EXPECT_FALSE(elements.next(element));
}

TEST(Enumeration, EmptyCollection_HasNoElement)
{
    Collection collection({});
    Enumeration elements{Object(&collection)};
    Value element;
    EXPECT_FALSE(elements.next(element));
}

TEST(Enumeration, Elements_KeepTheirTypes_AndAreReleased)
{
    RawPartner record;
    {
        Collection collection({Value(Object(&record)), std::int16_t{3}});
        Enumeration elements{Object(&collection)};
        Value element;
        ASSERT_TRUE(elements.next(element));
        EXPECT_EQ(element.object().dispatch(), &record);
        ASSERT_TRUE(elements.next(element));
        EXPECT_EQ(element.type(), VT_I2);
    }
    EXPECT_EQ(record.references, 1u);
}

TEST(Enumeration, OfAnObjectWithoutEnumerator_Fails)
{
    const auto partner = server::make<Partner>();
    EXPECT_THROW(Enumeration{Object(partner.get())}, AutomationError);
}

TEST(Enumeration, OfAnEmptyReference_FailsWithObjectNotSet)
{
    try {
        Enumeration elements{Object()};
        FAIL() << "no error";
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.code(), automation::objectNotSet);
    }
}

TEST(Enumeration, EnumeratorThatIsNone_IsATypeMismatch)
{
    RawPartner collection;
    for (const VARTYPE type : {VT_EMPTY, VT_I4, VT_UNKNOWN}) {
        collection.onCall = [type](const RawPartner::Call& call) {
            V_VT(call.result) = type;
            V_UNKNOWN(call.result) = nullptr;
            return S_OK;
        };
        try {
            Enumeration elements{Object(&collection)};
            FAIL() << "no error";
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.code(), DISP_E_TYPEMISMATCH);
        }
    }
}

TEST(Enumeration, EnumeratorWithoutTheInterface_Fails)
{
    RawPartner collection;
    collection.onCall = [&](const RawPartner::Call& call) {
        V_VT(call.result) = VT_DISPATCH;
        V_DISPATCH(call.result) = &collection;
        collection.AddRef();
        return S_OK;
    };
    EXPECT_THROW(Enumeration{Object(&collection)}, AutomationError);
}

TEST(Enumeration, FailureInTheMiddle_IsAnError_AndABusyServerIsAskedAgain)
{
    FailingEnumerator enumerator({S_OK, RPC_E_CALL_REJECTED, S_OK, E_FAIL});
    RawPartner collection;
    collection.onCall = [&](const RawPartner::Call& call) {
        V_VT(call.result) = VT_UNKNOWN;
        V_UNKNOWN(call.result) = &enumerator;
        enumerator.AddRef();
        return S_OK;
    };
    {
        Enumeration elements{Object(&collection)};
        Value element;
        EXPECT_TRUE(elements.next(element));
        EXPECT_TRUE(elements.next(element));
        EXPECT_EQ(enumerator.asked, 3u);
        EXPECT_THROW(elements.next(element), AutomationError);
    }
    EXPECT_EQ(enumerator.references, 1u);
}

TEST(EnumerationServer, Next_GivesWhatIsLeftAndSaysSo)
{
    const auto enumerator = enumeratorOf({L"one", L"two", L"three"});
    VARIANT values[4];
    ULONG fetched = 0;
    EXPECT_EQ(enumerator->Next(2, values, &fetched), S_OK);
    EXPECT_EQ(fetched, 2u);
    for (int index = 0; index < 2; ++index) VariantClear(&values[index]);
    EXPECT_EQ(enumerator->Next(4, values, &fetched), S_FALSE);
    ASSERT_EQ(fetched, 1u);
    EXPECT_STREQ(V_BSTR(&values[0]), L"three");
    VariantClear(&values[0]);
    EXPECT_EQ(enumerator->Next(1, values, nullptr), S_FALSE);
}

TEST(EnumerationServer, SkipResetAndClone_MoveAsTheirNamesSay)
{
    const auto enumerator = enumeratorOf({L"one", L"two", L"three"});
    EXPECT_EQ(enumerator->Skip(1), S_OK);
    automation::ComPtr<IEnumVARIANT> copy;
    ASSERT_EQ(enumerator->Clone(copy.receive()), S_OK);
    EXPECT_EQ(enumerator->Skip(5), S_FALSE);

    Value value;
    EXPECT_EQ(enumerator->Next(1, value.receive(), nullptr), S_FALSE);
    EXPECT_EQ(enumerator->Reset(), S_OK);
    EXPECT_EQ(enumerator->Next(1, value.receive(), nullptr), S_OK);
    EXPECT_EQ(value.text(), L"one");
    EXPECT_EQ(copy->Next(1, value.receive(), nullptr), S_OK);
    EXPECT_EQ(value.text(), L"two") << "a copy stands where the original stood";
}
