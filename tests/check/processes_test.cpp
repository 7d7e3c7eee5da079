// The running programs: real processes, and every combination of rights.
#include "check/processes.h"
#include "check_fixture.h"

#include "check/groupware.h"
#include "support/dummy_program.h"

namespace hublink::check {

namespace {

const ProcessTexts& texts = english.processes;

ProcessFacts process(DWORD id, Elevation elevation)
{
    return {id, false, elevation};
}

// Everything runs with ordinary rights.
RunningFacts soundDesk()
{
    RunningFacts facts;
    facts.own = Elevation::no;
    facts.usesOutlook = true;
    DWORD id = 10;
    for (ProgramFacts* program : {&facts.hublink, &facts.softphone, &facts.outlook, &facts.map})
        program->processes = {process(id++, Elevation::no)};
    return facts;
}

}

TEST(CheckProcesses, SoundDesk_IsInOrder)
{
    EXPECT_EQ(processFindings(soundDesk(), texts),
              (Findings{ok(texts.checkNotElevated), ok(texts.runs, L"hublink.exe", std::size_t{10}),
                        ok(texts.runs, L"pavex.exe", std::size_t{11}), ok(texts.runs, L"OUTLOOK.EXE", std::size_t{12}),
                        ok(texts.runs, L"PavexConvId.exe", std::size_t{13})}));
}

TEST(CheckProcesses, PartnerThatRunsElevated_IsAProblem)
{
    RunningFacts facts = soundDesk();
    facts.outlook.processes[0].elevation = Elevation::yes;
    EXPECT_EQ(remarks(processFindings(facts, texts)),
              (Findings{problem(texts.moreRights, L"OUTLOOK.EXE", L"hublink.exe")}));
}

TEST(CheckProcesses, HublinkThatRunsElevated_IsAProblemWithEachPartner)
{
    RunningFacts facts = soundDesk();
    facts.hublink.processes[0].elevation = Elevation::yes;
    EXPECT_EQ(remarks(processFindings(facts, texts)),
              (Findings{problem(texts.moreRights, L"hublink.exe", L"pavex.exe"),
                        problem(texts.moreRights, L"hublink.exe", L"OUTLOOK.EXE"),
                        problem(texts.moreRights, L"hublink.exe", L"PavexConvId.exe")}));
}

TEST(CheckProcesses, EverythingElevated_IsNoProblem_ButWhoseServerAndMapAreToldIsANote)
{
    RunningFacts facts = soundDesk();
    facts.own = Elevation::yes;
    for (ProgramFacts* program : {&facts.hublink, &facts.softphone, &facts.outlook, &facts.map})
        program->processes[0].elevation = Elevation::yes;
    EXPECT_EQ(remarks(processFindings(facts, texts)), (Findings{note(texts.checkElevated)}));
}

TEST(CheckProcesses, WithoutHublink_TheCheckStandsForIt)
{
    RunningFacts facts = soundDesk();
    facts.hublink.processes.clear();
    facts.outlook.processes[0].elevation = Elevation::yes;
    EXPECT_EQ(remarks(processFindings(facts, texts)),
              (Findings{note(texts.hublinkRunsNot), problem(texts.moreRights, L"OUTLOOK.EXE", L"hublink.exe")}));
}

TEST(CheckProcesses, ThatCannotBeLookedInto_AreNotes)
{
    RunningFacts facts = soundDesk();
    facts.outlook.processes[0].elevation = Elevation::unknown;
    EXPECT_EQ(remarks(processFindings(facts, texts)),
              (Findings{note(texts.unknownRights, L"OUTLOOK.EXE", std::size_t{12})}));
}

TEST(CheckProcesses, OfAnotherUser_AreProblems)
{
    RunningFacts facts = soundDesk();
    facts.softphone.processes[0].isOtherUsers = true;
    EXPECT_EQ(remarks(processFindings(facts, texts)),
              (Findings{problem(texts.otherUser, L"pavex.exe", std::size_t{11})}));
}

TEST(CheckProcesses, ThatDoNotRun_AreTold)
{
    RunningFacts facts;
    facts.usesNotes = true;
    const Findings findings = processFindings(facts, texts);
    EXPECT_EQ(remarks(findings), (Findings{note(texts.hublinkRunsNot), note(texts.softphoneRunsNot)}));
    EXPECT_TRUE(holds(findings, ok(texts.runsNot, L"nlnotes.exe")));
    EXPECT_FALSE(holds(findings, ok(texts.runsNot, L"OUTLOOK.EXE"))) << "not in use";
}

TEST(CheckProcesses, SeveralOfOneName_AreANote)
{
    RunningFacts facts = soundDesk();
    facts.softphone.processes.push_back(process(20, Elevation::no));
    EXPECT_EQ(remarks(processFindings(facts, texts)), (Findings{note(texts.several, L"pavex.exe", std::size_t{2})}));
}

TEST(CheckProcesses, SystemThatListsNone_IsAProblem)
{
    RunningFacts facts;
    facts.isListed = false;
    EXPECT_EQ(processFindings(facts, texts), (Findings{problem(texts.notListed)}));
}

TEST(RunningPrograms, OfThisUser_AreFoundWithTheirRights)
{
    const support::ScratchFolder folder;
    const support::DummyProgram notes(folder, L"nlnotes.exe");
    Configuration configuration;
    configuration.bgWithLotus = true;
    const RunningFacts facts = runningFacts(configuration);
    ASSERT_EQ(facts.notes.processes.size(), 1u);
    EXPECT_EQ(facts.notes.processes[0].id, notes.processId());
    EXPECT_FALSE(facts.notes.processes[0].isOtherUsers);
    EXPECT_NE(facts.own, Elevation::unknown);
    EXPECT_EQ(facts.notes.processes[0].elevation, facts.own);
}

TEST(RunningPrograms, ThatCannotBeOpened_AreUnknown)
{
    EXPECT_EQ(processFacts(0).elevation, Elevation::unknown);
    EXPECT_FALSE(processFacts(0).isOtherUsers);
}

TEST(CheckGroupware, NewOutlookThatRuns_IsAProblem)
{
    const support::ScratchFolder folder;
    const support::DummyProgram newOutlook(folder, L"olk.exe");
    Configuration configuration;
    configuration.bgWithOutlook = true;
    EXPECT_TRUE(
        holds(groupwareFindings(groupwareFacts(configuration), english), problem(english.groupware.newOutlook)));
}

TEST(CheckGroupware, WithoutSettings_IsNotKnown)
{
    EXPECT_EQ(groupwareFindings(groupwareFacts(Configuration()), english), (Findings{note(english.groupware.unknown)}));
}

TEST(CheckGroupware, WhatIsNotInUse_IsNotLookedFor)
{
    EXPECT_EQ(groupwareFindings({}, english), (Findings{ok(english.groupware.none)}));
    GroupwareFacts facts;
    facts.usesNotes = true;
    facts.notes.resize(2);
    facts.notes[0].name = L"Notes.NotesSession";
    facts.notes[1].name = L"Notes.NotesUIWorkspace";
    EXPECT_EQ(
        groupwareFindings(facts, english),
        (Findings{ok(english.groupware.outlookNotUsed), problem(english.classes.notRegistered, L"Notes.NotesSession"),
                  problem(english.classes.notRegistered, L"Notes.NotesUIWorkspace")}));
}

TEST(CheckGroupware, BothInUse_AllClassesAreLookedFor)
{
    Configuration configuration;
    configuration.bgWithOutlook = configuration.bgWithLotus = true;
    const GroupwareFacts facts = groupwareFacts(configuration);
    ASSERT_EQ(facts.outlook.size(), 1u);
    EXPECT_EQ(facts.outlook[0].name, L"Outlook.Application");
    ASSERT_EQ(facts.notes.size(), 2u);
    EXPECT_EQ(facts.notes[0].name, L"Notes.NotesSession");
    EXPECT_EQ(facts.notes[1].name, L"Notes.NotesUIWorkspace");
}

}
