#include "automation/array.h"
#include "automation/error.h"
#include "automation/object.h"
#include "desk/common/text.h"
#include "support/failure.h"
#include "support/running_partner.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

using automation::Object;
using automation::Value;
using support::Process;
using support::eventually;

class RunningNotes : public support::RunningPartner {
public:
    explicit RunningNotes(std::string_view store = {})
        : RunningPartner({L"nlnotes.exe", L"nlnotes", L"Notes.NotesSession"}, store)
    {}
};

constexpr std::string_view book = R"([environment]
$Dialer=on

[database]
File=book.nsf
Title=Book

[form]
Name=Person
Title=Name
Field=Name
Field=Phone

[view]
Name=People
Key=Name

[document]
Form=Person
Name=Marc Durand
Phone=0612345678

[document]
Form=Person
Name=Ann Abel
)";

Object session()
{
    return Object::create(L"Notes.NotesSession");
}

Object workspace()
{
    return Object::create(L"Notes.NotesUIWorkspace");
}

Object people()
{
    return session().get(L"GetDatabase", {L"", L"book.nsf"}).object().get(L"GetView", {L"People"}).object();
}

Object person(const wchar_t* name)
{
    return people().get(L"GetDocumentByKey", {name, true}).object();
}

HWND windowOf(const std::wstring& name)
{
    return FindWindowW(L"DeskNotesDocument", (name + L" - Lotus Notes").c_str());
}

std::wstring text(HWND window, const wchar_t* kind)
{
    wchar_t shown[512] = L"";
    SendMessageW(FindWindowExW(window, nullptr, kind, nullptr), WM_GETTEXT, 512, reinterpret_cast<LPARAM>(shown));
    return shown;
}

void press(HWND window, const wchar_t* button)
{
    SendMessageW(FindWindowExW(window, nullptr, L"BUTTON", button), BM_CLICK, 0, 0);
}

DWORD processOf(HWND window)
{
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    return process;
}

std::wstring currentName()
{
    const Object window = workspace().get(L"CurrentDocument").object();
    return window ? window.get(L"FieldGetText", {L"Name"}).text() : L"Nothing";
}

}

TEST(NotesProgram, BothClasses_AreOneProcess_AndItsRecordsReachTheFile)
{
    const RunningNotes notes(book);
    const Object document = session().get(L"GetDatabase", {L"", L"book"}).object().get(L"CreateDocument").object();
    document.put(L"Form", L"Person");
    document.put(L"Name", L"Bob Baker");
    EXPECT_EQ(document.get(L"NoteID").text(), L"0");
    EXPECT_TRUE(workspace().get(L"EditDocument", {false, document}).object());
    EXPECT_EQ(currentName(), L"Bob Baker");
    EXPECT_TRUE(document.get(L"Save", {true, false}).isTrue());
    // Nobody asks: the file follows by itself.
    EXPECT_TRUE(
        eventually([&] { return support::readFile(notes.storeFile()).find("Name=Bob Baker\n") != std::string::npos; }));
    session().call(L"SetEnvironmentVar", {L"Town", L"Rome"});
    EXPECT_TRUE(
        eventually([&] { return support::readFile(notes.storeFile()).find("$Town=Rome\n") != std::string::npos; }));
}

TEST(NotesProgram, ArraysAndObjects_CrossTheProcessBoundary)
{
    const RunningNotes notes(book);
    const Object marc = person(L"marc durand");
    EXPECT_EQ(marc.get(L"GetItemValue", {L"Phone"}).type(), VT_ARRAY | VT_VARIANT);
    EXPECT_EQ(automation::elementsOf(marc.get(L"Phone"))[0].text(), L"0612345678");
    EXPECT_EQ(
        automation::elementsOf(people().get(L"GetNextDocument", {person(L"Ann Abel")}).object().get(L"Name"))[0].text(),
        L"Marc Durand");
    EXPECT_EQ(people().get(L"FTSearch", {L"[Phone] CONTAINS \"0612345678\"", std::int16_t{0}}).int32(), 1);
    const Object item = marc.get(L"GetFirstItem", {L"Phone"}).object();
    marc.get(L"ReplaceItemValue", {L"Copy", item});
    EXPECT_EQ(automation::elementsOf(marc.get(L"Copy"))[0].text(), L"0612345678");
}

TEST(NotesProgram, Errors_CrossTheProcessBoundaryWhole)
{
    const RunningNotes notes(book);
    const Object missing = session().get(L"GetDatabase", {L"", L"no.nsf"}).object();
    try {
        missing.get(L"GetView", {L"People"});
        ADD_FAILURE() << "no error";
    } catch (const automation::AutomationError& error) {
        EXPECT_EQ(error.source(), L"Lotus Notes");
        EXPECT_EQ(error.description(), L"Database has not been opened yet.");
        EXPECT_EQ(error.code(), static_cast<HRESULT>(0x800A0000 + 4063));
    }
}

