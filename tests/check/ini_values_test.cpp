// Every key as read, and what is made of it; and that the program makes the same of it.
#include "check/ini_values.h"
#include "check_fixture.h"

#include "common/connector_settings.h"
#include "common/settings_table.h"

namespace hublink::check {

namespace {

const IniTexts& texts = english.ini;

class CheckIniValues : public testing::Test {
protected:
    Findings found(const std::string& content)
    {
        support::writeFile(file, content);
        ProgramSettings settings(folder.path());
        settings.read(file);
        return valueFindings(settings, texts);
    }

    Findings remarksOn(const std::string& content) { return remarks(found(content)); }

    const support::ScratchFolder folder;
    const std::wstring file = folder.file(L"pavexconnector.ini");
};

std::string outlookFile(const std::string& application = "", const std::string& features = "",
                        const std::string& outlook = "")
{
    return "[Application]\r\ntype=OUTLOOK\r\n" + application + "[AllApplication]\r\n" + features + "[outlook]\r\n" +
           outlook;
}

std::string lotusFile(const std::string& lotus, const std::string& books = "")
{
    return "[Application]\r\ntype=LOTUS\r\n[lotus]\r\n" + lotus + books;
}

constexpr const char* soundBook = "[lotus base description 1]\r\nPersonalAddressBook=true\r\n"
                                  "base=names.nsf|Acme/Server|Contacts||\r\n";

}

TEST_F(CheckIniValues, DefaultFile_IsInOrder_AndEachKeyIsTold)
{
    const Findings findings = found(support::readFile(support::projectFile(L"packaging/pavexconnector.ini")));
    EXPECT_EQ(remarks(findings), Findings{});
    EXPECT_TRUE(holds(findings, ok(texts.value, L"Application", L"type", L"OUTLOOK")));
    EXPECT_TRUE(holds(findings, ok(texts.milliseconds, L"Application", L"tempo", L"200")));
    EXPECT_TRUE(holds(findings, ok(texts.on, L"AllApplication", L"PopUp")));
    EXPECT_TRUE(holds(findings, ok(texts.off, L"AllApplication", L"NewContact", L"false")));
    EXPECT_TRUE(holds(findings, ok(texts.lotusNotRead)));
}

TEST_F(CheckIniValues, DefaultFileWithNotes_IsInOrder)
{
    support::writeFile(file, support::readFile(support::projectFile(L"packaging/pavexconnector.ini")));
    WritePrivateProfileStringW(L"Application", L"type", L"LOTUS", file.c_str());
    const Findings findings = found(support::readFile(file));
    EXPECT_EQ(remarks(findings), Findings{});
    EXPECT_TRUE(holds(findings, ok(texts.outlookNotRead)));
    EXPECT_TRUE(holds(findings, ok(texts.booksInOrder, std::size_t{1}, personal(L"names.nsf"))));
    EXPECT_TRUE(holds(findings, ok(texts.value, L"lotus call log description", L"State", personal(L"State"))));
    EXPECT_TRUE(holds(findings, ok(texts.value, L"lotus personnel log description", L"Body", personal(L"Body"))));
}

TEST_F(CheckIniValues, MissingKeys_AreToldWithWhatCounts)
{
    const Findings findings = found(outlookFile());
    EXPECT_TRUE(holds(findings, ok(texts.absent, L"Application", L"tempo", L"200")));
    EXPECT_TRUE(holds(findings, ok(texts.absentOff, L"AllApplication", L"PopUp")));
    EXPECT_TRUE(holds(findings, ok(texts.absentOn, L"outlook", L"ReplacePhoneNumber")));
    EXPECT_TRUE(holds(findings, ok(texts.absentEmpty, L"outlook", L"CallBackMailSyntaxe")));
}

TEST_F(CheckIniValues, SwitchThatIsOffThoughMeantOn_IsAProblem)
{
    for (const wchar_t* value : {L"True", L"TRUE", L"1", L"yes", L"oui"})
        EXPECT_EQ(remarksOn(outlookFile("", "PopUp=" + automation::toAnsi(value) + "\r\n")),
                  (Findings{problem(texts.offThoughMeantOn, L"AllApplication", L"PopUp", value)}));
}

TEST_F(CheckIniValues, SwitchWithAnotherText_IsANote)
{
    EXPECT_EQ(remarksOn(outlookFile("", "PopUp=no\r\n")),
              (Findings{note(texts.offForOtherText, L"AllApplication", L"PopUp", L"no")}));
    EXPECT_EQ(remarksOn(outlookFile("", "PopUp=ask Anna\r\n")),
              (Findings{note(texts.offForOtherText, L"AllApplication", L"PopUp", personal(L"ask Anna"))}));
}

TEST_F(CheckIniValues, NumberThatIsNone_IsAProblem_AndNothingBehindItIsRead)
{
    for (const char* value : {"abc", "12abc", "70000"}) {
        const Findings findings = found(outlookFile(std::string("tempo=") + value + "\r\n", "PopUp=True\r\n"));
        EXPECT_EQ(remarks(findings),
                  (Findings{problem(texts.notNumber, L"Application", L"tempo", personal(automation::toWide(value)))}));
        EXPECT_EQ(findings.back().mark, Mark::problem) << "the last that is read";
    }
}

TEST_F(CheckIniValues, LanguageThatIsNoNumber_IsAProblem)
{
    EXPECT_EQ(remarksOn(outlookFile("", "", "language=french\r\nExtension=True\r\n")),
              (Findings{problem(texts.notNumber, L"outlook", L"language", personal(L"french"))}));
}

TEST_F(CheckIniValues, NoGroupware_IsAProblem)
{
    EXPECT_EQ(remarksOn("[Application]\r\ntype=\r\n"), (Findings{problem(texts.noGroupware)}));
    EXPECT_EQ(remarksOn(""), (Findings{problem(texts.noGroupware)}));
    EXPECT_EQ(remarksOn("[Application]\r\ntype=outlook\r\n"),
              (Findings{problem(texts.unknownGroupware, L"type", L"outlook"), problem(texts.noGroupware)}));
}

TEST_F(CheckIniValues, BlankInTheListOfGroupware_IsAProblem)
{
    EXPECT_EQ(remarksOn("[Application]\r\ntype=OUTLOOK, LOTUS\r\n"),
              (Findings{problem(texts.unknownGroupware, L"type", L" LOTUS")}));
}

TEST_F(CheckIniValues, UnknownGroupware_IsToldOnce_AndThousandsMakeNoEndlessReport)
{
    EXPECT_EQ(remarksOn("[Application]\r\ntype=OUTLOOK,outlook,outlook,outlook\r\n"),
              (Findings{problem(texts.unknownGroupware, L"type", L"outlook")}));
    std::string many;
    for (char first = 'a'; first <= 'z'; ++first)
        for (char second = 'a'; second <= 'z'; ++second) many += std::string(",") + first + second;
    EXPECT_LT(remarksOn("[Application]\r\ntype=OUTLOOK" + many + "\r\n").size(), 30u);
}

TEST_F(CheckIniValues, Type1ThatReplacesType_IsANote)
{
    EXPECT_EQ(remarksOn(outlookFile("type1=OUTLOOK\r\n")), (Findings{note(texts.typeReplaced)}));
}

TEST_F(CheckIniValues, StopRequest_IsANote)
{
    EXPECT_EQ(remarksOn(outlookFile("kill=true\r\n")), (Findings{note(texts.stopRequest)}));
}

TEST_F(CheckIniValues, ExtensionsKeys_AreToldOnlyWhereItIsOn)
{
    const Finding library = ok(texts.value, L"outlook", L"DllExtension", personal(L"x.dll"));
    EXPECT_TRUE(holds(found(outlookFile("", "", "Extension=true\r\nDllExtension=x.dll\r\n")), library));
    EXPECT_FALSE(holds(found(outlookFile("", "", "DllExtension=x.dll\r\n")), library));
}

TEST_F(CheckIniValues, SoundBook_IsTold_AndItsValuesAreNotPassedOn)
{
    const Findings findings = found(lotusFile("NbPublicAddressBook=1\r\nOrder=Base 1\r\n", soundBook));
    EXPECT_EQ(remarks(findings), Findings{});
    EXPECT_TRUE(holds(findings, ok(texts.booksInOrder, std::size_t{1}, personal(L"names.nsf"))));
    for (const Finding& each : findings) EXPECT_EQ(each.what.discreet.find(L"Acme"), std::wstring::npos);
}

TEST_F(CheckIniValues, CountOfBooksThatMakesNoSense_IsAProblem)
{
    EXPECT_EQ(remarksOn(lotusFile("")), (Findings{problem(texts.readingEnds, L"NbPublicAddressBook")}));
    EXPECT_EQ(remarksOn(lotusFile("NbPublicAddressBook=many\r\n")),
              (Findings{problem(texts.notNumber, L"lotus", L"NbPublicAddressBook", personal(L"many"))}));
    EXPECT_EQ(remarksOn(lotusFile("NbPublicAddressBook=-1\r\n")),
              (Findings{problem(texts.readingEnds, L"NbPublicAddressBook")}));
}

TEST_F(CheckIniValues, OrderThatMakesNoSense_IsAProblem)
{
    for (const char* order : {"Base 2", "<none>", "first", "", "Base 1,"})
        EXPECT_EQ(remarksOn(lotusFile(std::string("NbPublicAddressBook=1\r\nOrder=") + order + "\r\n", soundBook)),
                  (Findings{problem(texts.readingEnds, L"Order")}))
            << order;
}

TEST_F(CheckIniValues, BookThatIsNotDescribed_IsAProblem)
{
    EXPECT_TRUE(holds(remarksOn(lotusFile("NbPublicAddressBook=2\r\nOrder=Base 1\r\n", soundBook)),
                      problem(texts.bookNotDescribed, L"lotus base description 2")));
}

TEST_F(CheckIniValues, BaseOfFewerThanFiveParts_IsAProblem)
{
    const Findings findings = remarksOn(
        lotusFile("NbPublicAddressBook=1\r\nOrder=Base 1\r\n", "[lotus base description 1]\r\nbase=names.nsf|||\r\n"));
    EXPECT_EQ(findings, (Findings{problem(texts.baseParts, L"lotus base description 1", L"base"),
                                  note(texts.bookWithoutViews, std::size_t{1}), note(texts.noPersonalBook)}));
}

TEST_F(CheckIniValues, ThirtyThousandBooks_MakeNoEndlessReport)
{
    EXPECT_LT(found(lotusFile("NbPublicAddressBook=32767\r\nOrder=Base 1\r\n", soundBook)).size(), 200u);
}

// The same bytes, read by the program's own reader and by the table of keys.
TEST_F(CheckIniValues, WhatIsToldOn_IsOnInTheProgram)
{
    struct Switch {
        const wchar_t* section;
        const wchar_t* key;
        bool Configuration::* value;
    };
    constexpr Switch switches[] = {{L"Application", L"trace", &Configuration::Trace},
                                   {L"AllApplication", L"PopUp", &Configuration::bgWithPopUp},
                                   {L"AllApplication", L"NewContact", &Configuration::bgSetNewContact},
                                   {L"AllApplication", L"Histo", &Configuration::bgWithHisto},
                                   {L"AllApplication", L"Repertory", &Configuration::bgWithRepertory},
                                   {L"AllApplication", L"CallBackMail", &Configuration::bgWithCallBackMail}};
    const auto expectTheSame = [&](const Switch* only, const char* value) {
        std::string general, features;
        for (const Switch& each : switches)
            if (!only || only == &each)
                (&each == &switches[0] ? general : features) += automation::toAnsi(each.key) + "=" + value + "\r\n";
        const Findings findings = found(outlookFile(general, features));
        Configuration configuration;
        readConnectorSettings(IniFile(file), configuration);
        for (const Switch& each : switches)
            EXPECT_EQ(holds(findings, ok(texts.on, each.section, each.key)), configuration.*each.value)
                << automation::toAnsi(each.key) << "=" << value;
    };
    for (const Switch& each : switches) expectTheSame(&each, "true");
    for (const char* value : {"true", "True", "false", "\"true\"", " true ", "truer", ""})
        expectTheSame(nullptr, value);
}

TEST_F(CheckIniValues, KeysOfTheTable_AreThoseOfTheDefaultFile)
{
    const std::string content = support::readFile(support::projectFile(L"packaging/pavexconnector.ini"));
    support::writeFile(file, content);
    for (const Setting& each : settingsTable) {
        const Setting known = isOfBook(each) ? each.in("lotus base description 1") : each;
        EXPECT_NE(IniFile(file).read(known.section, known.key, "\x01"), L"\x01") << known.section << " " << known.key;
    }
}

}
