#include "automation/enumeration.h"
#include "automation/error.h"
#include "automation/owners.h"
#include "running_outlook.h"
#include "support/failure.h"

#include <gtest/gtest.h>

#include <atomic>

namespace {

using automation::Object;
using automation::Value;
using support::Process;
using support::eventually;

bool isWindow(const wchar_t* title)
{
    return FindWindowW(nullptr, title) != nullptr;
}

// The texts of a window's controls of that kind, in their order.
std::wstring texts(HWND window, const wchar_t* kind)
{
    std::wstring all;
    for (HWND child = nullptr; (child = FindWindowExW(window, child, kind, nullptr)) != nullptr;) {
        wchar_t text[256];
        SendMessageW(child, WM_GETTEXT, 256, reinterpret_cast<LPARAM>(text));
        all += std::wstring(text) + L"|";
    }
    return all;
}

}

TEST(OutlookProgram, Client_GetsTheRunningOne_AndItsRecordsReachTheFile)
{
    const RunningOutlook outlook("[contact]\nFullName=Marc Durand\nMobileTelephoneNumber=0612345678\n");
    const Object application = outlookObject();
    EXPECT_EQ(application.get(L"Name").text(), L"Outlook");
    const Object items = contactsOf(application).get(L"Items").object();
    EXPECT_EQ(items.get(L"Find", {L"[MobileTelephoneNumber] = '0612345678'"}).object().get(L"FullName").text(),
              L"Marc Durand");
    newContact(application, L"Ann Abel").call(L"Save");
    // Nobody asks: the file follows by itself.
    EXPECT_TRUE(eventually(
        [&] { return support::readFile(outlook.storeFile()).find("FullName=Ann Abel\n") != std::string::npos; }));
    automation::Enumeration each(items);
    std::wstring names;
    for (Value item; each.next(item);) names += item.object().get(L"FullName").text() + L";";
    EXPECT_EQ(names, L"Marc Durand;Ann Abel;");
}

// A folder in the place of the file that is written first: whoever waits for the
// writing is told that it fails.

TEST(OutlookProgram, ChangedStore_IsWrittenBeforeAResponse_ButNotForOneThatTellsOfCalls)
{
    const RunningOutlook outlook;
    const std::wstring obstacle = outlook.storeFile() + L".new";
    ASSERT_TRUE(CreateDirectoryW(obstacle.c_str(), nullptr));
    const Object application = outlookObject();
    newContact(application, L"Ann Abel").call(L"Save");
    EXPECT_NE(outlook.ask(L"calls").find(L"ContactItem.Save method"), std::wstring::npos);
    EXPECT_TRUE(outlook.ask(L"contacts").starts_with(L"error: "));
    ASSERT_TRUE(RemoveDirectoryW(obstacle.c_str()));
    EXPECT_NE(outlook.ask(L"contacts").find(L"Ann Abel"), std::wstring::npos);
    EXPECT_NE(support::readFile(outlook.storeFile()).find("FullName=Ann Abel\n"), std::string::npos);
}

TEST(OutlookProgram, Errors_CrossTheProcessBoundaryWhole)
{
    const RunningOutlook outlook;
    const Object application = outlookObject();
    try {
        contactsOf(application).get(L"Items").object().get(L"Find", {L"[ShoeSize] = '43'"});
        ADD_FAILURE() << "no error";
    } catch (const automation::AutomationError& error) {
        EXPECT_EQ(error.source(), L"Microsoft Outlook");
        EXPECT_EQ(error.description(), L"The property \"ShoeSize\" is unknown.");
    }
    EXPECT_EQ(codeOf([&] { application.get(L"Nonsense"); }), DISP_E_UNKNOWNNAME);
}

TEST(OutlookProgram, TableArrays_Arrive_AlsoAnEmptyOne)
{
    const RunningOutlook outlook("[contact]\nFullName=Marc Durand\n");
    const Object table = contactsOf(outlookObject()).get(L"GetTable").object();
    const Value rows = table.get(L"GetArray", {std::int32_t{5}});
    ASSERT_EQ(rows.type(), VT_ARRAY | VT_VARIANT);
    LONG upper = -2;
    SafeArrayGetUBound(V_ARRAY(&rows.variant()), 2, &upper);
    EXPECT_EQ(upper, 0);
    const Value none = table.get(L"GetArray", {std::int32_t{5}});
    ASSERT_EQ(none.type(), VT_ARRAY | VT_VARIANT);
    SafeArrayGetUBound(V_ARRAY(&none.variant()), 2, &upper);
    EXPECT_EQ(upper, -1);
}

