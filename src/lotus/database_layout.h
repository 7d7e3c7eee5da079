// How the Notes databases are laid out that the program searches and writes:
// where each one lies, and which of its items carry what.
#pragma once

#include <string>
#include <vector>

namespace hublink {

// Where a database lies, and its views. An empty view name: it has no such view.
struct LotusBaseRef {
    std::wstring Base;     // file name (.nsf)
    std::wstring Server;   // "" is this machine
    std::wstring MainView;
    std::wstring ViewTel;  // keyed by telephone number
    std::wstring ViewMail; // keyed by mail address

    bool operator==(const LotusBaseRef&) const = default;
};

// An address book; the names are those of the items in a person's document.
struct LotusAddressBook : LotusBaseRef {
    bool PersonalAddressBook = false;
    std::wstring LastName;
    std::wstring FirstName;
    std::vector<std::wstring> PhoneNumber;
    std::wstring FullName;
    std::vector<std::wstring> MailAddress;
    std::wstring Form;     // the values of a person document's "Form" and "Type"
    std::wstring TypeForm;

    bool operator==(const LotusAddressBook&) const = default;
};

// The call history; the names are those of the items in a call's document.
struct CallLogDescription : LotusBaseRef {
    std::wstring LastName;
    std::wstring FirstName;
    std::wstring PhoneNumber;
    std::wstring State;
    std::wstring Incoming;
    std::wstring Extern;
    std::wstring BeginDate;
    std::wstring EndDate;
    std::wstring Form;
    std::wstring TypeForm;
    std::wstring TypeCall;
    std::wstring Acknowledged;
    std::wstring InfoSupdocNoteId;
    std::wstring InfoSupServer;
    std::wstring InfoSupBase;

    bool operator==(const CallLogDescription&) const = default;
};

// The database of the program's own log.
struct PersonalLogDescription : LotusBaseRef {
    std::wstring Body;
    std::wstring Events;
    std::wstring Form;
    std::wstring TypeForm;
    std::wstring StartTime;
    std::wstring FinishTime;
    std::wstring serverItem; // of the key "Server"

    bool operator==(const PersonalLogDescription&) const = default;
};

// Fills a locator from five parts separated by "|": base, server, main view,
// telephone view, mail view. Fewer parts change nothing, further ones are ignored.
void SplitBaseDescription(const std::wstring& text, LotusBaseRef& locator);

}
