// Automation classes: real registrations, and running objects on COM's real table.
#include "check/registered_class.h"
#include "check_fixture.h"

#include "automation/server/registration.h"
#include "support/raw_partner.h"

namespace hublink::check {

namespace {

namespace server = automation::server;

const ClassTexts& texts = english.classes;

const server::ClassRegistration registration{
    .progId = L"HublinkTest.Sample",
    .classId = {0x2F1D6E4A, 0x4B7C, 0x4D0E, {0x91, 0x3A, 0x5C, 0x77, 0x20, 0x1B, 0x6E, 0x09}},
    .description = L"a class of the tests",
};

class RegisteredClass : public testing::Test {
protected:
    ~RegisteredClass() override { server::unregisterClass(registration); }

    Findings found() const { return classFindings(classFacts(registration.progId), texts); }

    const support::ScratchFolder folder;
    const std::wstring program = folder.write(L"thing.exe", "");
};

}

TEST_F(RegisteredClass, WithItsProgram_IsInOrder)
{
    server::registerClass(registration, program);
    EXPECT_EQ(found(), (Findings{ok(texts.registered, L"HublinkTest.Sample", path(program))}));
}

TEST_F(RegisteredClass, NotRegistered_IsAProblem)
{
    EXPECT_EQ(found(), (Findings{problem(texts.notRegistered, L"HublinkTest.Sample")}));
}

TEST_F(RegisteredClass, WhoseProgramIsNotThere_IsAProblem)
{
    server::registerClass(registration, folder.file(L"gone.exe"));
    EXPECT_EQ(found(), (Findings{problem(texts.serverMissing, L"HublinkTest.Sample", path(folder.file(L"gone.exe")))}));
}

TEST_F(RegisteredClass, WithoutAProgram_IsAProblem)
{
    const support::SavedValue user(HKEY_CURRENT_USER, L"Software\\Classes\\HublinkTest.Sample\\CLSID", L"");
    const support::SavedValue machine(HKEY_LOCAL_MACHINE, L"Software\\Classes\\HublinkTest.Sample\\CLSID", L"");
    for (const auto* value : {&user, &machine}) value->setText(L"{2F1D6E4A-4B7C-4D0E-913A-5C77201B6E09}");
    EXPECT_EQ(found(), (Findings{problem(texts.withoutServer, L"HublinkTest.Sample")}));
}

TEST_F(RegisteredClass, ThatRuns_CanBeReached)
{
    server::registerClass(registration, program);
    support::RawPartner object;
    DWORD place = 0;
    ASSERT_EQ(RegisterActiveObject(&object, registration.classId, ACTIVEOBJECT_STRONG, &place), S_OK);
    const Findings findings = found();
    RevokeActiveObject(place, nullptr);
    CoDisconnectObject(&object, 0);
    EXPECT_TRUE(holds(findings, ok(texts.offered, L"HublinkTest.Sample")));
    EXPECT_FALSE(holds(found(), ok(texts.offered, L"HublinkTest.Sample")));
    EXPECT_TRUE(object.invocations.empty()) << "looked for, not called";
}

TEST(ClassFindings, Of64BitPrograms_AreReached_ButNotTheirLibraries)
{
    ClassFacts facts{L"A.B", true, true, false, L"C:\\a.exe", true, false};
    EXPECT_EQ(classFindings(facts, texts), (Findings{ok(texts.registered64, L"A.B", path(L"C:\\a.exe"))}));
    facts.isInProcess = true;
    EXPECT_EQ(classFindings(facts, texts), (Findings{problem(texts.inProcess64, L"A.B", path(L"C:\\a.exe"))}));
}

TEST(ClassFindings, LibraryWithoutAFolder_IsTheSystemsToFind)
{
    const ClassFacts facts{L"A.B", true, false, true, L"a.dll", false, false};
    EXPECT_EQ(classFindings(facts, texts), (Findings{ok(texts.inProcess, L"A.B", path(L"a.dll"))}));
}

TEST(ServerCommand, IsTakenApart_QuotedOrNot_WithAndWithoutArguments)
{
    const support::ScratchFolder folder;
    folder.folder(L"Élan & Co");
    const std::wstring file = folder.write(L"Élan & Co\\my server.exe", "");
    EXPECT_EQ(fileOfCommand(L"\"" + file + L"\""), file);
    EXPECT_EQ(fileOfCommand(L"\"" + file + L"\" /automation"), file);
    EXPECT_EQ(fileOfCommand(file), file);
    EXPECT_EQ(fileOfCommand(file + L" /automation -x"), file);
    EXPECT_EQ(fileOfCommand(file.substr(0, file.size() - 4) + L" /automation"), file);
}

TEST(ServerCommand, WhoseFileIsGone_IsTakenUpToItsExtension)
{
    EXPECT_EQ(fileOfCommand(L"C:\\Program Files\\No\\OUTLOOK.EXE /automation"), L"C:\\Program Files\\No\\OUTLOOK.EXE");
    EXPECT_EQ(fileOfCommand(L"C:\\my.exes are here\\a b.exe"), L"C:\\my.exes are here\\a b.exe");
}

TEST_F(RegisteredClass, LibraryWhoseFileIsGone_IsToldWithItsWholeName)
{
    server::registerClass(registration, program);
    const std::wstring key = L"Software\\Classes\\CLSID\\{2F1D6E4A-4B7C-4D0E-913A-5C77201B6E09}\\";
    const std::wstring gone = L"C:\\Program Files\\No such\\thing.ocx";
    const support::SavedValue user(HKEY_CURRENT_USER, key + L"LocalServer32", L"");
    const support::SavedValue machine(HKEY_LOCAL_MACHINE, key + L"LocalServer32", L"");
    for (const auto* executable : {&user, &machine}) executable->removeValue();
    const support::SavedValue library(HKEY_LOCAL_MACHINE, key + L"InprocServer32", L"");
    library.setText(gone);
    EXPECT_EQ(found(), (Findings{problem(texts.serverMissing, L"HublinkTest.Sample", path(gone))}));
}

// The folder that this program was started in is no place where Windows looks for another one.
TEST_F(RegisteredClass, ProgramWithoutAFolder_IsLookedForWhereWindowsFindsIt)
{
    wchar_t before[MAX_PATH];
    GetCurrentDirectoryW(MAX_PATH, before);
    SetCurrentDirectoryW(folder.path().c_str());
    const std::wstring key = L"Software\\Classes\\CLSID\\{2F1D6E4A-4B7C-4D0E-913A-5C77201B6E09}\\LocalServer32";
    server::registerClass(registration, program);
    const support::SavedValue user(HKEY_CURRENT_USER, key, L"");
    const support::SavedValue machine(HKEY_LOCAL_MACHINE, key, L"");
    for (const auto* command : {&user, &machine}) command->setText(L"thing.exe /automation");
    const Findings notFound = found();
    SetCurrentDirectoryW(before);
    EXPECT_EQ(notFound, (Findings{problem(texts.serverMissing, L"HublinkTest.Sample", L"thing.exe")}));
}

TEST(ServerCommand, ThatMakesNoSense_DoesNoHarm)
{
    EXPECT_EQ(fileOfCommand(L""), L"");
    EXPECT_EQ(fileOfCommand(L"\""), L"");
    EXPECT_EQ(fileOfCommand(L"\"C:\\unfinished"), L"C:\\unfinished");
    EXPECT_EQ(fileOfCommand(L"C:\\no\\such.exe /a"), L"C:\\no\\such.exe");
    EXPECT_EQ(fileOfCommand(L"C:\\no\\such /a"), L"C:\\no\\such");
    EXPECT_EQ(fileOfCommand(L"   "), L"");
}

}
