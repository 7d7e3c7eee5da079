#include "desk/softphone/control.h"

#include "desk/common/text.h"
#include "desk/softphone/record_fields.h"

#include <map>
#include <stdexcept>

namespace desk::softphone {

namespace {

const std::wstring ok = L"ok";

// Whether the next word is this one; takes it if so.
bool takes(std::wstring_view& rest, std::wstring_view word)
{
    std::wstring_view after = rest;
    if (takeWord(after) != word) return false;
    rest = after;
    return true;
}

template <class Record>
std::wstring listOf(const std::vector<Record>& records)
{
    std::vector<std::wstring> lines;
    for (const Record& record : records) lines.push_back(lineOf(fieldsOf(record)));
    return joined(lines);
}

std::wstring switchText(const wchar_t* name, bool on)
{
    return std::wstring(name) + (on ? L" on" : L" off");
}

bool switchOf(std::wstring_view text)
{
    if (text != L"on" && text != L"off") throw std::runtime_error("on or off is missing");
    return text == L"on";
}

}

Control::Control(Softphone& softphone, std::function<void()> quit) : softphone_(softphone), quit_(std::move(quit)) {}

std::optional<std::wstring> Control::command(const std::wstring& word, std::wstring_view rest)
{
    static const std::map<std::wstring, Handler> handlers{
        {L"user", &Control::user},           {L"call", &Control::call},
        {L"hangup", &Control::hangUp},       {L"history", &Control::history},
        {L"entries", &Control::entries},     {L"entry", &Control::entry},
        {L"quit", &Control::quit},           {L"subscribers", &Control::subscribers},
        {L"pending", &Control::pending},     {L"attached", &Control::attached},
        {L"discovery", &Control::discovery}, {L"count", &Control::count},
        {L"missing", &Control::missing},     {L"answer", &Control::answer},
    };
    const auto handler = handlers.find(word);
    if (handler == handlers.end()) return std::nullopt;
    return (this->*handler->second)(rest);
}

std::wstring Control::user(std::wstring_view rest)
{
    const std::size_t bar = rest.find(L'|');
    if (bar == std::wstring_view::npos) throw std::runtime_error("user FIRSTTEXT|SECONDTEXT expected");
    User& user = softphone_.phone().contents.user;
    user.firstText = rest.substr(0, bar);
    rest.remove_prefix(bar + 1);
    const std::size_t second = std::min(rest.find(L'|'), rest.size());
    user.secondText = rest.substr(0, second);
    if (second < rest.size()) user.number = rest.substr(second + 1);
    softphone_.phone().tellChanged();
    return ok;
}

std::wstring Control::call(std::wstring_view rest)
{
    const bool sync = takes(rest, L"sync");
    softphone_.ring(callRecordOf(parseFields(rest)));
    if (sync) softphone_.deliver();
    return ok;
}

std::wstring Control::hangUp(std::wstring_view)
{
    softphone_.hangUp();
    return ok;
}

std::wstring Control::history(std::wstring_view rest)
{
    if (rest.empty()) return listOf(softphone_.phone().contents.history.records());
    const std::wstring action = takeWord(rest);
    const bool sync = takes(rest, L"sync");
    std::wstring response = ok;
    if (action == L"add") response = textOf(softphone_.addHistory(historyRecordOf(parseFields(rest))));
    else if (action == L"delete") softphone_.removeHistory(recordIdOf(takeWord(rest)));
    else throw std::runtime_error("history add or history delete expected");
    if (sync) softphone_.deliver();
    return response;
}

std::wstring Control::entries(std::wstring_view)
{
    return listOf(softphone_.phone().contents.entries.records());
}

std::wstring Control::entry(std::wstring_view rest)
{
    const std::wstring action = takeWord(rest);
    const bool sync = takes(rest, L"sync");
    std::wstring response = ok;
    if (action == L"add") response = textOf(softphone_.addEntry(entryRecordOf(parseFields(rest))));
    else if (action == L"delete") softphone_.removeEntry(recordIdOf(takeWord(rest)));
    else throw std::runtime_error("entry add or entry delete expected");
    if (sync) softphone_.deliver();
    return response;
}

std::wstring Control::quit(std::wstring_view)
{
    quit_ ? quit_() : softphone_.quit();
    return ok;
}

std::wstring Control::subscribers(std::wstring_view)
{
    std::vector<std::wstring> lines;
    for (const auto& [object, count] : softphone_.subscribers())
        lines.push_back(object + L" " + std::to_wstring(count));
    return joined(lines);
}

std::wstring Control::pending(std::wstring_view)
{
    return std::to_wstring(softphone_.waiting());
}

std::wstring Control::attached(std::wstring_view)
{
    return softphone_.phone().attached ? L"True" : L"False";
}

std::wstring Control::discovery(std::wstring_view rest)
{
    Discovery& ways = softphone_.phone().discovery;
    if (rest.empty())
        return joined({switchText(L"classinfo2", ways.classInfo2), switchText(L"classinfo", ways.classInfo),
                       switchText(L"typeinfo", ways.typeInfo)});
    const std::wstring way = takeWord(rest);
    const bool on = switchOf(rest);
    if (way == L"classinfo2") ways.classInfo2 = on;
    else if (way == L"classinfo") ways.classInfo = on;
    else if (way == L"typeinfo") ways.typeInfo = on;
    else if (way == L"all") ways = {on, on, on};
    else throw std::runtime_error("discovery of classinfo2, classinfo, typeinfo or all expected");
    return ok;
}

std::wstring Control::count(std::wstring_view rest)
{
    Phone& phone = softphone_.phone();
    const std::wstring action = takeWord(rest);
    std::optional<std::int32_t> told;
    if (action == L"lie") told = static_cast<std::int32_t>(numberOf(takeWord(rest), "number of records"));
    else if (action != L"true") throw std::runtime_error("count lie N or count true expected");
    if (rest != L"entries") phone.historyCount = told;
    if (rest != L"history") phone.addressBookCount = told;
    return ok;
}

std::wstring Control::missing(std::wstring_view rest)
{
    const std::wstring member = takeWord(rest);
    if (member.empty()) throw std::runtime_error("missing Class.Member expected");
    FaultPlan& faults = softphone_.phone().recorder.faults;
    faults.add(L"on " + member + L" lookup fail 0x80020006"); // DISP_E_UNKNOWNNAME
    faults.add(L"on " + member + L" fail 0x80020003");        // DISP_E_MEMBERNOTFOUND
    return ok;
}

std::wstring Control::answer(std::wstring_view rest)
{
    softphone_.phone().answers.set(rest);
    return ok;
}

}
