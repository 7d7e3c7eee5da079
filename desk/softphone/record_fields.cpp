#include "desk/softphone/record_fields.h"

#include "automation/conversion.h"
#include "automation/error.h"
#include "desk/common/text.h"

#include <functional>
#include <map>
#include <stdexcept>

namespace desk::softphone {

namespace {

constexpr std::wstring_view blanks = L" \t\r\n";

// A value in quotes, from behind the opening one; `text` keeps what follows it.
std::wstring takeQuoted(std::wstring_view& text)
{
    std::wstring raw;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == L'"') {
            text.remove_prefix(at + 1);
            return unescaped(raw);
        }
        if (text[at] == L'\\' && at + 1 < text.size()) {
            ++at;
            if (text[at] != L'"') raw += L'\\';
        }
        raw += text[at];
    }
    throw std::runtime_error("a closing quote is missing");
}

std::wstring takeBare(std::wstring_view& text)
{
    const std::size_t end = std::min(text.find_first_of(blanks), text.size());
    const std::wstring value(text.substr(0, end));
    text.remove_prefix(end);
    return unescaped(value);
}

bool truthOf(const std::wstring& text)
{
    const std::wstring lower = lowerCase(text);
    if (lower != L"true" && lower != L"false")
        throw std::runtime_error("\"" + utf8(text) + "\" is neither true nor false");
    return lower == L"true";
}

std::int16_t codeOf(const std::wstring& text)
try {
    return automation::int16FromText(text);
} catch (const automation::AutomationError&) {
    throw std::runtime_error("\"" + utf8(text) + "\" is no 16-bit number");
}

const wchar_t* textOf(bool truth)
{
    return truth ? L"true" : L"false";
}

// Where each field of a record goes, by name in lower case.
using Setters = std::map<std::wstring_view, std::function<void(const std::wstring&)>>;

void assign(const Fields& fields, const Setters& setters)
{
    for (const auto& [name, value] : fields) {
        const auto setter = setters.find(lowerCase(name));
        if (setter == setters.end()) throw std::runtime_error("unknown field \"" + utf8(name) + "\"");
        setter->second(value);
    }
}

std::function<void(const std::wstring&)> into(std::wstring& target)
{
    return [&target](const std::wstring& value) { target = value; };
}

Setters settersOf(Party& party)
{
    return {{L"number", into(party.number)},
            {L"lastname", into(party.lastName)},
            {L"last", into(party.lastName)},
            {L"firstname", into(party.firstName)},
            {L"first", into(party.firstName)}};
}

void add(Fields& fields, const Party& party)
{
    fields.emplace_back(L"Number", party.number);
    fields.emplace_back(L"LastName", party.lastName);
    fields.emplace_back(L"FirstName", party.firstName);
}

}

Fields parseFields(std::wstring_view line)
{
    Fields fields;
    for (;;) {
        line.remove_prefix(std::min(line.find_first_not_of(blanks), line.size()));
        if (line.empty()) return fields;
        const std::size_t sign = line.find(L'=');
        const std::wstring name(line.substr(0, sign));
        if (sign == 0 || sign == std::wstring_view::npos || name.find_first_of(blanks) != std::wstring::npos)
            throw std::runtime_error("Field=value expected at \"" + utf8(line) + "\"");
        line.remove_prefix(sign + 1);
        const bool quoted = line.starts_with(L'"');
        if (quoted) line.remove_prefix(1);
        fields.emplace_back(name, quoted ? takeQuoted(line) : takeBare(line));
    }
}

std::wstring lineOf(const Fields& fields)
{
    std::wstring line;
    for (const auto& [name, value] : fields) {
        line += (line.empty() ? L"" : L" ") + name + L"=\"";
        for (const wchar_t c : escaped(value)) line += c == L'"' ? std::wstring(L"\\\"") : std::wstring(1, c);
        line += L'"';
    }
    return line;
}

User userOf(const Fields& fields)
{
    User user;
    assign(
        fields,
        {{L"firsttext", into(user.firstText)}, {L"secondtext", into(user.secondText)}, {L"number", into(user.number)}});
    return user;
}

HistoryRecord historyRecordOf(const Fields& fields)
{
    HistoryRecord record;
    record.begin = automation::now();
    bool endGiven = false;
    Setters setters = settersOf(record.party);
    const auto setBegin = [&](const std::wstring& value) { record.begin = dateFromIso(value); };
    const auto setEnd = [&](const std::wstring& value) {
        record.end = dateFromIso(value);
        endGiven = true;
    };
    const auto setAcknowledged = [&](const std::wstring& value) { record.acknowledged = codeOf(value); };
    setters.insert({{L"id", [&](const std::wstring& value) { record.id = recordIdOf(value); }},
                    {L"incoming", [&](const std::wstring& value) { record.incoming = truthOf(value); }},
                    {L"begindate", setBegin},
                    {L"begin", setBegin},
                    {L"enddate", setEnd},
                    {L"end", setEnd},
                    {L"state", [&](const std::wstring& value) { record.state = codeOf(value); }},
                    {L"acknowledged", setAcknowledged},
                    {L"ack", setAcknowledged}});
    assign(fields, setters);
    if (!endGiven) record.end = record.begin;
    return record;
}

EntryRecord entryRecordOf(const Fields& fields)
{
    EntryRecord record;
    Setters setters = settersOf(record.party);
    setters.emplace(L"id", [&](const std::wstring& value) { record.id = recordIdOf(value); });
    assign(fields, setters);
    return record;
}

CallRecord callRecordOf(const Fields& fields)
{
    CallRecord record;
    Setters setters = settersOf(record.party);
    setters.insert({{L"incoming", [&](const std::wstring& value) { record.incoming = truthOf(value); }},
                    {L"destinationnumber", into(record.destinationNumber)},
                    {L"destination", into(record.destinationNumber)}});
    assign(fields, setters);
    return record;
}

Fields fieldsOf(const User& user)
{
    return {{L"FirstText", user.firstText}, {L"SecondText", user.secondText}, {L"Number", user.number}};
}

Fields fieldsOf(const HistoryRecord& record)
{
    Fields fields{{L"Id", textOf(record.id)}, {L"Incoming", textOf(record.incoming)}};
    add(fields, record.party);
    fields.emplace_back(L"BeginDate", isoText(record.begin));
    fields.emplace_back(L"EndDate", isoText(record.end));
    fields.emplace_back(L"State", std::to_wstring(record.state));
    fields.emplace_back(L"Acknowledged", std::to_wstring(record.acknowledged));
    return fields;
}

Fields fieldsOf(const EntryRecord& record)
{
    Fields fields{{L"Id", textOf(record.id)}};
    add(fields, record.party);
    return fields;
}

}
