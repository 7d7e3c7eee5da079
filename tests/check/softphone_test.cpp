// The softphone's place, in the real registry and in every broken state.
#include "check/softphone.h"
#include "check_fixture.h"

#include "common/installation.h"
#include "common/registry.h"

namespace hublink::check {

namespace {

const SoftphoneTexts& texts = english.softphone;

class CheckSoftphone : public testing::Test {
protected:
    CheckSoftphone()
    {
        const std::wstring place = folder.folder(L"pavex");
        folder.write(L"pavex\\pavex.exe", "");
        pavexPath.setText(place);
        server.setText(L"pbx.example");
        user.setText(L"anna");
    }

    Findings found() const
    {
        Configuration installation;
        readInstallation(installation);
        return softphoneFindings(softphoneFacts(installation), texts);
    }

    const support::ScratchFolder folder;
    const support::SavedValue pavexPath{HKEY_LOCAL_MACHINE, softphoneKey, L"Path"};
    const support::SavedValue server{HKEY_CURRENT_USER, userKey, L"HostZRB"};
    const support::SavedValue user{HKEY_CURRENT_USER, userKey, L"Man"};
};

}

TEST_F(CheckSoftphone, Installed_IsInOrder_AndNamesAreNotPassedOn)
{
    const Findings findings = found();
    EXPECT_EQ(findings, (Findings{ok(texts.folder, path(folder.file(L"pavex"))),
                                  ok(texts.server, personal(L"pbx.example")), ok(texts.user, personal(L"anna"))}));
    EXPECT_EQ(findings[1].what.discreet, L"The softphone's server is ***.");
    EXPECT_EQ(findings[2].what.discreet, L"The softphone's user is ***.");
}

TEST_F(CheckSoftphone, WithoutItsKey_IsAProblem)
{
    pavexPath.removeValue();
    pavexPath.removeKey();
    EXPECT_EQ(found().front(), problem(texts.noFolder));
}

TEST_F(CheckSoftphone, KeyWithoutTheValue_IsAProblem)
{
    const support::SavedValue other(HKEY_LOCAL_MACHINE, softphoneKey, L"Other");
    other.setText(L"x");
    pavexPath.removeValue();
    EXPECT_EQ(found().front(), problem(texts.folderUnreadable));
}

TEST_F(CheckSoftphone, FolderOfAnotherType_IsAProblem)
{
    pavexPath.setNumber(7);
    EXPECT_EQ(found().front(), problem(texts.noFolder));
}

TEST_F(CheckSoftphone, FolderWithEnvironmentVariables_IsAProblem_AndNotThe64BitPartsOnly)
{
    pavexPath.setExpandableText(folder.file(L"pavex"));
    EXPECT_EQ(found().front(), problem(texts.folderUnreadable));
}

TEST_F(CheckSoftphone, FolderOfMoreThan255Characters_IsAProblem_AndNotThe64BitPartsOnly)
{
    pavexPath.setText(L"C:\\" + std::wstring(252, L'x'));
    EXPECT_EQ(found().front(), problem(texts.folderMissing, path(L"C:\\" + std::wstring(252, L'x'))));
    pavexPath.setText(L"C:\\" + std::wstring(253, L'x'));
    EXPECT_EQ(found().front(), problem(texts.folderUnreadable));
}

TEST_F(CheckSoftphone, FolderThatIsNotThere_IsAProblem)
{
    pavexPath.setText(folder.file(L"nowhere"));
    EXPECT_EQ(found().front(), problem(texts.folderMissing, path(folder.file(L"nowhere"))));
}

TEST_F(CheckSoftphone, FileInPlaceOfItsFolder_IsAProblem)
{
    pavexPath.setText(folder.write(L"file", ""));
    EXPECT_EQ(found().front(), problem(texts.folderMissing, path(folder.file(L"file"))));
}

TEST_F(CheckSoftphone, FolderWithoutItsProgram_IsANote)
{
    DeleteFileW(folder.file(L"pavex\\pavex.exe").c_str());
    EXPECT_TRUE(holds(found(), note(texts.programMissing, path(folder.file(L"pavex")))));
}

TEST_F(CheckSoftphone, FolderIn64BitPartOnly_IsAProblem)
{
    const SoftphoneFacts facts{L"", L"s", L"u", false, L"C:\\Pavex"};
    EXPECT_EQ(softphoneFindings(facts, texts).front(), problem(texts.folderInOtherView, path(L"C:\\Pavex")));
}

TEST_F(CheckSoftphone, ServerAndUserMissingOrOfAnotherType_AreNotes)
{
    server.removeValue();
    user.setNumber(1);
    const Findings findings = found();
    EXPECT_TRUE(holds(findings, note(texts.noServer)));
    EXPECT_TRUE(holds(findings, note(texts.noUser)));
}

}
