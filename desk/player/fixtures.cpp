#include "desk/player/fixtures.h"

#include <cstdio>

namespace desk::player {

namespace {

// The n-th ordinary contact: ten digits in one of four layouts, in one of
// three fields.
std::string ordinaryContact(int n)
{
    static const char* const layouts[] = {"0%d%d0%03d%03d", "0%d %d0 %03d %03d", "0%d.%d0.%03d.%03d", "0%d-%d0-%03d-%03d"};
    static const char* const fields[] = {"BusinessTelephoneNumber", "HomeTelephoneNumber", "MobileTelephoneNumber"};
    static const char* const firstNames[] = {"Alice", "Bernd", "Carla", "David", "Elena", "Franz", "Greta"};
    static const char* const lastNames[] = {"Adler", "Blanc", "Costa", "Dubois", "Engel", "Ferrari", "Garcia", "Huber",
                                            "Ibarra", "Jansen", "Koch"};
    char number[32];
    std::snprintf(number, sizeof number, layouts[n % 4], 2 + n % 4, n % 10, n, 7 * n % 1000);
    return std::string("[contact]\nFirstName=") + firstNames[n % 7] + "\nLastName=" + lastNames[n % 11] + "\n" +
           fields[n % 3] + "=" + number + "\n";
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
    return "[user]\nFirstText=Anna\nSecondText=Keller\nNumber=4700\n";
}

}
