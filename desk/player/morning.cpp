#include "desk/player/morning.h"

#include "desk/common/text.h"
#include "desk/player/fixtures.h"
#include "desk/player/notes_side.h"
#include "desk/player/outlook_side.h"
#include "desk/player/timeouts.h"

#include <algorithm>
#include <cwchar>

namespace desk::player {

namespace {

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

bool hasLine(const std::wstring& log, const std::wstring& line)
{
    return (log + L"\n").find(L" " + line + L"\n") != std::wstring::npos;
}

Morning::Morning(Desk& desk, Narrator& narrator, GroupwareInUse groupware, std::wstring pictures)
    : desk_(desk), narrator_(narrator), pictures_(std::move(pictures))
{
    if (groupware.outlook) sides_.push_back(std::make_unique<OutlookSide>(desk, narrator));
    if (groupware.notes) sides_.push_back(std::make_unique<NotesSide>(desk, narrator));
    desk_.setDefault("Application", "type",
                     !groupware.notes    ? "OUTLOOK"
                     : groupware.outlook ? "OUTLOOK,LOTUS"
                                         : "LOTUS");
}

void Morning::play()
{
    start();
    checkSynchronisation();
    playCallFromKnownNumber();
    playCallFromStranger();
    playForwardedCall();
    playOutgoingCall();
    playEditedIniFile();
    for (const auto& side : sides_) side->playOwnSteps();
    for (const auto& side : sides_) playGroupwareRestart(*side);
    playIconPress();
}

void Morning::start()
{
    for (const auto& side : sides_) narrator_.remark(L"Anna starts " + side->name() + L".");
    narrator_.remark(L"She starts the softphone and Hublink.");
    desk_.startSoftphone(morningSoftphone());
    for (const auto& side : sides_) side->start();
    desk_.startHublink();
    narrator_.expect(eachLogHas(L"Connector Initialization  Ok", startTimeout),
                     L"the log has the line \"Connector Initialization  Ok\"");
    narrator_.expect(desk_.softphone(L"attached") == L"True", L"the softphone has been attached to");
    // The switch is off in the file as installed; it takes effect at the next tick.
    desk_.setIni("AllApplication", "NewContact", "true");
    narrator_.expect(eachLogHas(L"Reload Ini data"),
                     L"\"NewContact\" is switched on in the ini file, and Hublink has read it");
}

bool Morning::eachLogHas(const std::wstring& line, DWORD timeout)
{
    return waitUntil(
        [&] {
            return std::all_of(sides_.begin(), sides_.end(), [&](auto& side) { return hasLine(side->log(), line); });
        },
        timeout);
}

void Morning::checkSynchronisation()
{
    narrator_.step(L"The softphone's address book and call history are brought into the groupware.");
    narrator_.expect(eachLogHas(L"Repertory Synchronisation Ok") && eachLogHas(L"History Synchronisation Ok"),
                     L"the log tells of both synchronisations");
    for (const auto& side : sides_) side->expectSynchronised();
}

void Morning::playCallFromKnownNumber()
{
    narrator_.step(L"0123456789 calls; Outlook has the number as 01.23.45.67.89.");
    ring(L"Number=0123456789 Incoming=true");
    for (const auto& side : sides_) side->expectKnownCaller();
    takePicture(L"desk");
    countCalls();
}

void Morning::playCallFromStranger()
{
    narrator_.step(L"06 55 44 33 22 calls; nobody has that number. The softphone knows the name.");
    ring(L"Number=\"06 55 44 33 22\" LastName=Nguyen FirstName=Linh Incoming=true");
    for (const auto& side : sides_) side->expectStranger();
    countCalls();
}

void Morning::playForwardedCall()
{
    narrator_.step(L"0123456789 calls and is forwarded to 4711, Claire Petit, who has a mail address.");
    ring(L"Number=0123456789 Incoming=true DestinationNumber=4711");
    for (const auto& side : sides_) side->expectMessage();
    for (const auto& side : sides_) side->bringMessageToFront();
    takePicture(L"desk-forwarded");
    countCalls();
}

void Morning::playOutgoingCall()
{
    narrator_.step(L"Anna calls 4711 herself.");
    ring(L"Number=4711 Incoming=false");
    narrator_.expect(waitUntil([&] { return !sides_.back()->calls().empty(); }, eventTimeout),
                     L"the groupware has been asked for the name");
    waitFor(quietPeriod);
    for (const auto& side : sides_) narrator_.expect(side->showsNothing(), side->name() + L": nothing has opened");
    countCalls();
}

void Morning::playEditedIniFile()
{
    narrator_.step(L"The text of the callback mail, or the showing of calendars, is changed in the ini file.");
    std::vector<std::size_t> before;
    for (const auto& side : sides_) before.push_back(side->log().size());
    for (const auto& side : sides_) side->editSetting();
    for (std::size_t k = 0; k < sides_.size(); ++k)
        narrator_.expect(
            waitUntil([&] { return hasLine(sides_[k]->log().substr(before[k]), L"Reload Ini data"); }, tickTimeout),
            sides_[k]->name() + L": the log has a new line \"Reload Ini data\"");
    ring(L"Number=0123456789 Incoming=true DestinationNumber=4711");
    for (const auto& side : sides_) side->expectChangedMessage();
}

void Morning::playGroupwareRestart(Side& side)
{
    narrator_.step(side.name() + L" is closed, and after a while opened again.");
    side.clear();
    side.close();
    waitFor(6000); // a tick must see that it is gone
    narrator_.expect(desk_.hublinkProcess().running(), L"Hublink goes on without it");
    desk_.softphone(L"clear");
    side.reopen();
    side.expectReadAgain();
    narrator_.expect(
        waitUntil([&] { return desk_.softphone(L"calls").find(L"HistoryItem") != std::wstring::npos; }, eventTimeout),
        L"it has gone through the softphone's records again");
    waitFor(quietPeriod);
    side.expectNothingTwice();
    ring(L"Number=0123456789 Incoming=true");
    for (const auto& each : sides_) each->expectKnownCaller(); // then none is in the middle of it any more
}

void Morning::playIconPress()
{
    constexpr const wchar_t* title = L"Hublink";
    // A click that falls while the desktop is busy may get lost; then one clicks again.
    const auto asked = [&] {
        for (int press = 0; press < 4 && messageBoxes(title).empty(); ++press) {
            moveToNotificationIcon();
            rightPress();
            waitUntil([&] { return !messageBoxes(title).empty(); }, eventTimeout / 4);
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
    takePicture(L"desk-question");
    narrator_.expect(answers(IDNO), L"the question is gone");
    waitFor(6000); // longer than a tick
    narrator_.expect(desk_.hublinkProcess().running(), L"Hublink goes on");
    if (!narrator_.expect(asked(), L"Hublink asks again")) return;
    narrator_.expect(answers(IDYES), L"the question is gone");
    narrator_.expect(desk_.hublinkProcess().ended(tickTimeout), L"Hublink is gone at the next tick");
    narrator_.expect(desk_.hublinkProcess().exitCode() == 0, L"its exit code is 0");
    for (Process* program : {&desk_.outlookProcess(), &desk_.notesProcess()})
        narrator_.expect(!*program || program->running(), L"the groupware is left running");
}

void Morning::ring(const std::wstring& fields)
{
    for (const auto& side : sides_) side->clear();
    desk_.softphone(L"clear");
    desk_.softphone(L"call " + fields);
}

void Morning::countCalls()
{
    waitFor(quietPeriod);
    std::wstring text = L"COM calls for it: softphone " + summary(desk_.softphone(L"calls"));
    for (const auto& side : sides_) text += L", " + side->name() + L" " + summary(side->calls());
    narrator_.remark(text);
}

void Morning::takePicture(const wchar_t* name)
{
    if (pictures_.empty()) return;
    waitFor(300); // until everything is painted
    desk::player::takePicture(pictures_ + L"\\" + name + L".bmp");
}

}
