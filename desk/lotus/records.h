// What Notes keeps, as records of the store file:
//
//     [notes]
//     UserName=CN=Anna Keller/O=Acme
//
//     [environment]
//     $Dialer=on
//
//     [database]
//     Server=CN=Mail1/O=Acme
//     File=books\\contacts.nsf
//     Title=Contacts
//
//     [form]                        of the database before it
//     Name=Person
//     Field=LastName
//     Field=Age:number
//
//     [view]                        of the database before it
//     Name=People
//     Key=LastName
//     Form=Person
//
//     [document]                    of the database before it
//     Form=Person
//     LastName=Durand
//     Phone=0612345678              a text
//     Phone+=0412345678             its second value
//     Age:number=35                 a number; also :date and :richtext
#pragma once

#include "desk/common/store_file.h"
#include "desk/lotus/behaviour.h"
#include "desk/lotus/workspace.h"

namespace desk::lotus {

struct Contents {
    std::wstring userName = L"CN=Notes User/O=Acme";
    std::wstring version = L"Release 8.5.3|September 15, 2011";
    Behaviour behaviour;
    std::vector<std::pair<std::wstring, std::wstring>> environment;
    std::vector<SharedDatabase> databases;
    std::vector<Icon> icons;
};

// Throws std::runtime_error that names the line.
Contents contentsOf(const std::vector<StoreRecord>& records);
std::vector<StoreRecord> recordsOf(const Contents& contents);

}