TEST(NotesProgram, DisplayedDocument_HasAWindowWithItsItemsAndMode_UntilItIsClosed)
{
    const RunningNotes notes(book);
    const Object marc = person(L"Marc Durand");
    workspace().get(L"EditDocument", {false, marc});
    ASSERT_TRUE(eventually([] { return windowOf(L"Marc Durand") != nullptr; }));
    const HWND window = windowOf(L"Marc Durand");
    EXPECT_TRUE(IsWindowVisible(window));
    EXPECT_EQ(text(window, L"STATIC"), L"Read mode");
    EXPECT_EQ(text(window, L"EDIT"), L"Form\tPerson\r\nName\tMarc Durand\r\nPhone\t0612345678\r\n");
    marc.put(L"Phone", L"one\ntwo");
    EXPECT_TRUE(eventually([&] { return text(window, L"EDIT").ends_with(L"Phone\tone\r\n\ttwo\r\n"); }));
    workspace().get(L"CurrentDocument").object().put(L"EditMode", true);
    EXPECT_TRUE(eventually([&] { return text(window, L"STATIC") == L"Edit mode"; }));
    SendMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(notes.ask(L"windows"), L"");
    EXPECT_EQ(currentName(), L"Nothing");
}

TEST(NotesProgram, Buttons_EditSaveAndCloseTheDocument)
{
    const RunningNotes notes(book);
    const Object marc = person(L"Marc Durand");
    workspace().get(L"EditDocument", {false, marc});
    const HWND window = windowOf(L"Marc Durand");
    press(window, L"Edit");
    EXPECT_EQ(text(window, L"STATIC"), L"Edit mode");
    marc.put(L"Phone", L"4711");
    press(window, L"Save");
    EXPECT_EQ(automation::elementsOf(person(L"Marc Durand").get(L"Phone"))[0].text(), L"4711");
    press(window, L"Read");
    EXPECT_EQ(text(window, L"STATIC"), L"Read mode");
    press(window, L"Close");
    EXPECT_FALSE(IsWindow(window));
}

TEST(NotesProgram, SeveralWindows_ShowAllTheirTitles)
{
    const RunningNotes notes("[database]\nFile=b.nsf\n[form]\nName=F\nTitle=N\n");
    const Object database = session().get(L"GetDatabase", {L"", L"b"}).object();
    RECT previous{0, -100, 0, 0};
    for (int number = 0; number < 12; ++number) {
        const Object document = database.get(L"CreateDocument").object();
        document.put(L"Form", L"F");
        document.put(L"N", L"Person " + std::to_wstring(number));
        workspace().get(L"EditDocument", {false, document});
        const HWND window = windowOf(L"Person " + std::to_wstring(number));
        ASSERT_NE(window, nullptr);
        RECT place;
        GetWindowRect(window, &place);
        EXPECT_LE(place.right, 1600);
        EXPECT_LE(place.bottom, 768);
        EXPECT_GE(place.top - previous.top, GetSystemMetrics(SM_CYCAPTION)) << number;
        previous = place;
    }
}

TEST(NotesProgram, UserComesToAWindow_ItsDocumentIsCurrent)
{
    const RunningNotes notes(book);
    workspace().get(L"EditDocument", {false, person(L"Marc Durand")});
    workspace().get(L"EditDocument", {false, person(L"Ann Abel")});
    EXPECT_EQ(currentName(), L"Ann Abel");
    SetForegroundWindow(windowOf(L"Marc Durand"));
    EXPECT_TRUE(eventually([] { return currentName() == L"Marc Durand"; }));
    SetForegroundWindow(FindWindowW(L"DeskNotesMain", nullptr));
    EXPECT_TRUE(eventually([] { return currentName() == L"Nothing"; }));
    SetForegroundWindow(windowOf(L"Ann Abel"));
    EXPECT_TRUE(eventually([] { return currentName() == L"Ann Abel"; }));
    SendMessageW(windowOf(L"Ann Abel"), WM_CLOSE, 0, 0);
    EXPECT_EQ(currentName(), L"Nothing") << "the main window was in front before it";
}

