#include "desk/player/fixtures.h"

#include "desk/player/morning_texts.h"

#include <cstdio>

namespace desk::player {

namespace {

// The ten digits of the n-th ordinary contact's number, in one of four layouts.
std::string ordinaryNumber(int n, int layout)
{
    static const char* const layouts[] = {"0%d%d0%03d%03d", "0%d %d0 %03d %03d", "0%d.%d0.%03d.%03d",
                                          "0%d-%d0-%03d-%03d"};
    char number[32];
    std::snprintf(number, sizeof number, layouts[layout], 2 + n % 4, n % 10, n, 7 * n % 1000);
    return number;
}

// The n-th ordinary contact, its number in one of three fields.
std::string ordinaryContact(int n)
{
    static const char* const fields[] = {"BusinessTelephoneNumber", "HomeTelephoneNumber", "MobileTelephoneNumber"};
    static const char* const firstNames[] = {"Alice", "Bernd", "Carla", "David", "Elena", "Franz", "Greta"};
    static const char* const lastNames[] = {"Adler",  "Blanc", "Costa",  "Dubois", "Engel", "Ferrari",
                                            "Garcia", "Huber", "Ibarra", "Jansen", "Koch"};
    return std::string("[contact]\nFirstName=") + firstNames[n % 7] + "\nLastName=" + lastNames[n % 11] + "\n" +
           fields[n % 3] + "=" + ordinaryNumber(n, n % 4) + "\n";
}

std::string entry(const std::string& number, const char* firstName, const char* lastName)
{
    return "[entry]\nNumber=" + number + "\nFirstName=" + firstName + "\nLastName=" + lastName + "\n";
}

// The n-th call of yesterday; the callers' numbers repeat, the times do not.
std::string pastCall(int n)
{
    static const char* const numbers[] = {"0123456789", "4711", "07 12 34 56 78", "", "0698765432"};
    char fields[160];
    std::snprintf(fields, sizeof fields,
                  "[history]\nNumber=%s\nIncoming=%s\nBeginDate=2023-03-14 %02d:05:00\n"
                  "EndDate=2023-03-14 %02d:07:30\nState=%d\nAcknowledged=%d\n",
                  numbers[n % 5], n % 3 ? "True" : "False", 8 + n % 12, 8 + n % 12, n % 4 == 1 ? 6 : 3, n % 4 == 2);
    return fields;
}

}

std::string morningContacts()
{
    std::string records;
    for (int n = 0; n < 60; ++n) records += ordinaryContact(n);
    records += "[contact]\nFirstName=Marc\nLastName=Durand\nMobileTelephoneNumber=01.23.45.67.89\n";
    for (int n = 60; n < 120; ++n) records += ordinaryContact(n);
    records += "[contact]\nFirstName=Claire\nLastName=Petit\nBusinessTelephoneNumber=4711\n"
               "Email1Address=claire.petit@example.com\n";
    return records;
}

std::string morningSoftphone()
{
    std::string records = "[user]\nFirstText=Anna\nSecondText=Keller\nNumber=4700\n";
    records += entry("0123456789", "Marc", "Durand") + entry("4711", "Claire", "Petit");
    for (int n : {1, 2, 4}) records += entry(ordinaryNumber(n, 2), "Colleague", std::to_string(n).c_str());
    records += entry("06.98.76.54.32", "Nora", "Lind") + entry("0611 22 33 44", "Omar", "Haddad") +
               entry("+49 30 1234", "Petra", "Vogel");
    for (int n = 0; n < callsOfYesterday; ++n) records += pastCall(n);
    return records;
}

std::string morningDatabases()
{
    std::string records(morning::companyBook);
    for (int n = 0; n < 40; ++n) {
        records += "\n[document]\nForm=Person\nFirstName=Colleague\nLastName=" + std::to_string(n) +
                   "\nFullName=Colleague " + std::to_string(n) + "/Acme\nOfficePhoneNumber=" + ordinaryNumber(n, 0) +
                   "\n";
    }
    return records.append("\n").append(morning::otherDatabases);
}

const std::vector<Setting>& notesSettings()
{
    static const char* const company = "lotus base description 1";
    static const char* const branch = "lotus base description 2";
    static const char* const personal = "lotus base description 3";
    static const std::vector<Setting> settings = [] {
        std::vector<Setting> all{
            {"lotus", "NbPublicAddressBook", "3"},
            {"lotus", "Order", "Base 1,Base 2,Base 3"},
            {"lotus", "ShowGrpwAgenda", "true"},
            {"lotus", "PopUpGrpwAgenda", "true"},
            {"lotus", "CallInMail", "true"},
            {company, "base", "company.nsf|Mail1/Acme|People||"},
            {company, "PersonalAddressBook", "false"},
            {branch, "base", "branch.nsf|Mail1/Acme|||"},
            {personal, "base", "names.nsf||Contacts|($Phones)|($Mails)"},
            {personal, "PersonalAddressBook", "true"},
            {"lotus personnel log description", "base", "connector.nsf||||"},
        };
        for (const char* book : {company, branch, personal}) {
            all.push_back({book, "LastName", "LastName"});
            all.push_back({book, "FirstName", "FirstName"});
            all.push_back({book, "FullName", "FullName"});
            all.push_back({book, "PhoneNumber", "OfficePhoneNumber,CellPhoneNumber"});
            all.push_back({book, "MailAddress", "InternetAddress"});
            all.push_back({book, "Form", "Person"});
            all.push_back({book, "TypeForm", "Person"});
        }
        return all;
    }();
    return settings;
}

}