TEST(OutlookProgram, DisplayedItem_HasAWindowWithItsFields_UntilItIsClosed)
{
    const RunningOutlook outlook;
    const Object application = outlookObject();
    const Object contact = newContact(application, L"Marc Durand");
    contact.put(L"CompanyName", L"Pavex");
    contact.call(L"Display");
    ASSERT_TRUE(eventually([] { return isWindow(L"Marc Durand - Contact"); }));
    const HWND window = FindWindowW(nullptr, L"Marc Durand - Contact");
    EXPECT_EQ(texts(window, L"Static"), L"Full name|Company|File as|E-mail|Business|Home|Mobile|Business fax|Notes|");
    EXPECT_EQ(texts(window, L"Edit"), L"Marc Durand|Pavex|Durand, Marc|||||||");
    contact.put(L"MobileTelephoneNumber", L"06");
    EXPECT_TRUE(eventually([&] { return texts(window, L"Edit") == L"Marc Durand|Pavex|Durand, Marc||||06|||"; }));
    EXPECT_EQ(outlook.ask(L"windows"), L"Marc Durand - Contact\tcontact\tunsaved");
    SendMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_FALSE(isWindow(L"Marc Durand - Contact"));
    EXPECT_EQ(outlook.ask(L"windows"), L"");
    EXPECT_EQ(outlook.ask(L"contacts"), L"");
}

TEST(OutlookProgram, SeveralWindows_ShowAllTheirTitles)
{
    const RunningOutlook outlook;
    const Object application = outlookObject();
    RECT previous{0, -100, 0, 0};
    for (int number = 0; number < 12; ++number) {
        const std::wstring name = L"Person " + std::to_wstring(number);
        newContact(application, name.c_str()).call(L"Display");
        const HWND window = FindWindowW(nullptr, (name + L" - Contact").c_str());
        ASSERT_NE(window, nullptr);
        RECT place;
        GetWindowRect(window, &place);
        EXPECT_LE(place.right, 1024);
        EXPECT_LE(place.bottom, 768);
        EXPECT_GE(place.top - previous.top, GetSystemMetrics(SM_CYCAPTION)) << number;
        previous = place;
    }
}

TEST(OutlookProgram, ModalDisplay_ReturnsWhenTheUserHasClosed)
{
    const RunningOutlook outlook;
    const Object contact = newContact(outlookObject(), L"Marc Durand");
    std::atomic<bool> hasClosed{false};
    struct User {
        static DWORD WINAPI run(void* hasClosed)
        {
            eventually([] { return isWindow(L"Marc Durand - Contact"); });
            Sleep(300); // so that a call that does not wait has returned
            *static_cast<std::atomic<bool>*>(hasClosed) = true;
            SendMessageW(FindWindowW(nullptr, L"Marc Durand - Contact"), WM_CLOSE, 0, 0);
            return 0;
        }
    };
    const automation::Handle user(CreateThread(nullptr, 0, User::run, &hasClosed, 0, nullptr));
    contact.call(L"Display", {true});
    EXPECT_TRUE(hasClosed);
    EXPECT_FALSE(isWindow(L"Marc Durand - Contact"));
    WaitForSingleObject(user.get(), INFINITE);
}

TEST(OutlookProgram, PlannedAnswer_TakesThePlaceOfTheCall)
{
    const RunningOutlook outlook;
    const Object application = outlookObject();
    EXPECT_EQ(outlook.ask(L"fault on Application.CreateItem at 1 answer Nothing"), L"ok");
    EXPECT_FALSE(application.get(L"CreateItem", {std::int16_t{2}}).object());
    EXPECT_TRUE(application.get(L"CreateItem", {std::int16_t{2}}).object());
    EXPECT_EQ(outlook.ask(L"fault on ContactItem.Save answer I4 5"), L"ok");
    newContact(application, L"Marc Durand").call(L"Save");
    EXPECT_EQ(outlook.ask(L"contacts"), L"") << "it was not carried out";
}