TEST(NotesProgram, FrontAndBack_MoveTheForegroundForReal)
{
    const RunningNotes notes(book);
    const DWORD process = processOf(FindWindowW(L"DeskNotesMain", nullptr));
    const auto inFront = [&] { return processOf(GetForegroundWindow()) == process; };
    workspace().get(L"EditDocument", {false, person(L"Marc Durand")});
    workspace().get(L"EditDocument", {false, person(L"Ann Abel")});
    EXPECT_EQ(notes.ask(L"back"), L"ok");
    EXPECT_TRUE(eventually([&] { return !inFront(); }));
    workspace().get(L"EditDocument", {false, person(L"Marc Durand")});
    EXPECT_FALSE(inFront()) << "a client brings nothing to the foreground";
    EXPECT_EQ(currentName(), L"Marc Durand");
    EXPECT_EQ(notes.ask(L"front"), L"ok");
    EXPECT_TRUE(eventually([&] { return GetForegroundWindow() == windowOf(L"Marc Durand"); }));
    EXPECT_EQ(notes.ask(L"front 8FA@book.nsf"), L"ok");
    EXPECT_TRUE(eventually([&] { return GetForegroundWindow() == windowOf(L"Ann Abel"); }));
    EXPECT_EQ(currentName(), L"Ann Abel");
    EXPECT_EQ(notes.ask(L"show book.nsf"), L"ok");
    EXPECT_TRUE(eventually(
        [&] { return GetForegroundWindow() == FindWindowW(L"DeskNotesMain", L"Book - People - Lotus Notes"); }));
    EXPECT_EQ(currentName(), L"Nothing");
    EXPECT_EQ(notes.ask(L"back"), L"ok");
    EXPECT_TRUE(eventually([&] { return !inFront(); }));
    EXPECT_EQ(currentName(), L"Nothing") << "leaving Notes changes nothing within it";
}

TEST(NotesProgram, MainWindow_ShowsThePlaceOfTheUser_AndItsClosingEndsNotes)
{
    RunningNotes notes(book);
    ASSERT_NE(FindWindowW(L"DeskNotesMain", L"Workspace - Lotus Notes"), nullptr);
    notes.ask(L"show book.nsf People");
    EXPECT_TRUE(eventually([] { return FindWindowW(L"DeskNotesMain", L"Book - People - Lotus Notes") != nullptr; }));
    PostMessageW(FindWindowW(L"DeskNotesMain", nullptr), WM_CLOSE, 0, 0);
    EXPECT_EQ(notes.process().exitCode(), 0u);
    notes.start();
    EXPECT_EQ(session().get(L"Platform").text(), L"Windows/32") << "a new one can be had";
}

TEST(NotesProgram, Death_ShowsInTheClientsCalls_AndBothClassesLiveOn)
{
    RunningNotes notes(book);
    Object own = session();
    const Object shown = workspace();
    EXPECT_EQ(notes.ask(L"die"), L"ok");
    EXPECT_EQ(notes.process().exitCode(), 1u);
    EXPECT_EQ(codeOf([&] { own.get(L"Platform"); }), HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE));
    EXPECT_EQ(codeOf([&] { shown.get(L"CurrentDocument"); }), HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE));
    notes.start();
    own = session();
    EXPECT_EQ(notes.ask(L"fault on NotesSession.GetDatabase die"), L"ok");
    EXPECT_EQ(codeOf([&] { own.get(L"GetDatabase", {L"", L"book"}); }), HRESULT_FROM_WIN32(RPC_S_CALL_FAILED));
    notes.start();
    EXPECT_FALSE(workspace().get(L"CurrentDocument").object());
    EXPECT_EQ(codeOf([] { session().get(L"Platform"); }), S_OK);
}

TEST(NotesProgram, ReferencesOfClients_DoNotKeepItRunning)
{
    const RunningNotes notes(book);
    const Object own = session();
    const Object marc = person(L"Marc Durand");
    EXPECT_EQ(notes.ask(L"exit"), L"ok");
    EXPECT_EQ(notes.process().exitCode(), 0u);
    EXPECT_NE(codeOf([&] { marc.get(L"NoteID"); }), S_OK);
}

TEST(NotesProgram, CallsOfTheClient_AreTold)
{
    const RunningNotes notes(book);
    const Object own = session();
    own.get(L"Platform");
    EXPECT_EQ(notes.ask(L"calls"), L"1 NotesSession.Platform get\n1 NotesSession.Platform lookup");
    EXPECT_EQ(notes.ask(L"fault on NotesSession.Platform at 1 raise 0x800A0FA0 Lotus Notes|Notes error: no"), L"ok");
    EXPECT_EQ(codeOf([&] { own.get(L"Platform"); }), static_cast<HRESULT>(0x800A0000 + 4000));
    EXPECT_TRUE(notes.ask(L"ping").starts_with(L"nlnotes "));
}

TEST(NotesProgram, SecondStart_EndsQuietly_AndABadStoreWithOneLine)
{
    RunningNotes notes(book);
    EXPECT_EQ(Process(notes.program()).exitCode(), 0u);
    EXPECT_EQ(notes.process().exitCode(0), Process::stillRuns);
    notes.ask(L"exit");
    notes.process().exitCode();
    const std::wstring errors = notes.storeFile() + L".errors";
    support::writeFile(notes.storeFile(), "[database]\nFile=b\n[form]\nColour=red\n");
    EXPECT_EQ(Process(notes.program(), errors).exitCode(), 2u);
    const std::string line = support::readFile(errors);
    EXPECT_TRUE(line.ends_with("line 3: [form] has no field \"Colour\"\n")) << line;
}
