// The identifier map: its server's registration and its store.
#include "check/identifier_map.h"
#include "check_fixture.h"

#include "automation/system_message.h"
#include "convid/identifier_store.h"

namespace hublink::check {

namespace {

const MapTexts& texts = english.map;

class CheckMap : public testing::Test {
protected:
    CheckMap()
    {
        facts.server = {L"PavexConvId.OrvelConvertId",   true, false, false,
                        L"C:\\Hublink\\PavexConvId.exe", true, false};
        facts.file = folder.file(L"identifiers.map");
    }

    void insert(const wchar_t* idOrvel, std::int32_t application, std::int32_t collection) const
    {
        convid::IdentifierStore store(facts.file);
        store.insert({idOrvel, L"entry", application, collection});
    }

    Findings found()
    {
        facts.store = convid::readStore(facts.file);
        return mapFindings(facts, english);
    }

    void damage(std::size_t at) const
    {
        std::string bytes = support::readFile(facts.file);
        bytes[at] = static_cast<char>(~bytes[at]);
        support::writeFile(facts.file, bytes);
    }

    const support::ScratchFolder folder;
    MapFacts facts;
};

}

TEST_F(CheckMap, Sound_IsToldByApplicationAndCollection)
{
    insert(L"1.1", 0, 1);
    insert(L"1.2", 0, 1);
    insert(L"2.1", 0, 0);
    insert(L"1.1", 1, 1);
    EXPECT_EQ(found(), (Findings{ok(english.classes.registered, L"PavexConvId.OrvelConvertId",
                                    path(L"C:\\Hublink\\PavexConvId.exe")),
                                 ok(texts.store, path(facts.file)), ok(texts.sound, std::size_t{4}),
                                 ok(texts.records, L"Outlook", std::size_t{2}, std::size_t{1}),
                                 ok(texts.records, L"Notes", std::size_t{1}, std::size_t{0})}));
}

TEST_F(CheckMap, RecordsThatHublinkDoesNotMake_AreNotes)
{
    insert(L"1.1", 0, 5);
    insert(L"1.2", 7, 1);
    EXPECT_EQ(remarks(found()), (Findings{note(texts.foreignRecords, L"Outlook", std::size_t{1}),
                                          note(texts.foreignRecords, L"7", std::size_t{1})}));
}

TEST_F(CheckMap, MissingOrEmpty_IsInOrder)
{
    EXPECT_TRUE(holds(found(), ok(texts.missing)));
    EXPECT_EQ(remarks(found()), Findings{});
    support::writeFile(facts.file, "");
    EXPECT_TRUE(holds(found(), ok(texts.blank)));
}

TEST_F(CheckMap, Cut_IsANote)
{
    insert(L"1.1", 0, 1);
    insert(L"1.2", 0, 1);
    const std::string bytes = support::readFile(facts.file);
    support::writeFile(facts.file, std::string_view(bytes).substr(0, bytes.size() - 2));
    EXPECT_EQ(remarks(found()), (Findings{note(texts.unfinished, std::size_t{1})}));
}

TEST_F(CheckMap, Damaged_IsAProblem)
{
    insert(L"1.1", 0, 1);
    insert(L"1.2", 0, 1);
    damage(30);
    EXPECT_EQ(remarks(found()), (Findings{problem(texts.damaged, std::size_t{1})}));
}

TEST_F(CheckMap, FolderInItsPlace_IsAProblem_InWindowsWords)
{
    CreateDirectoryW(facts.file.c_str(), nullptr);
    const Findings findings = remarks(found());
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(findings[0], problem(texts.unreadable, automation::systemMessage(ERROR_ACCESS_DENIED)));
    EXPECT_EQ(findings[0].what.discreet, findings[0].what.full) << "they name nobody";
}

TEST_F(CheckMap, HeldByItsServer_IsReadAllTheSame)
{
    convid::IdentifierStore server(facts.file);
    server.insert({L"1.1", L"entry", 0, 1});
    EXPECT_TRUE(holds(found(), ok(texts.sound, std::size_t{1})));
    EXPECT_NO_THROW(server.insert({L"1.2", L"entry", 0, 1}));
}

TEST_F(CheckMap, LeftoversBesideIt_AreNotes)
{
    insert(L"1.1", 0, 1);
    folder.write(L"identifiers.map.new", "x");
    folder.write(L"identifiers.map.damaged-1", "x");
    EXPECT_EQ(remarks(found()), (Findings{note(texts.replacement), note(texts.damagedCopies, std::size_t{1})}));
}

TEST_F(CheckMap, NoPlaceForIt_IsAProblem)
{
    facts.file.clear();
    EXPECT_EQ(remarks(mapFindings(facts, english)), (Findings{problem(texts.noFolder)}));
}

TEST_F(CheckMap, ServerNotRegisteredYet_IsANote_WhereItLiesBesideHublink)
{
    facts.server = ClassFacts();
    facts.server.name = L"PavexConvId.OrvelConvertId";
    EXPECT_EQ(remarks(found()), (Findings{problem(english.classes.notRegistered, L"PavexConvId.OrvelConvertId")}));
    facts.ownServer = L"C:\\Hublink\\PavexConvId.exe";
    EXPECT_EQ(remarks(found()), (Findings{note(texts.registersItself, path(facts.ownServer))}));
}

TEST_F(CheckMap, ServerOfTheSoftphone_IsANote)
{
    facts.server.server = L"C:\\Pavex\\OtherMap.exe";
    EXPECT_EQ(remarks(found()), (Findings{note(texts.otherServer, path(L"C:\\Pavex\\OtherMap.exe"))}));
}

TEST_F(CheckMap, List_TellsWhatMirrorsWhat_InOrder)
{
    insert(L"2.1", 1, 0);
    insert(L"1.2", 0, 1);
    insert(L"1.1", 0, 1);
    insert(L"9.9", 7, 4);
    const std::vector<Words> lines = mappings(convid::readStore(facts.file), texts);
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[0].full, L"1.1  entry  Outlook  contact");
    EXPECT_EQ(lines[1].full, L"1.2  entry  Outlook  contact");
    EXPECT_EQ(lines[2].full, L"2.1  entry  Notes  call");
    EXPECT_EQ(lines[3].full, L"9.9  entry  7  4");
}

TEST_F(CheckMap, RecordsThatHublinkDoesNotMake_AreListed_AndNotPassedOn)
{
    insert(L"Anna Keller", 7, 1);
    insert(L"0612345678", 0, 4);
    insert(L"1.1", 612345678, 0);
    const std::vector<Words> lines = mappings(convid::readStore(facts.file), texts);
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[0].discreet, L"***  ***  Outlook  4");
    EXPECT_EQ(lines[1].discreet, L"***  ***  7  contact");
    EXPECT_EQ(lines[1].full, L"Anna Keller  entry  7  contact");
    EXPECT_EQ(lines[2].discreet, L"***  ***  ***  call");
}

TEST_F(CheckMap, ListOfNothing_SaysSo)
{
    EXPECT_EQ(mappings({}, texts), std::vector<Words>{L"(nothing)"});
}

}
