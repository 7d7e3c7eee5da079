#include "desk/bench/people.h"

#include <cstdio>

namespace desk::bench {

namespace {

constexpr int contactsInSynchronisation = 150;
constexpr int knownInSynchronisation = 100; // two of three contacts

enum class Kind { contact = 1, known = 2, fresh = 3, stranger = 4 };

// Ten digits that no other (kind, n) has.
std::string digits(Kind kind, int n)
{
    char text[16];
    const long long mixed = (7919LL * n + 12345) % 100'000'000; // 7919 has no factor of 10: distinct
    std::snprintf(text, sizeof text, "0%d%08lld", static_cast<int>(kind), mixed);
    return text;
}

Person person(const std::string& number, int n)
{
    static const char* const firstNames[] = {"Alice", "Bernd", "Carla", "David", "Elena", "Franz", "Greta"};
    static const char* const lastNames[] = {"Adler",  "Blanc", "Costa",  "Dubois", "Engel", "Ferrari",
                                            "Garcia", "Huber", "Ibarra", "Jansen", "Koch"};
    return {firstNames[n % 7], lastNames[n % 11], number};
}

// Every second entry is known: it has the number of a contact.
bool isKnown(int entry)
{
    return entry % 2 == 0;
}

int knownNumber(int entry)
{
    return entry / 2 * 37 % knownInSynchronisation; // all over the contacts
}

std::size_t placeOfKnown(int known)
{
    return static_cast<std::size_t>(known / 2 * 3 + known % 2);
}

std::string entryNumber(int entry)
{
    return isKnown(entry) ? digits(Kind::known, knownNumber(entry)) : digits(Kind::fresh, entry);
}

std::string fieldsOf(const Person& person)
{
    return "Number=" + person.number + "\nLastName=" + person.lastName + "\nFirstName=" + person.firstName + "\n";
}

bool isStrangers(int item)
{
    return item % 20 == 9;
}

std::string historyNumber(int item, int entries)
{
    if (isStrangers(item)) return digits(Kind::stranger, item);
    if (item % 20 == 19) return "";
    return entryNumber(7 * item % entries);
}

std::string historyRecord(int n, int entries)
{
    const Person party = person(historyNumber(n, entries), n);
    char rest[160];
    std::snprintf(rest, sizeof rest,
                  "Incoming=%s\nBeginDate=2023-03-%02d %02d:%02d:00\nEndDate=2023-03-%02d %02d:%02d:30\nState=%d\n"
                  "Acknowledged=%d\n",
                  n % 3 ? "True" : "False", 1 + n / 60 % 28, 8 + n % 10, n % 60, 1 + n / 60 % 28, 8 + n % 10, n % 60,
                  n % 5 ? 3 : 6, n % 2);
    return "[history]\nId=2." + std::to_string(n + 1) + "\n" + fieldsOf(party) + rest;
}

// See SynchronisationRecords::walked. What the groupware's own filter finds
// costs no walk: the history's numbers, by then, but for the strangers'.
std::size_t walkedContacts(int entries, int items)
{
    std::size_t all = contactsInSynchronisation;
    std::size_t walked = 0;
    for (int n = 0; n < entries; ++n) // a new one is added at the end
        walked += isKnown(n) ? placeOfKnown(knownNumber(n)) + 1 : ++all;
    for (int n = 0; n < items; ++n)
        if (isStrangers(n)) walked += all + 1;
    return walked;
}

}

std::string inLayout(const std::string& number, int layout)
{
    static const char* const separators[] = {"....", "    ", ". . "};
    std::string text = number.substr(0, 2);
    for (int pair = 0; pair < 4; ++pair)
        text += separators[layout % 3][pair] + number.substr(2 + 2 * static_cast<std::size_t>(pair), 2);
    return text;
}

std::string withoutSeparators(std::string number)
{
    std::erase_if(number, [](char letter) { return letter == '.' || letter == ' '; });
    return number;
}

Person caller()
{
    return {"Marc", "Durand", "0555123456"};
}

Person colleague()
{
    return {"Claire", "Petit", "0566123456", "claire.petit@example.com"};
}

std::string strangersNumber()
{
    return digits(Kind::stranger, 0);
}

People contacts(int count)
{
    People people;
    for (int n = 0; n < count; ++n) {
        const std::string number = digits(Kind::contact, n);
        people.push_back(person(n % 4 == 3 ? number : inLayout(number, n), n));
    }
    return people;
}

SynchronisationRecords synchronisationRecords(int entries, int items)
{
    SynchronisationRecords records;
    records.contacts = contacts(contactsInSynchronisation);
    for (int known = 0; known < knownInSynchronisation; ++known)
        records.contacts[placeOfKnown(known)].number = inLayout(digits(Kind::known, known), known);
    for (int n = 0; n < entries; ++n)
        records.softphone += "[entry]\nId=1." + std::to_string(n + 1) + "\n" + fieldsOf(person(entryNumber(n), n));
    for (int n = 0; n < items; ++n) records.softphone += historyRecord(n, entries);
    records.walked = walkedContacts(entries, items);
    return records;
}

}
