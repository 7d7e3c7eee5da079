#include "desk/common/fault_plan.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace {

using desk::CallKind;
using desk::Fault;
using desk::FaultPlan;
using Action = desk::Fault::Action;

Action nextSave(FaultPlan& plan)
{
    return plan.next(L"ContactItem", L"Save", CallKind::method).action;
}

std::string refusal(const wchar_t* text)
{
    try {
        FaultPlan().add(text);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "accepted";
}

}

TEST(FaultPlan, NthCall_CountsLookUpsToo)
{
    FaultPlan plan;
    plan.add(L"at 2 fail 0x80004004");
    EXPECT_EQ(plan.next(L"Items", L"Add", CallKind::lookup).action, Action::none);
    const Fault fault = plan.next(L"Items", L"Add", CallKind::method);
    EXPECT_EQ(fault.action, Action::fail);
    EXPECT_EQ(fault.code, E_ABORT);
    EXPECT_EQ(nextSave(plan), Action::none) << "used up";
}

TEST(FaultPlan, BusyTimes_FollowOneAnotherFromTheNthCall)
{
    FaultPlan plan;
    plan.add(L"at 2 busy 2");
    EXPECT_EQ(nextSave(plan), Action::none);
    EXPECT_EQ(nextSave(plan), Action::busy);
    EXPECT_EQ(nextSave(plan), Action::busy);
    EXPECT_EQ(nextSave(plan), Action::none);
}

TEST(FaultPlan, FromTheNthCall_HappensAtItAndAtAllAfterIt_OfThatMemberAlone)
{
    FaultPlan plan;
    plan.add(L"on ContactItem.* from 2 fail 0x800706BA");
    EXPECT_EQ(nextSave(plan), Action::none);
    for (int n = 0; n < 3; ++n) EXPECT_EQ(nextSave(plan), Action::fail);
    EXPECT_EQ(plan.next(L"ContactItem", L"Display", CallKind::method).action, Action::fail);
    EXPECT_EQ(plan.next(L"JournalItem", L"Save", CallKind::method).action, Action::none);
    plan.add(L"off");
    EXPECT_EQ(nextSave(plan), Action::none);
}

TEST(FaultPlan, OnMember_MeetsEveryCall_ButNotItsLookUp)
{
    FaultPlan plan;
    plan.add(L"on contactitem.save busy");
    EXPECT_EQ(plan.next(L"ContactItem", L"Save", CallKind::lookup).action, Action::none);
    EXPECT_EQ(nextSave(plan), Action::busy);
    EXPECT_EQ(nextSave(plan), Action::busy);
    EXPECT_EQ(plan.next(L"JournalItem", L"Save", CallKind::method).action, Action::none);
    plan.add(L"off");
    EXPECT_EQ(nextSave(plan), Action::none);
}

TEST(FaultPlan, OnMemberOfOneKind_OthersPass)
{
    FaultPlan plan;
    plan.add(L"on *.Body put at 2 raise 0x80020009 Outlook|It is, broken");
    EXPECT_EQ(plan.next(L"JournalItem", L"Body", CallKind::get).action, Action::none);
    EXPECT_EQ(plan.next(L"JournalItem", L"Body", CallKind::put).action, Action::none);
    const Fault fault = plan.next(L"MailItem", L"Body", CallKind::put);
    EXPECT_EQ(fault.action, Action::raise);
    EXPECT_EQ(fault.source, L"Outlook");
    EXPECT_EQ(fault.description, L"It is, broken");
}

TEST(FaultPlan, OnMemberBusyTimes_IsBusyOnlyThatOften)
{
    FaultPlan plan;
    plan.add(L"on Save busy 2");
    EXPECT_EQ(nextSave(plan), Action::busy);
    EXPECT_EQ(nextSave(plan), Action::busy);
    EXPECT_EQ(nextSave(plan), Action::none);
}

TEST(FaultPlan, Death_ComesBeforeTheCall_AfterIt_OrInItsPlace)
{
    FaultPlan plan;
    plan.add(L"at 1 die");
    plan.add(L"at 2 kill 4711 after");
    plan.add(L"at 3 kill 4712 instead");
    const Fault first = plan.next(L"Items", L"Add", CallKind::method);
    EXPECT_EQ(first.action, Action::die);
    EXPECT_FALSE(first.after);
    const Fault second = plan.next(L"Items", L"Add", CallKind::method);
    EXPECT_EQ(second.action, Action::kill);
    EXPECT_EQ(second.processId, 4711u);
    EXPECT_TRUE(second.after);
    EXPECT_FALSE(second.instead);
    const Fault third = plan.next(L"Items", L"Add", CallKind::method);
    EXPECT_EQ(third.processId, 4712u);
    EXPECT_FALSE(third.after);
    EXPECT_TRUE(third.instead);
}

