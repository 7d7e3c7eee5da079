// The identifier map: its server, and its store, read without touching it.
#pragma once

#include "check/finding.h"
#include "check/registered_class.h"
#include "check/texts.h"
#include "convid/store_reading.h"

namespace hublink::check {

struct MapFacts {
    ClassFacts server;
    std::wstring ownServer; // the program that lies beside this one, "" when it does not
    std::wstring file;      // the store, "" when the user has no place for it
    convid::StoreReading store;
};

MapFacts mapFacts(const std::wstring& programFolder);

Findings mapFindings(const MapFacts& facts, const Texts& texts);

// What mirrors what, one line a record, in the order of the softphone's identifiers.
std::vector<Words> mappings(const convid::StoreReading& store, const MapTexts& texts);

}
