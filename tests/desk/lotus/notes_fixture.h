// What the tests of the simulated Notes share.
#pragma once

#include "automation/array.h"
#include "automation/object.h"
#include "desk/lotus/in_process.h"
#include "support/failure.h"

#include <gtest/gtest.h>

#include <string>

// Two books and a mail file on a server; the second book is local.
inline constexpr std::wstring_view books = LR"([notes]
UserName=CN=Anna Keller/OU=Paris/O=Acme

[environment]
$Dialer=on
Location=Office

[database]
Server=CN=Mail1/OU=Paris/O=Acme
File=books\\contacts.nsf
Title=Contacts

[form]
Name=Person
Alias=P
Title=FullName
Field=LastName
Field=FullName
Field=Age:number
Field=Body:richtext

[view]
Name=People
Alias=ByName
Key=LastName
Key=FirstName
Form=Person

[view]
Name=($Phones)
Key=Phone

[document]
Form=Person
LastName=Durand
FirstName=Marc
FullName=Marc Durand
Phone=0612345678
Age:number=35
Born:date=1980-02-29

[document]
Form=Person
LastName=abel
FirstName=Ann
FullName=Ann Abel
Phone=+33-1.42
Phone+=0699
Body:richtext=two\nlines

[document]
Form=Memo
Subject=Order of Durand
Phone=0612345678

[database]
File=local.nsf
Title=Local

[document]
Form=Person
LastName=Zola
)";

class NotesFixture : public testing::Test {
protected:
    NotesFixture() { notes.load(books); }

    automation::Object session() { return notes.create(L"Notes.NotesSession"); }
    automation::Object workspace() { return notes.create(L"Notes.NotesUIWorkspace"); }

    automation::Object contacts()
    {
        return session().get(L"GetDatabase", {L"Mail1/Paris/Acme", L"books\\contacts.nsf"}).object();
    }

    automation::Object view(const wchar_t* name) { return contacts().get(L"GetView", {name}).object(); }

    automation::Object person(const wchar_t* lastName)
    {
        return view(L"People").get(L"GetDocumentByKey", {lastName, true}).object();
    }

    // What an item's first value is; the arrays have one element and more.
    static automation::Value first(const automation::Object& document, const wchar_t* item)
    {
        return automation::elementsOf(document.get(L"GetItemValue", {item})).at(0);
    }

    desk::lotus::InProcess notes;
};