TEST(OutlookProgram, CallsOfTheClient_AreTold)
{
    const RunningOutlook outlook;
    const Object application = outlookObject();
    application.get(L"Name");
    application.get(L"Name");
    EXPECT_EQ(outlook.ask(L"calls"), L"2 Application.Name get\n1 Application.Name lookup");
    EXPECT_EQ(outlook.ask(L"record"), L"Application.Name lookup\nApplication.Name get ()\nApplication.Name get ()");
    EXPECT_EQ(outlook.ask(L"clear"), L"ok");
    EXPECT_EQ(outlook.ask(L"calls"), L"");
}

TEST(OutlookProgram, BadRequests_AreAnsweredWithTheReason)
{
    const RunningOutlook outlook;
    EXPECT_EQ(outlook.ask(L"dance"), L"error: unknown command \"dance\"");
    EXPECT_EQ(outlook.ask(L"fault at 1 explode"), L"error: fault: unknown action \"explode\"");
    EXPECT_EQ(outlook.ask(L"load\n[potato]\n"), L"error: line 1: [potato] is no kind of item");
    EXPECT_EQ(outlook.ask(L"load\n[contact]\nFullName=Ann Abel\n"), L"ok");
    EXPECT_NE(support::readFile(outlook.storeFile()).find("FullName=Ann Abel\n"), std::string::npos);
    EXPECT_TRUE(outlook.ask(L"ping").starts_with(L"outlook "));
}

TEST(OutlookProgram, SecondStart_EndsQuietly)
{
    const RunningOutlook outlook;
    EXPECT_EQ(Process(outlook.program()).exitCode(), 0u);
    EXPECT_EQ(outlook.process().exitCode(0), Process::stillRuns);
}

TEST(OutlookProgram, BadStartOrStore_EndsWithOneLine)
{
    RunningOutlook outlook;
    outlook.ask(L"exit");
    outlook.process().exitCode();
    const std::wstring errors = outlook.storeFile() + L".errors";
    EXPECT_EQ(Process(outlook.program() + L" /Dance", errors).exitCode(), 1u);
    EXPECT_EQ(support::readFile(errors), "unknown command line: /RegServer, /UnregServer, -Embedding or nothing\n");
    support::writeFile(outlook.storeFile(), "[contact]\nFirstName\n");
    EXPECT_EQ(Process(outlook.program(), errors).exitCode(), 2u);
    const std::string line = support::readFile(errors);
    EXPECT_TRUE(line.ends_with("outlook.store.txt: line 2: neither [kind] nor Field=value\n")) << line;
}

TEST(OutlookProgram, CreationThatFails_IsTheServersRefusal_UntilItWorksAgain)
{
    const RunningOutlook outlook;
    EXPECT_EQ(outlook.ask(L"creation fails 100"), L"ok");
    EXPECT_EQ(codeOf([] { outlookObject(); }), CO_E_SERVER_EXEC_FAILURE);
    EXPECT_EQ(outlook.ask(L"creation works"), L"ok");
    EXPECT_EQ(outlookObject().get(L"Name").text(), L"Outlook");
    EXPECT_EQ(outlook.ask(L"creations"), L"2");
}

TEST(OutlookProgram, Show_BringsAFolderIntoTheMainWindow)
{
    const RunningOutlook outlook;
    ASSERT_NE(FindWindowW(nullptr, L"Contacts - Microsoft Outlook"), nullptr);
    EXPECT_EQ(outlook.ask(L"show Journal"), L"ok");
    EXPECT_NE(FindWindowW(nullptr, L"Journal - Microsoft Outlook"), nullptr);
    EXPECT_EQ(outlook.ask(L"show Tasks"), L"error: show: no such folder");
}

TEST(OutlookProgram, TenThousandContacts_ComeInOneArray)
{
    std::string store;
    for (int number = 0; number < 10'000; ++number)
        store += "[contact]\nFullName=P " + std::to_string(number) + "\nHomeTelephoneNumber=0\n";
    const RunningOutlook outlook(store);
    const Object folder = contactsOf(outlookObject());
    const Object table = folder.get(L"GetTable").object();
    EXPECT_EQ(table.get(L"GetRowCount").int32(), 10'000);
    const Value rows = table.get(L"GetArray", {std::int32_t{10'000}});
    EXPECT_GT(outlook.ask(L"contacts").size(), 1'000'000u);
}
