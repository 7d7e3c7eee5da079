// Everything that the program says, one table per language. A text that is missing from
// a table, or has other gaps there, does not compile.
#pragma once

#include "check/words.h"

#include <windows.h>

namespace hublink::check {

struct ReportTexts {
    Text<2> title;         // version, date and time
    Text<1> system;        // Windows's version
    Text<0> ok;            // the marks
    Text<0> note;
    Text<0> problem;
    Text<0> nothingWrong;
    Text<2> verdict;       // problems, notes
    Text<1> saved;         // file
    Text<2> notSaved;      // file, why
    Text<0> usage;
    Text<0> failed;        // the program itself
};

struct SoftphoneTexts {
    Text<0> title;
    Text<1> folder;
    Told<0> noFolder;
    Told<0> folderUnreadable;
    Told<1> folderInOtherView;
    Told<1> folderMissing;
    Told<1> programMissing; // pavex.exe
    Text<1> server;
    Told<0> noServer;
    Text<1> user;
    Told<0> noUser;
};

// Automation classes: {1} is always the class's name.
struct ClassTexts {
    Text<2> registered;    // program
    Text<2> registered64;  // program, in the 64-bit part of the registry
    Text<2> inProcess;     // library
    Text<1> offered;       // by a running program
    Told<1> notRegistered;
    Told<1> withoutServer;
    Told<2> serverMissing; // program
    Told<2> inProcess64;   // library
};

struct IniTexts {
    Text<0> title;
    Text<1> file;
    Text<0> ansi;
    Text<0> utf8;
    Text<0> utf16;
    Told<0> noSoftphone;
    Told<1> toBeInstalled;
    Told<1> missing;
    Told<1> noFolder;
    Told<1> isFolder;
    Told<2> unreadable;    // file, error
    Told<1> tooLarge;
    Told<1> beyondCodePage;
    Told<0> notText;
    Told<0> utf8Mark;
    Told<0> utf16Reversed;
    Told<0> lostCharacters;
    Told<1> strayLine;     // line
    Told<3> sectionTwice;  // section, lines
    Told<2> unknownSection; // section, line
    Told<2> bookNotCounted; // section, line
    Told<4> keyTwice;      // section, key, lines
    Told<3> unknownKey;    // section, key, line
    Told<4> likelyKey;     // section, key, line, what it resembles
    Told<4> keyElsewhere;  // section, key, line, where it belongs

    // {1} section, {2} key, {3} value
    Text<2> on;
    Text<3> off;
    Told<3> offThoughMeantOn;
    Told<3> offForOtherText;
    Text<2> absentOn;
    Text<2> absentOff;
    Text<3> milliseconds;
    Told<3> notNumber;
    Text<3> value;
    Text<2> empty;
    Text<3> absent;        // what counts then
    Text<2> absentEmpty;
    Told<2> cut;
    Told<2> baseParts;

    Told<2> unknownGroupware; // key, what is unknown
    Told<0> typeReplaced;
    Told<0> noGroupware;
    Told<0> stopRequest;
    Text<0> outlookNotRead;
    Text<0> lotusNotRead;
    Told<1> readingEnds;   // key
    Text<2> booksInOrder;     // number, names
    Told<1> bookNotDescribed; // section
    Told<1> bookWithoutViews; // its place in the order
    Told<0> noPersonalBook;
};

struct GroupwareTexts {
    Text<0> title;
    Text<0> none;
    Text<0> outlookNotUsed;
    Text<0> notesNotUsed;
    Told<0> newOutlook;
};

struct MapTexts {
    Text<0> title;
    Told<1> registersItself; // program
    Told<1> otherServer;     // program
    Text<1> store;
    Text<0> missing;
    Text<0> blank;
    Text<1> sound;           // number of records
    Told<1> unfinished;
    Told<1> damaged;
    Told<0> newer;
    Told<1> unreadable;      // why
    Text<3> records;         // application, contacts, calls
    Told<2> foreignRecords;  // application, number
    Told<0> replacement;
    Told<1> damagedCopies;
    Told<0> noFolder;        // for application data
    Text<0> listTitle;
    Text<0> contact;
    Text<0> call;
    Text<4> mapping;         // softphone's identifier, groupware's, application, kind
    Text<0> nothingMapped;
};

struct DictionaryTexts {
    Text<0> title;
    Text<1> usersLanguage;
    Text<1> chosenLanguage;
    Text<1> file;
    Told<1> otherLanguage;   // file
    Told<0> none;
    Told<1> withoutTexts;    // file
    Text<0> notLoaded;
};

struct RightsTexts {
    Text<0> title;
    Text<1> writable;
    Told<1> connectorFolder;
    Told<1> iniFile;
    Told<1> mapFolder;
    Told<1> mapFile;
    Told<0> extensionKey;
    Text<0> extensionKeyWritable;
    Text<1> madeWhenNeeded;
    Text<0> noLogFile;
};

struct ProcessTexts {
    Text<0> title;
    Text<0> checkElevated;
    Text<0> checkNotElevated;
    Text<2> runs;            // program, process
    Text<2> runsElevated;
    Text<1> runsNot;
    Told<0> hublinkRunsNot;
    Told<0> softphoneRunsNot;
    Told<2> otherUser;
    Told<2> unknownRights;
    Told<2> moreRights;      // program and Hublink: which runs elevated, which does not
    Told<2> several;         // program, number
    Told<0> notListed;
};

struct Texts {
    ReportTexts report;
    SoftphoneTexts softphone;
    ClassTexts classes;
    IniTexts ini;
    GroupwareTexts groupware;
    MapTexts map;
    DictionaryTexts dictionary;
    RightsTexts rights;
    ProcessTexts processes;
};

extern const Texts english;
extern const Texts french;

// French for every kind of French, else English.
const Texts& textsOf(LANGID language);

}
