#include "desk/player/outlook_side.h"

#include "automation/object.h"
#include "desk/common/text.h"
#include "desk/player/fixtures.h"
#include "desk/player/timeouts.h"

namespace desk::player {

namespace {

const std::wstring callbackSubject = L"Please call Marc Durand back at 0123456789";

}

void OutlookSide::start()
{
    desk_.startOutlook(morningContacts());
    contacts_ = parseStore(desk_.outlook(L"contacts")).size();
}

void OutlookSide::clear()
{
    desk_.outlook(L"close-windows");
    desk_.outlook(L"clear");
}

void OutlookSide::expectSynchronised()
{
    narrator_.expect(eachOnce(), L"Outlook: " + std::to_wstring(strangersToOutlook) +
                                     L" contacts are new, the entries that it knew in other layouts were not copied, "
                                     L"and " +
                                     std::to_wstring(callsOfYesterday) + L" calls lie in the journal");
    desk_.outlook(L"show Journal");
}

// Whether every entry and every call of yesterday is there exactly once.
bool OutlookSide::eachOnce()
{
    std::size_t calls = 0;
    for (const StoreRecord& record : parseStore(desk_.outlook(L"journal"))) {
        const std::wstring* type = record.find(L"Type");
        calls += type && *type == L"Phone Call";
    }
    return calls == callsOfYesterday && parseStore(desk_.outlook(L"contacts")).size() == contacts_ + strangersToOutlook;
}

void OutlookSide::expectNothingTwice()
{
    narrator_.expect(eachOnce(), L"Outlook: nothing has been copied twice");
}

void OutlookSide::expectKnownCaller()
{
    narrator_.expect(desk_.outlookShows(L"Marc Durand - Contact"),
                     L"Outlook: the contact of Marc Durand is on the screen");
    const auto marc = desk_.record(L"contacts", L"LastName", L"Durand");
    const std::wstring* number = marc ? marc->find(L"MobileTelephoneNumber") : nullptr;
    narrator_.expect(number && *number == L"0123456789", L"Outlook: his number is stored as 0123456789 now");
}

void OutlookSide::expectStranger()
{
    narrator_.expect(desk_.outlookShows(L"Linh Nguyen - Contact"),
                     L"Outlook: a new contact of Linh Nguyen is on the screen");
    const auto linh = desk_.record(L"contacts", L"LastName", L"Nguyen");
    const auto has = [&](const wchar_t* field, const wchar_t* value) {
        const std::wstring* text = linh ? linh->find(field) : nullptr;
        return text && *text == value;
    };
    narrator_.expect(has(L"FirstName", L"Linh") && has(L"BusinessTelephoneNumber", L"0655443322"),
                     L"Outlook keeps it, with first name, last name and the number 0655443322");
    narrator_.expect(waitUntil([&] { return hasLine(log(), L"New contact 0655443322 Nguyen Linh"); }, eventTimeout),
                     L"Outlook: the log item has the line \"New contact 0655443322 Nguyen Linh\"");
    ++contacts_;
}

void OutlookSide::expectMessage()
{
    narrator_.expect(desk_.outlookShows(callbackSubject + L" - Message"),
                     L"Outlook: a mail \"" + callbackSubject + L"\" is on the screen");
    const auto mail = desk_.record(L"mails", L"Subject", callbackSubject);
    const std::wstring* to = mail ? mail->find(L"To") : nullptr;
    const std::wstring* body = mail ? mail->find(L"Body") : nullptr;
    narrator_.expect(to && *to == L"claire.petit@example.com" && (!body || body->empty()),
                     L"Outlook: it is addressed to claire.petit@example.com and its body is empty");
}

void OutlookSide::bringMessageToFront()
{
    desk_.outlookShows(L"Marc Durand - Contact");
    bringToFront(callbackSubject + L" - Message");
}

void OutlookSide::editSetting()
{
    desk_.setIni("outlook", "CallBackMailSyntaxe", "<LastName>: <PhoneNumber>");
}

void OutlookSide::expectChangedMessage()
{
    narrator_.expect(desk_.outlookShows(L"Durand: 0123456789 - Message"),
                     L"Outlook: the next callback mail has the new text");
}

void OutlookSide::expectReadAgain()
{
    narrator_.expect(
        waitUntil([&] { return calls().find(L"NameSpace.GetDefaultFolder") != std::wstring::npos; }, tickTimeout),
        L"Outlook: Hublink has opened a new session");
}

void OutlookSide::playOwnSteps()
{
    narrator_.step(L"Anna opens the item \"Connector Log\" in Outlook's journal.");
    using automation::Object;
    const Object outlook = Object::create(L"Outlook.Application");
    const Object journal =
        outlook.get(L"GetNamespace", {L"MAPI"}).object().get(L"GetDefaultFolder", {std::int32_t{11}}).object();
    const Object item = journal.get(L"Items").object().get(L"Find", {L"[Subject] = 'Connector Log'"}).object();
    if (!narrator_.expect(static_cast<bool>(item), L"there is one")) return;
    item.call(L"Display");
    narrator_.expect(desk_.outlookShows(L"Connector Log - Journal Entry"), L"it is on the screen");
    for (const std::wstring& line : linesOf(log())) narrator_.remark(L"         " + line);
    narrator_.expect(log().find(L" Start Connector Initialization\n") != std::wstring::npos,
                     L"its lines are joined by line feeds");
}

}