TEST(FaultPlan, Hang_LastsItsTime_OrForEver)
{
    FaultPlan plan;
    plan.add(L"at 1 hang 400");
    plan.add(L"at 2 hang");
    EXPECT_EQ(plan.next(L"Items", L"Add", CallKind::method).milliseconds, 400u);
    const Fault second = plan.next(L"Items", L"Add", CallKind::method);
    EXPECT_EQ(second.action, Action::hang);
    EXPECT_EQ(second.milliseconds, INFINITE);
}

TEST(FaultPlan, Answer_HasItsTypeAndValue)
{
    const std::pair<const wchar_t*, VARTYPE> answers[] = {
        {L"Nothing", VT_DISPATCH},       {L"EMPTY", VT_EMPTY}, {L"NULL", VT_NULL},
        {L"ERROR 0x8004010F", VT_ERROR}, {L"I4 12", VT_I4},    {L"BOOL True", VT_BOOL},
        {L"BSTR two\\nlines", VT_BSTR},  {L"BSTR", VT_BSTR}};
    for (const auto& [value, type] : answers) {
        FaultPlan plan;
        plan.add(std::wstring(L"on Save answer ") + value);
        const Fault fault = plan.next(L"ContactItem", L"Save", CallKind::method);
        EXPECT_EQ(fault.action, Action::answer);
        EXPECT_EQ(fault.result.type(), type) << type;
        if (type == VT_I4) {
            EXPECT_EQ(fault.result.int32(), 12);
        }
        if (type == VT_ERROR) {
            EXPECT_EQ(V_ERROR(&fault.result.variant()), static_cast<SCODE>(0x8004010F));
        }
        if (type == VT_DISPATCH) {
            EXPECT_EQ(V_DISPATCH(&fault.result.variant()), nullptr);
        }
    }
    FaultPlan plan;
    plan.add(L"on Save answer BSTR two\\n lines");
    EXPECT_EQ(plan.next(L"ContactItem", L"Save", CallKind::method).result.text(), L"two\n lines");
}

TEST(FaultPlan, BadTexts_AreRefusedWithTheReason)
{
    EXPECT_EQ(refusal(L""), "fault: \"on PATTERN\", \"at N\" or \"from N\" is missing");
    EXPECT_EQ(refusal(L"at x busy"), "\"x\" is no number (at which call)");
    EXPECT_EQ(refusal(L"at 0 busy"), "fault: the first call is number 1");
    EXPECT_EQ(refusal(L"at 1 explode"), "fault: unknown action \"explode\"");
    EXPECT_EQ(refusal(L"at 1 fail 0"), "fault: the HRESULT is no failure code");
    EXPECT_EQ(refusal(L"at 1 raise 0x80004005 no bar"), "fault: raise needs SOURCE|TEXT");
    EXPECT_EQ(refusal(L"at 1 die now"), "fault: \"now\" is too much");
    EXPECT_EQ(refusal(L"at 1 die instead"), "fault: \"instead\" is too much");
    EXPECT_EQ(refusal(L"at 1 busy after"), "\"after\" is no number (how often busy)");
    EXPECT_EQ(refusal(L"at 1 hang on"), "\"on\" is no number (milliseconds)");
    EXPECT_EQ(refusal(L"at 1 answer I4 x"), "\"x\" is no number (32-bit integer)");
    const std::string unknownAnswer = "fault: answer needs Nothing, EMPTY, NULL, ERROR, I4, BOOL or BSTR and its value";
    EXPECT_EQ(refusal(L"at 1 answer"), unknownAnswer);
    EXPECT_EQ(refusal(L"at 1 answer BOOL yes"), unknownAnswer);
    EXPECT_EQ(refusal(L"at 1 answer Nothing at all"), unknownAnswer);
    EXPECT_EQ(refusal(L"at 1 kill"), "\"\" is no number (process identifier)");
}
