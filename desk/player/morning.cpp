#include "desk/player/morning.h"

#include "automation/object.h"
#include "desk/common/text.h"
#include "desk/player/fixtures.h"

#include <cwchar>

namespace desk::player {

namespace {

constexpr DWORD soon = 15'000;      // milliseconds: a call and what follows from it
constexpr DWORD nextTick = 12'000;  // a supervision tick, and some work
constexpr DWORD quiet = 600;        // nothing happens any more

bool contains(const std::wstring& text, const std::wstring& part)
{
    return text.find(part) != std::wstring::npos;
}

// How many calls a partner has received, and how many of them were for names.
std::wstring summary(const std::wstring& totals)
{
    unsigned long all = 0;
    unsigned long lookUps = 0;
    for (const std::wstring& line : linesOf(totals)) {
        const unsigned long count = std::wcstoul(line.c_str(), nullptr, 10);
        all += count;
        if (line.ends_with(L" lookup")) lookUps += count;
    }
    return std::to_wstring(all) + L" (" + std::to_wstring(lookUps) + L" name look-ups)";
}

}

Morning::Morning(Desk& desk, Narrator& narrator, std::wstring picture)
    : desk_(desk), narrator_(narrator), picture_(std::move(picture))
{
}

void Morning::play()
{
    start();
    synchronised();
    callFromNumberWithDots();
    callFromStranger();
    forwardedCall();
    outgoingCall();
    editedIniFile();
    logItem();
    outlookRestarted();
    iconPressed();
}

void Morning::start()
{
    narrator_.tell(L"Anna starts the softphone, Outlook and Hublink.");
    desk_.startSoftphone(morningSoftphone());
    desk_.startOutlook(morningContacts());
    contacts_ = parseStore(desk_.outlook(L"contacts")).size();
    desk_.startHublink();
    narrator_.expect(waitUntil([&] { return desk_.logHolds(L"Connector Initialization  Ok"); }, soon),
                     L"Outlook's journal has the line \"Connector Initialization  Ok\"");
    narrator_.expect(desk_.softphone(L"attached") == L"True", L"the softphone has been attached to");
    // The switch is off in the file as installed; it takes effect at the next tick.
    desk_.setIni("AllApplication", "NewContact", "true");
    narrator_.expect(waitUntil([&] { return desk_.logHolds(L"Reload Ini data"); }, nextTick),
                     L"\"NewContact\" is switched on in the ini file, and Hublink has read it");
}

void Morning::synchronised()
{
    narrator_.step(L"The softphone's address book and call history are brought into Outlook.");
    narrator_.expect(desk_.logHolds(L"Repertory Synchronisation Ok") && desk_.logHolds(L"History Synchronisation Ok"),
                     L"the log item tells of both synchronisations");
    narrator_.expect(eachOnce(), std::to_wstring(strangers) + L" contacts are new, the entries that Outlook knew in "
                                 L"other layouts were not copied, and " + std::to_wstring(callsOfYesterday) +
                                 L" calls lie in the journal");
    desk_.outlook(L"show Journal");
}

// Whether every entry and every call of yesterday is in Outlook exactly once.
bool Morning::eachOnce()
{
    std::size_t calls = 0;
    for (const StoreRecord& record : parseStore(desk_.outlook(L"journal"))) {
        const std::wstring* type = record.find(L"Type");
        calls += type && *type == L"Phone Call";
    }
    return calls == callsOfYesterday && parseStore(desk_.outlook(L"contacts")).size() == contacts_ + strangers;
}

void Morning::callFromNumberWithDots()
{
    narrator_.step(L"0123456789 calls; Outlook has the number as 01.23.45.67.89.");
    ring(L"Number=0123456789 Incoming=true");
    narrator_.expect(desk_.outlookShows(L"Marc Durand - Contact"), L"the contact of Marc Durand is on the screen");
    const auto marc = desk_.record(L"contacts", L"LastName", L"Durand");
    const std::wstring* number = marc ? marc->find(L"MobileTelephoneNumber") : nullptr;
    narrator_.expect(number && *number == L"0123456789", L"his number is stored as 0123456789 now");
    if (!picture_.empty()) {
        waitFor(300); // until everything is painted
        takePicture(picture_);
    }
    countCalls();
}

void Morning::callFromStranger()
{
    narrator_.step(L"06 55 44 33 22 calls; nobody has that number. The softphone knows the name.");
    ring(L"Number=\"06 55 44 33 22\" LastName=Nguyen FirstName=Linh Incoming=true");
    narrator_.expect(desk_.outlookShows(L"Linh Nguyen - Contact"), L"a new contact of Linh Nguyen is on the screen");
    const auto linh = desk_.record(L"contacts", L"LastName", L"Nguyen");
    const auto has = [&](const wchar_t* field, const wchar_t* value) {
        const std::wstring* text = linh ? linh->find(field) : nullptr;
        return text && *text == value;
    };
    narrator_.expect(has(L"FirstName", L"Linh") && has(L"BusinessTelephoneNumber", L"0655443322"),
                     L"Outlook keeps it, with first name, last name and the number 0655443322");
    narrator_.expect(waitUntil([&] { return desk_.logHolds(L"New contact 0655443322 Nguyen Linh"); }, soon),
                     L"the log item has the line \"New contact 0655443322 Nguyen Linh\"");
    ++contacts_;
    countCalls();
}

void Morning::forwardedCall()
{
    narrator_.step(L"0123456789 calls and is forwarded to 4711, Claire Petit, who has a mail address.");
    ring(L"Number=0123456789 Incoming=true DestinationNumber=4711");
    const std::wstring subject = L"Please call Marc Durand back at 0123456789";
    narrator_.expect(desk_.outlookShows(subject + L" - Message"), L"a mail \"" + subject + L"\" is on the screen");
    const auto mail = desk_.record(L"mails", L"Subject", subject.c_str());
    const std::wstring* to = mail ? mail->find(L"To") : nullptr;
    const std::wstring* body = mail ? mail->find(L"Body") : nullptr;
    narrator_.expect(to && *to == L"claire.petit@example.com" && (!body || body->empty()),
                     L"it is addressed to claire.petit@example.com and its body is empty");
    countCalls();
}

void Morning::outgoingCall()
{
    narrator_.step(L"Anna calls 4711 herself.");
    ring(L"Number=4711 Incoming=false");
    narrator_.expect(waitUntil([&] { return contains(desk_.outlook(L"calls"), L"Items.Find"); }, soon),
                     L"Outlook has been asked for the name");
    waitFor(quiet);
    narrator_.expect(desk_.outlook(L"windows").empty(), L"nothing has opened");
    countCalls();
}

void Morning::editedIniFile()
{
    narrator_.step(L"The text of the callback mail is changed in the ini file while Hublink runs.");
    const std::wstring before = desk_.logBody();
    desk_.setIni("outlook", "CallBackMailSyntaxe", "<LastName>: <PhoneNumber>");
    narrator_.expect(waitUntil([&] { return contains(desk_.logBody().substr(before.size()), L" Reload Ini data"); }, nextTick),
                     L"the log item has a new line \"Reload Ini data\"");
    ring(L"Number=0123456789 Incoming=true DestinationNumber=4711");
    narrator_.expect(desk_.outlookShows(L"Durand: 0123456789 - Message"), L"the next callback mail has the new text");
}

void Morning::logItem()
{
    narrator_.step(L"Anna opens the item \"Connector Log\" in Outlook's journal.");
    using automation::Object;
    const Object outlook = Object::create(L"Outlook.Application");
    const Object journal = outlook.get(L"GetNamespace", {L"MAPI"}).object().get(L"GetDefaultFolder", {std::int32_t{11}}).object();
    const Object item = journal.get(L"Items").object().get(L"Find", {L"[Subject] = 'Connector Log'"}).object();
    if (!narrator_.expect(static_cast<bool>(item), L"there is one")) return;
    item.call(L"Display");
    narrator_.expect(desk_.outlookShows(L"Connector Log - Journal Entry"), L"it is on the screen");
    for (const std::wstring& line : linesOf(desk_.logBody())) narrator_.tell(L"         " + line);
    narrator_.expect(contains(desk_.logBody(), L" Start Connector Initialization\n"), L"its lines are joined by line feeds");
}

void Morning::outlookRestarted()
{
    narrator_.step(L"Outlook is closed, and after a while opened again.");
    desk_.closeOutlook();
    waitFor(6000); // a tick must see that it is gone
    narrator_.expect(desk_.hublinkProcess().running(), L"Hublink goes on without it");
    desk_.startOutlook();
    narrator_.expect(
        waitUntil([&] { return contains(desk_.outlook(L"calls"), L"NameSpace.GetDefaultFolder"); }, nextTick),
        L"Hublink has opened a new session");
    narrator_.expect(waitUntil([&] { return contains(desk_.softphone(L"calls"), L"HistoryItem"); }, soon),
                     L"it has gone through the softphone's records again");
    waitFor(quiet);
    narrator_.expect(eachOnce(), L"nothing has been copied twice");
    ring(L"Number=0655443322 Incoming=true");
    narrator_.expect(desk_.outlookShows(L"Linh Nguyen - Contact"), L"a call is served as before: Linh Nguyen is on the screen");
}

void Morning::iconPressed()
{
    constexpr const wchar_t* title = L"Hublink";
    // A click that falls while the desktop is busy may get lost; then one clicks again.
    const auto asked = [&] {
        for (int press = 0; press < 4 && messageBoxes(title).empty(); ++press) {
            moveToNotificationIcon();
            rightPress();
            waitUntil([&] { return !messageBoxes(title).empty(); }, soon / 4);
        }
        waitFor(500); // nobody answers a question before it is painted
        return !messageBoxes(title).empty();
    };
    const auto answers = [&](int button) {
        for (int click = 0; click < 3 && !messageBoxes(title).empty(); ++click) {
            clickButton(messageBoxes(title)[0], button);
            waitUntil([&] { return messageBoxes(title).empty(); }, 2000);
        }
        return messageBoxes(title).empty();
    };
    narrator_.step(L"Anna presses the notification icon with the right button and answers No, later Yes.");
    if (!narrator_.expect(asked() && messageBoxes(title)[0].text == L"Do you want to really stop Hublink ?",
                          L"Hublink asks \"Do you want to really stop Hublink ?\""))
        return;
    narrator_.expect(answers(IDNO), L"the question is gone");
    waitFor(6000); // longer than a tick
    narrator_.expect(desk_.hublinkProcess().running(), L"Hublink goes on");
    if (!narrator_.expect(asked(), L"Hublink asks again")) return;
    narrator_.expect(answers(IDYES), L"the question is gone");
    narrator_.expect(desk_.hublinkProcess().ended(nextTick), L"Hublink is gone at the next tick");
    narrator_.expect(desk_.hublinkProcess().exitCode() == 0, L"its exit code is 0");
    narrator_.expect(desk_.outlookProcess().running(), L"Outlook is left running");
}

void Morning::ring(const std::wstring& fields)
{
    desk_.outlook(L"close-windows");
    desk_.outlook(L"clear");
    desk_.softphone(L"clear");
    desk_.softphone(L"call " + fields);
}

void Morning::countCalls()
{
    waitFor(quiet);
    narrator_.tell(L"COM calls for it: Outlook " + summary(desk_.outlook(L"calls")) + L", softphone " +
                   summary(desk_.softphone(L"calls")));
}

}
