// Senders and numbers as they are found in the wild: whoever they do not name
// is neither shown nor written into a mail, and the log is left in peace.
#include "current_document_fixture.h"
#include "lotus/contacts.h"
#include "lotus/number_search.h"

namespace hublink {

namespace {

constexpr const wchar_t* company = L"CN=Mail1/O=Acme!!books\\company.nsf";

class BadInput : public CurrentDocumentFixture {
protected:
    // Claire Petit is found by key, Emile Zola by full text; both have a number.
    BadInput()
    {
        open();
        session.bAlwaysVerifyPhoneNumber = true;
        add(company, L"Form=Employee\nName=Zola\nGivenName=Emile\nPhone=06 12 34\nMail=emile.zola@example.org");
    }

    std::size_t logLines()
    {
        const std::wstring text = field(documents(L"log.nsf").back(), L"Text");
        return static_cast<std::size_t>(std::count(text.begin(), text.end(), L'\n'));
    }

    // The number that a mail of that sender gets, "" for none.
    std::wstring numberFor(const std::wstring& sender)
    {
        const std::wstring mail = front(mailFile, L"Form=Memo\nFrom=" + desk::escaped(sender));
        const std::wstring number = update();
        const auto all = documents(mailFile);
        const std::wstring saved = field(all.back(), L"Tel");
        EXPECT_EQ(number, saved == L"(none)" ? L"" : saved) << desk::utf8(sender);
        notes.ask(L"close-windows");
        notes.ask(L"delete " + mail);
        return number;
    }
};

struct Sender {
    std::wstring text;
    const wchar_t* number;
};

const std::vector<Sender>& senders()
{
    static const std::vector<Sender> all{
        {L"claire@example.com", L"0299"},
        {L"CLAIRE@EXAMPLE.COM", L"0299"},
        {L"emile.zola@example.org", L"06 12 34"},
        {L"<emile.zola@example.org>", L"06 12 34"},
        {L"(emile.zola@example.org)", L"06 12 34"},
        {L"[emile.zola@example.org]", L"06 12 34"},
        {L"Zola, Emile", L""},
        {L"\"Zola, Emile\" <emile.zola@example.org>", L""},
        {L"\"Emile \\\"Z\\\" Zola\" <emile.zola@example.org>", L""},
        {L"\" OR [Name] CONTAINS \"Zola", L""},
        {L"x\" OR NOT [Name] CONTAINS \"x", L""},
        {L"Emile Zola (the writer) <emile.zola@example.org>", L""},
        {L"=?utf-8?Q?=C3=89mile_Zola?= <emile.zola@example.org>", L""},
        {L"=?ISO-8859-1?B?yW1pbGU=?=", L""},
        {L"CN=Emile Zola/OU=Paris/O=Acme", L""},
        {L"CN=Emile Zola/O=Acme@Acme", L""},
        {L"Emile Zola/Acme", L""},
        {L"emile.zola@example.org, claire@example.com", L""},
        {L"claire@example.com; emile.zola@example.org", L""},
        {L"AND", L""},
        {L"OR", L""},
        {L"NOT", L""},
        {L"NOT claire", L""},
        {L"a AND b OR NOT c", L""},
        {L"[Name] CONTAINS Zola", L""},
        {L"FIELD Name CONTAINS Zola", L""},
        {L"[Mail] IS PRESENT", L""},
        {L"TERMWEIGHT 50 zola", L""},
        {L"*", L""},
        {L"?", L""},
        {L"*@example.org", L""},
        {L"emile.zola@example.or?", L""},
        {L"????????????????????????", L""},
        {L"<>", L""},
        {L"()", L""},
        {L"[]", L""},
        {L"{}", L""},
        {L"!", L""},
        {L"&", L""},
        {L"|", L""},
        {L"=", L""},
        {L",", L""},
        {L"\\", L""},
        {L"...", L""},
        {L" ", L""},
        {L"\t", L""},
        {L"'", L""},
        {L"''''", L""},
        {L"O'Brien <o'brien@example.org>", L""},
        {L"(unclosed <a@b", L""},
        {L"a@b)", L""},
        {L"example.org", L""},
        {L"zola", L""},
        {L"@", L""},
        {L"a\r\nBcc: emile.zola@example.com", L""},
        {L"\x01\x02\x07\x1B\x7F", L""},
        {L"\u00C9mile Zola \u200B<emile.z\u00F6la@example.org>", L""},
        {L"\u6797 <lin@example.cn>", L""},
        {std::wstring(30'000, L'a') + L"@example.org", L""},
        {std::wstring(15'000, L'"'), L""},
        {std::wstring(5'000, L'('), L""},
    };
    return all;
}

const std::vector<const wchar_t*>& numbers()
{
    static const std::vector<const wchar_t*> all{L"\"",
                                                 L"\"\"",
                                                 L"06\"12",
                                                 L"\" OR [Name] CONTAINS \"Zola",
                                                 L"0299\" OR \"06",
                                                 L"*",
                                                 L"?",
                                                 L"0*",
                                                 L"02??",
                                                 L"*31#0299",
                                                 L"#",
                                                 L"-",
                                                 L".",
                                                 L" ",
                                                 L"+",
                                                 L"()",
                                                 L"[]",
                                                 L"[Phone] IS PRESENT",
                                                 L"AND",
                                                 L"OR",
                                                 L"NOT",
                                                 L"NOT 1",
                                                 L"anonymous",
                                                 L"private",
                                                 L"sip:claire@pbx.example",
                                                 L"<sip:0299@pbx>;tag=1",
                                                 L"'",
                                                 L"0299'or[Name]>'",
                                                 L"0299;ext=1",
                                                 L"0299,,,1",
                                                 L"\\",
                                                 L"%s%n",
                                                 L"\r\n",
                                                 L"\x01",
                                                 L"0",
                                                 L"00000000000000000000000000",
                                                 L"0299\u200B",
                                                 L"\uFF10\uFF12\uFF19\uFF19"};
    return all;
}

}

TEST_F(BadInput, StrangeSenders_GetNobodysNumber_AndWriteNoLine)
{
    const std::size_t before = logLines();
    for (const Sender& sender : senders())
        EXPECT_EQ(numberFor(sender.text), sender.number) << desk::utf8(sender.text.substr(0, 80));
    EXPECT_EQ(logLines(), before);
    EXPECT_EQ(trapped.errors, std::vector<std::string>{});
}

TEST_F(BadInput, StrangeSenders_OfABookSearchedByFullTextOnly_GetNobodysNumber)
{
    session.LotusAddressBooks[0].ViewMail.clear();
    const std::size_t before = logLines();
    for (const Sender& sender : senders())
        if (*sender.number == L'\0') {
            EXPECT_EQ(numberFor(sender.text), L"") << desk::utf8(sender.text.substr(0, 80));
        }
    EXPECT_EQ(logLines(), before);
}

TEST_F(BadInput, StrangeNumbers_ShowNobody_AndWriteNoLine)
{
    const std::size_t before = logLines();
    for (const bool byFullTextOnly : {false, true}) {
        if (byFullTextOnly) session.LotusAddressBooks[0].ViewTel.clear();
        for (const wchar_t* number : numbers()) {
            ShowOrCreateCaller(session, {number, L"Last", L"First"});
            EXPECT_EQ(notes.ask(L"windows"), L"") << desk::utf8(number);
            EXPECT_EQ(FindNoteIdInPersonalBook(session, number), L"") << desk::utf8(number);
            notes.ask(L"close-windows");
        }
    }
    EXPECT_EQ(logLines(), before);
    EXPECT_EQ(trapped.errors, std::vector<std::string>{});
    ShowOrCreateCaller(session, {L"02.99", L"", L""});
    EXPECT_NE(notes.ask(L"windows"), L"") << "one that names somebody still does";
}

TEST_F(BadInput, NewContactOfAStrangeNumber_HoldsIt_AndNothingElseIsChanged)
{
    host.settings.bgSetNewContact = true;
    for (const wchar_t* number : {L"\" OR [Name] CONTAINS \"Zola", L"*", L"02??", L"'"}) {
        ShowOrCreateCaller(session, {number, L"Last", L"First"});
        const auto all = documents(ownBook);
        EXPECT_EQ(field(all.back(), L"OfficePhoneNumber"), replaceAll(number, L" ", L"")) << desk::utf8(number);
        EXPECT_EQ(field(all.back(), L"@Unsaved"), L"True") << desk::utf8(number);
        notes.ask(L"close-windows");
    }
    EXPECT_EQ(documents(ownBook).size(), 1u);
}

}
