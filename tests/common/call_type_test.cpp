#include "common/call_type.h"

#include "automation/error.h"
#include "common/dictionary.h"
#include "common/softphone_records.h"
#include "support/raw_partner.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

namespace hublink {

namespace {

using automation::Object;
using automation::Value;
using support::RawPartner;

// A softphone history item with these two members.
class HistoryItem final : public RawPartner {
public:
    HistoryItem(Value state, Value acknowledged) : RawPartner({{L"State", 1}, {L"Acknowledged", 2}})
    {
        onCall = [=](const Call& call) {
            Value answer = call.id == 1 ? state : acknowledged;
            *call.result = answer.release();
            return S_OK;
        };
    }
};

std::wstring textOf(RawPartner& partner, bool incoming)
{
    const SoftphoneHistoryItem item{Object(&partner)};
    return callTypeText(incoming, item.state(), [&] { return item.acknowledged(); });
}

std::wstring textOf(std::int32_t state, std::int32_t acknowledged, bool incoming)
{
    HistoryItem item(state, acknowledged);
    return textOf(item, incoming);
}

class CallTypeDictionary : public testing::Test {
protected:
    CallTypeDictionary() { folder.folder(L"dictionary"); }

    // Texts in the user's own language, whichever it is.
    const Dictionary& with(const std::wstring& lines)
    {
        folder.write(L"dictionary\\1033.ini", support::utf16File(L"[history]\r\n" + lines + L"\r\n"));
        dictionary.LoadDicoSelected(1033);
        return dictionary;
    }

    const support::ScratchFolder folder;
    Dictionary dictionary{folder.path()};
};

}

TEST(CallTypeText, States6_7_12And14_AreUnanswered)
{
    for (const std::int32_t state : {6, 7, 12, 14}) {
        EXPECT_EQ(textOf(state, 0, true), L"Incoming call unanswered") << state;
        EXPECT_EQ(textOf(state, 0, false), L"Outgoing call unanswered") << state;
    }
}

TEST(CallTypeText, UnansweredCall_IsUnanswered_EvenWhenAcknowledged)
{
    for (const std::int32_t state : {6, 7, 12, 14}) {
        EXPECT_EQ(textOf(state, 1, true), L"Incoming call unanswered") << state;
        EXPECT_EQ(textOf(state, 1, false), L"Outgoing call unanswered") << state;
    }
}

TEST(CallTypeText, OtherStates_AreAcknowledgedOrAnswered)
{
    for (const std::int32_t state : {-1, 0, 1, 5, 8, 11, 13, 15, 67}) {
        EXPECT_EQ(textOf(state, 1, true), L"Incoming call acknowledged") << state;
        EXPECT_EQ(textOf(state, 0, true), L"Incoming call answered") << state;
        EXPECT_EQ(textOf(state, 1, false), L"Outgoing call acknowledged") << state;
        EXPECT_EQ(textOf(state, 0, false), L"Outgoing call answered") << state;
    }
}

TEST(CallTypeText, AcknowledgedOtherThanOne_IsAnswered)
{
    EXPECT_EQ(textOf(0, -1, true), L"Incoming call answered");
    EXPECT_EQ(textOf(0, 2, true), L"Incoming call answered");
}

TEST(CallTypeText, NumbersOfAnyType_AreUnderstood)
{
    HistoryItem item(std::int16_t{12}, std::int16_t{1});
    EXPECT_EQ(textOf(item, true), L"Incoming call unanswered");
    HistoryItem texts(L"0", L"1");
    EXPECT_EQ(textOf(texts, true), L"Incoming call acknowledged");
}

TEST(CallTypeText, ItemWithoutItsMembers_IsAnError)
{
    RawPartner empty;
    EXPECT_THROW(textOf(empty, true), automation::AutomationError);
    HistoryItem wrong(L"ringing", std::int32_t{0});
    EXPECT_THROW(textOf(wrong, true), automation::AutomationError);
}

TEST_F(CallTypeDictionary, EachOfTheSixTexts_HasItsKey)
{
    const Dictionary& words = with(L"ST_FILTRE_LST1=one\r\nST_FILTRE_LST2=two\r\nST_FILTRE_LST3=three\r\n"
                                   L"ST_FILTRE_LST4=four\r\nST_FILTRE_LST5=five\r\nST_FILTRE_LST6=six");
    EXPECT_EQ(TranslateCallType(L"Incoming call unanswered", words), L"four");
    EXPECT_EQ(TranslateCallType(L"Incoming call acknowledged", words), L"six");
    EXPECT_EQ(TranslateCallType(L"Incoming call answered", words), L"two");
    EXPECT_EQ(TranslateCallType(L"Outgoing call unanswered", words), L"three");
    EXPECT_EQ(TranslateCallType(L"Outgoing call acknowledged", words), L"five");
    EXPECT_EQ(TranslateCallType(L"Outgoing call answered", words), L"one");
}

TEST_F(CallTypeDictionary, Ampersands_AreRemoved)
{
    EXPECT_EQ(TranslateCallType(L"Incoming call answered", with(L"ST_FILTRE_LST2=&Appel && re&\u00E7u&")),
              L"Appel  re\u00E7u");
}

TEST_F(CallTypeDictionary, NoEntry_GivesTheEnglishText)
{
    EXPECT_EQ(TranslateCallType(L"Incoming call answered", with(L"ST_FILTRE_LST1=one\r\nST_FILTRE_LST2=")),
              L"Incoming call answered");
    EXPECT_EQ(TranslateCallType(L"Incoming call answered", Dictionary(L"C:\\nowhere")), L"Incoming call answered");
}

TEST_F(CallTypeDictionary, UnknownText_IsReturnedAsItIs)
{
    const Dictionary& words = with(L"ST_FILTRE_LST2=two");
    for (const wchar_t* text : {L"incoming call answered", L"Incoming call", L"Incoming call answered ", L"R&D", L""})
        EXPECT_EQ(TranslateCallType(text, words), text);
}

TEST_F(CallTypeDictionary, LongText_IsCutTo259Characters)
{
    EXPECT_EQ(TranslateCallType(L"Incoming call answered", with(L"ST_FILTRE_LST2=" + std::wstring(300, L'a'))),
              std::wstring(259, L'a'));
}

TEST_F(CallTypeDictionary, CallerWithoutANumber_HasTheDictionarysWords)
{
    EXPECT_EQ(unknownCallerText(with(L"TI_NAMECALL_UNKNOWN=&Sans identit\u00E9")), L"Sans identit\u00E9");
    EXPECT_EQ(unknownCallerText(Dictionary(L"C:\\nowhere")), L"No identity");
}

}
