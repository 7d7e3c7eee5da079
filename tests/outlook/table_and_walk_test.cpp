// The table of the contacts and the walk over them find the same: thousands of
// generated folders are looked through both ways.
#include "outlook/contact_lookup.h"
#include "outlook/contact_table.h"
#include "outlook/telephone_fields.h"
#include "outlook_fixture.h"

#include <algorithm>
#include <random>

namespace hublink {

namespace {

using desk::outlook::Version;
using Records = std::vector<desk::StoreRecord>;

constexpr int comparisons = 2'500; // in each of four tests
constexpr int changes = 1'000;     // in each of two
constexpr int changesWithinAnEvent = 2'000;
constexpr const wchar_t* numbers[] = {L"",   L"12",  L"1.2",  L" 1 2", L"1-2",  L"..",
                                      L"21", L"+12", L"1 2.", L"abc",  L"1.2.3"};
constexpr std::size_t lengths[] = {126, 127, 128, 254, 255, 256, 257, 10'000};

// Folders with numbers in all layouts, doubles, none, texts longer than a table
// shows, contacts of other forms, items of other kinds, and now and then more
// contacts than a block has.
class Folders {
public:
    explicit Folders(unsigned seed) : random_(seed) {}

    bool oneOf(unsigned n) { return random_() % n == 0; }
    unsigned below(unsigned n) { return random_() % n; }

    std::wstring next()
    {
        std::wstring records;
        const unsigned strangersBefore = oneOf(300) ? 480 + below(600) : 0;
        for (unsigned n = 0; n < strangersBefore; ++n)
            records += L"[contact]\nHomeTelephoneNumber=7 7." + std::to_wstring(n) + L"\n";
        for (unsigned items = oneOf(20) ? 15 : below(7); items > 0; --items) records += item();
        return records;
    }

    std::wstring contactFields()
    {
        std::wstring fields = L"LastName=P\n";
        for (const wchar_t* name : telephoneFields)
            if (oneOf(8)) fields += std::wstring(name) + L"=" + number() + L"\n";
        return fields;
    }

    std::wstring number() { return oneOf(25) ? longNumber() : numbers[below(std::size(numbers))]; }

    std::wstring sought()
    {
        static const wchar_t* const usual[] = {L"12", L"1.2", L"12", L"1-2", L"99", L"", L"123", L"1 2"};
        return oneOf(10) ? longNumber() : usual[below(std::size(usual))];
    }

private:
    std::wstring item()
    {
        if (oneOf(12)) return L"[distlist]\nDLName=Everybody\n";
        if (oneOf(40)) return L"[mail]\nFolder=10\nSubject=Lost\n";
        return L"[contact]\n" + (oneOf(10) ? std::wstring(L"MessageClass=IPM.Contact.Acme\n") : L"") + contactFields();
    }

    std::wstring longNumber()
    {
        std::wstring text(lengths[below(std::size(lengths))], L'1');
        if (oneOf(3)) text.replace(0, 5, L"1 1.1");
        if (oneOf(4)) text.back() = L'2';
        if (oneOf(8)) text.assign(text.size(), L'.').replace(text.size() - 2, 2, L"12");
        return text;
    }

    std::mt19937 random_;
};

class TableAndWalk : public OutlookFixture {
protected:
    TableAndWalk() { open(); }

    void load(Version version, const Records& records)
    {
        outlook.load(records);
        outlook.setVersion(version);
        outlook.command(L"missingcell", missingCell);
        outlook.command(L"longesttext", maxTextLength);
        outlook.command(L"roworder", rowOrder);
        outlook.command(L"arrayshape", arrayShape);
        session.tablesAreGuarded = false;
    }

    // Whom the program finds in the folder, and everything that is saved then.
    std::wstring lookUp(const std::wstring& number)
    {
        const automation::Object contact = WalkOutlookContacts(session, number);
        recorder.faults.clear();
        const std::wstring found = contact ? L"found " + contact.get(L"EntryID").text() : L"not found";
        return found + L"\n" + *outlook.command(L"contacts", L"");
    }

    std::wstring lookUp(Version version, const Records& records, const std::wstring& number)
    {
        load(version, records);
        return lookUp(number);
    }

    // What somebody else does, as a control command: "add", "delete" or "change" and the rest.
    std::pair<std::wstring, std::wstring> change(Folders& folders)
    {
        const std::vector<desk::StoreRecord> items = desk::parseStore(*outlook.command(L"contacts", L""));
        if (items.empty() || folders.oneOf(3)) return {L"add", L"contact\n" + folders.contactFields()};
        const desk::StoreRecord& item = items[folders.below(static_cast<unsigned>(items.size()))];
        const std::wstring id = *item.find(L"EntryID");
        if (item.kind != L"contact" || folders.oneOf(2)) return {L"delete", id};
        return {L"change", id + L"\n" + telephoneFields[folders.below(13)] + L"=" + folders.number() + L"\n"};
    }

    void compare(Version version, unsigned seed);
    void compareWhileFoldersChange(unsigned seed);

    // The members that the table's way called, in order: "Table.GetArray method".
    std::vector<std::wstring> callsOfTheTable()
    {
        std::vector<std::wstring> calls;
        bool byIdentifier = false;
        for (const desk::RecordedCall& call : recorder.calls()) {
            if (call.kind == desk::CallKind::lookup) continue;
            const std::wstring name = std::wstring(call.className) + L"." + call.member;
            if (name == L"Items.GetFirst") break; // the walk itself
            byIdentifier = byIdentifier || name == L"NameSpace.GetItemFromID";
            const bool isOfTable =
                name.starts_with(L"Table.") || name.starts_with(L"Columns.") || name == L"Folder.GetTable";
            const bool isJudged = byIdentifier && name.ends_with(L"Number") && call.kind == desk::CallKind::get;
            if (isOfTable || isJudged || name == L"NameSpace.GetItemFromID")
                calls.push_back(name + L" " + nameOf(call.kind));
        }
        return calls;
    }

    // Another one each time.
    void chooseTable(Folders& folders)
    {
        static const wchar_t* const cells[] = {L"empty", L"null", L"notfound"};
        missingCell = cells[folders.below(3)];
        maxTextLength = folders.oneOf(2) ? L"127" : L"255";
        arrayShape = folders.oneOf(2) ? L"columns" : L"rows";
        rowOrder = folders.oneOf(2) ? L"folder" : L"reversed";
        session.bReplacePhoneNumber = folders.oneOf(2);
    }

private:
    const wchar_t* missingCell = L"empty";
    const wchar_t* maxTextLength = L"255";
    const wchar_t* rowOrder = L"folder";
    const wchar_t* arrayShape = L"columns";
};

// "on MEMBER KIND at N fail", for each of the calls.
std::vector<std::wstring> faultsAt(const std::vector<std::wstring>& calls)
{
    std::vector<std::wstring> faults;
    for (std::size_t index = 0; index < calls.size(); ++index) {
        const auto occurrence = std::count(calls.data(), calls.data() + index, calls[index]) + 1;
        faults.push_back(L"on " + calls[index] + L" at " + std::to_wstring(occurrence) + L" fail 0x80004005");
    }
    return faults;
}

std::wstring firstLine(const std::wstring& text)
{
    return text.substr(0, text.find(L'\n'));
}

}

// Each folder also with the table failing at each of its calls in turn.
void TableAndWalk::compare(Version version, unsigned seed)
{
    Folders folders(seed);
    int found = 0, byIdentifier = 0, failures = 0;
    for (int n = 0; n < comparisons; ++n) {
        chooseTable(folders);
        const std::wstring text = folders.next();
        const Records records = desk::parseStore(text);
        const std::wstring number = folders.sought();
        const std::wstring walked = lookUp(Version::v2003, records, number);
        load(version, records);
        forgetCalls();
        ASSERT_EQ(lookUp(number), walked) << desk::utf8(number) << "\n" << desk::utf8(text);
        found += walked.starts_with(L"found");
        const std::vector<std::wstring> calls = callsOfTheTable();
        byIdentifier += std::count(calls.begin(), calls.end(), L"NameSpace.GetItemFromID method") > 0;
        for (const std::wstring& fault : faultsAt(calls)) {
            load(version, records);
            recorder.faults.add(fault);
            ASSERT_EQ(lookUp(number), walked) << desk::utf8(fault) << "\n"
                                              << desk::utf8(number) << "\n"
                                              << desk::utf8(text);
            ++failures;
        }
    }
    EXPECT_GT(found, comparisons / 10) << "the folders must not all be without a hit";
    EXPECT_LT(found, comparisons * 9 / 10);
    EXPECT_GT(byIdentifier, comparisons / 20) << "nor all without a contact that the table names";
    EXPECT_GT(failures, comparisons * 10);
}

TEST_F(TableAndWalk, ThousandsOfFolders_AndTheTableFailingAtEachOfItsCalls_GiveTheSame)
{
    compare(Version::v2016, 20230315);
}

TEST_F(TableAndWalk, ThousandsOfOtherFolders_AndTheTableFailingAtEachOfItsCalls_GiveTheSame)
{
    compare(Version::v2016, 20230316);
}

TEST_F(TableAndWalk, ThousandsOfFoldersInOutlook2007_AndTheTableFailingAtEachOfItsCalls_GiveTheSame)
{
    compare(Version::v2007, 20230317);
}

TEST_F(TableAndWalk, ThousandsOfOtherFoldersInOutlook2007_AndTheTableFailingAtEachOfItsCalls_GiveTheSame)
{
    compare(Version::v2007, 20230318);
}

// Items that come and go are seen, and the folder counts as it is then. Nobody can
// see a field that is changed behind his back: there the walk, too, finds what was
// or what is.
void TableAndWalk::compareWhileFoldersChange(unsigned seed)
{
    Folders folders(seed);
    int decisive = 0;
    for (int n = 0; n < changes; ++n) {
        chooseTable(folders);
        const std::wstring text = folders.next();
        const Records records = desk::parseStore(text);
        const std::wstring number = folders.sought();
        const std::wstring before = lookUp(Version::v2003, records, number);
        load(Version::v2003, records);
        const auto [word, rest] = change(folders);
        outlook.command(word, rest);
        const std::wstring after = lookUp(number);
        load(Version::v2016, records);
        forgetCalls();
        outlook.command(L"later", L"1 " + word + L" " + rest);
        const std::wstring seen = lookUp(number);
        const bool hasHappened = calls(L"Table.GetArray method") > 0;
        const std::wstring context = word + L" " + rest + L"\n" + number + L"\n" + text;
        if (word == L"change" && hasHappened)
            ASSERT_TRUE(firstLine(seen) == firstLine(before) || firstLine(seen) == firstLine(after))
                << desk::utf8(context);
        else ASSERT_EQ(seen, hasHappened ? after : before) << desk::utf8(context);
        decisive += hasHappened && firstLine(before) != firstLine(after);
    }
    EXPECT_GT(decisive, changes / 20) << "changes that make no difference show nothing";
}

TEST_F(TableAndWalk, FoldersThatChangeWhileTheTableIsRead_GiveTheSame)
{
    compareWhileFoldersChange(20230319);
}

TEST_F(TableAndWalk, OtherFoldersThatChangeWhileTheTableIsRead_GiveTheSame)
{
    compareWhileFoldersChange(20230320);
}

TEST_F(TableAndWalk, ItemsThatComeAndGoWithinAnEvent_GiveTheSame)
{
    Folders folders(20230321);
    int decisive = 0;
    for (int n = 0; n < changesWithinAnEvent; ++n) {
        chooseTable(folders);
        const std::wstring text = folders.next();
        const Records records = desk::parseStore(text);
        const std::wstring number = folders.sought();
        load(Version::v2003, records);
        const auto [word, rest] = change(folders);
        if (word == L"change") continue; // an answer of the same event does not tell it
        const auto twoLookUps = [&] {
            const std::wstring first = lookUp(number);
            outlook.command(word, rest);
            return std::pair(first, lookUp(number));
        };
        const auto walked = twoLookUps();
        load(Version::v2016, records);
        const TableAnswerCacheScope answers(session);
        ASSERT_EQ(twoLookUps(), walked) << desk::utf8(word + L" " + rest + L"\n" + number + L"\n" + text);
        decisive += firstLine(walked.first) != firstLine(walked.second);
    }
    EXPECT_GT(decisive, changesWithinAnEvent / 50) << "changes that make no difference show nothing";
}

}
