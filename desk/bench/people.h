// The records that the bench measures with. All are made up by number, so that
// every run has the same.
#pragma once

#include <string>
#include <vector>

namespace desk::bench {

struct Person {
    std::string firstName;
    std::string lastName;
    std::string number;  // in whatever layout
    std::string mail{};  // an address, "" without one
};

using People = std::vector<Person>;

// Contacts of a groupware, their numbers written in several layouts. Nobody
// has the number strangersNumber() or one of the two below.
People contacts(int count);
std::string strangersNumber();

// Who calls, and the colleague to whom he is forwarded. Their numbers are bare:
// as the softphone tells them.
Person caller();
Person colleague();

// The ten digits as people write them: in pairs with dots, with blanks or with both.
std::string inLayout(const std::string& number, int layout);
std::string withoutSeparators(std::string number);

// A softphone and a groupware that know half of its entries already, each
// under another layout of the number.
struct SynchronisationRecords {
    People contacts;
    std::string softphone; // the text of its store
    // How many contacts the walks of a first synchronisation ask for: each walk
    // as far as its contact, or to the end and once more.
    std::size_t walked = 0;
};

// 150 contacts, `entries` (even, at most 200) of the address book and `items`
// of the history. Of 20 history items, 18 are calls of people in the address
// book, one is a stranger's and one has no number.
SynchronisationRecords synchronisationRecords(int entries, int items);

}
