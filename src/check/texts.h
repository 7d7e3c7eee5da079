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
    Text<1> nothingWrong;  // notes
    Text<2> verdict;       // problems, notes
    Text<1> saved;         // file
    Text<2> notSaved;      // file, why
    Text<1> notUnderstood; // what of the command line
    Text<0> usage;
    Text<0> pressKey;
    Text<0> failed;        // the program itself
};

struct SoftphoneTexts {
    Text<0> title;
    Text<1> folder;
    AdvisedText<0> noFolder;
    AdvisedText<0> folderUnreadable;
    AdvisedText<1> folderInOtherView;
    AdvisedText<1> folderMissing;
    AdvisedText<1> programMissing; // pavex.exe
    Text<1> server;
    AdvisedText<0> noServer;
    Text<1> user;
    AdvisedText<0> noUser;
};

// Automation classes: {1} is always the class's name.
struct ClassTexts {
    Text<2> registered;    // program
    Text<2> registered64;  // program, in the 64-bit part of the registry
    Text<2> inProcess;     // library
    Text<1> offered;       // by a running program
    AdvisedText<1> notRegistered;
    AdvisedText<1> withoutServer;
    AdvisedText<2> serverMissing; // program
    AdvisedText<2> inProcess64;   // library
};

struct IniTexts {
    Text<0> title;
    Text<1> file;
    Text<0> ansi;
    Text<0> utf8;
    Text<0> utf16;
    AdvisedText<1> noSoftphone;   // where the file is looked for
    AdvisedText<1> toBeInstalled;
    AdvisedText<1> missing;
    AdvisedText<1> noFolder;
    AdvisedText<1> fileInPlaceOfFolder;
    AdvisedText<1> isFolder;
    AdvisedText<2> unreadable;    // file, why
    AdvisedText<1> tooLarge;
    AdvisedText<1> beyondCodePage;
    AdvisedText<0> notText;
    AdvisedText<0> utf8Mark;
    AdvisedText<0> utf16Reversed;
    AdvisedText<0> lostCharacters;
    AdvisedText<1> strayLine;     // line
    AdvisedText<1> controlCharacter; // line
    AdvisedText<3> sectionTwice;  // section, lines
    AdvisedText<2> unknownSection; // section, line
    AdvisedText<2> bookNotCounted; // section, line
    AdvisedText<4> keyTwice;      // section, key, lines
    AdvisedText<3> unknownKey;    // section, key, line
    AdvisedText<4> likelyKey;     // section, key, line, what it resembles
    AdvisedText<4> keyElsewhere;  // section, key, line, where it belongs
    AdvisedText<0> moreLeftOut;

    // {1} section, {2} key, {3} value
    Text<2> on;
    Text<3> off;
    AdvisedText<3> offThoughMeantOn;
    AdvisedText<3> offForOtherText;
    Text<2> absentOn;
    Text<2> absentOff;
    Text<3> milliseconds;
    AdvisedText<3> notNumber;
    Text<3> value;
    Text<2> empty;
    Text<3> absent;        // what counts then
    Text<2> absentEmpty;
    AdvisedText<2> cut;
    AdvisedText<2> baseParts;

    AdvisedText<2> unknownGroupware; // key, what is unknown
    AdvisedText<0> typeReplaced;
    AdvisedText<0> noGroupware;
    AdvisedText<0> stopRequest;
    Text<0> outlookNotRead;
    Text<0> lotusNotRead;
    AdvisedText<1> readingEnds;   // key
    Text<2> booksInOrder;            // number, names
    AdvisedText<1> bookNotDescribed; // section
    AdvisedText<1> bookWithoutViews; // its place in the order
    AdvisedText<0> noPersonalBook;
};

struct GroupwareTexts {
    Text<0> title;
    Text<0> none;
    AdvisedText<0> unknown;
    Text<0> outlookNotUsed;
    Text<0> notesNotUsed;
    AdvisedText<0> newOutlook;
};

// The databases in which Notes keeps call history and log: {1} is the database.
struct NotesDataTexts {
    Text<1> folder;
    AdvisedText<0> folderUnknown;
    AdvisedText<1> folderMissing; // folder
    Text<1> database;
    AdvisedText<1> copied;
    AdvisedText<1> historyMissing;
    AdvisedText<1> logMissing;
};

struct MapTexts {
    Text<0> title;
    AdvisedText<1> registersItself; // program
    AdvisedText<1> otherServer;     // program
    Text<1> store;
    Text<0> missing;
    Text<0> blank;
    Text<1> sound;           // number of records
    AdvisedText<1> unfinished;
    AdvisedText<1> damaged;
    AdvisedText<0> newer;
    AdvisedText<1> unreadable;      // why
    Text<3> records;                // application, contacts, calls
    AdvisedText<2> foreignRecords;  // application, number
    AdvisedText<0> replacement;
    AdvisedText<1> damagedCopies;
    AdvisedText<0> noFolder;        // for application data
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
    AdvisedText<1> otherLanguage;   // file
    AdvisedText<0> none;
    AdvisedText<1> withoutTexts;    // file
    Text<0> notLoaded;
};

struct RightsTexts {
    Text<0> title;
    Text<1> writable;
    AdvisedText<1> connectorFolder;
    AdvisedText<1> iniFile;
    AdvisedText<1> mapFolder;
    AdvisedText<1> fileInPlaceOfMapFolder;
    AdvisedText<1> mapFile;
    AdvisedText<0> extensionKey;
    Text<0> extensionKeyWritable;
    Text<1> madeWhenNeeded;
    Text<0> noLogFile;
};

struct ProcessTexts {
    Text<0> title;
    AdvisedText<0> checkElevated;
    Text<0> checkNotElevated;
    Text<2> runs;            // program, process
    Text<2> runsElevated;
    Text<1> runsNot;
    AdvisedText<0> hublinkRunsNot;
    AdvisedText<0> softphoneRunsNot;
    AdvisedText<2> otherUser;
    AdvisedText<2> unknownRights;
    AdvisedText<2> moreRights;      // program and Hublink: which runs elevated, which does not
    AdvisedText<2> several;         // program, number
    AdvisedText<0> notListed;
};

struct Texts {
    ReportTexts report;
    SoftphoneTexts softphone;
    ClassTexts classes;
    IniTexts ini;
    GroupwareTexts groupware;
    NotesDataTexts notesData;
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
