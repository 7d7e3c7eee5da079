#include "check/identifier_map.h"

#include "automation/system_message.h"
#include "automation/text.h"
#include "common/files.h"
#include "common/program_files.h"
#include "convid/class_identity.h"
#include "convid/store_error.h"
#include "convid/store_place.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace hublink::check {

namespace {

using convid::RecordPointer;
using convid::StoreState;

std::wstring storeFile()
try {
    return convid::storePath(convid::MissingFolder::staysMissing);
} catch (const convid::StoreError&) {
    return L"";
}

// Another program's class of the same name keeps a store of its own.
bool isOwnServer(const ClassFacts& server)
{
    const std::wstring name = server.server.substr(server.server.find_last_of(L'\\') + 1);
    return automation::equalIgnoringCase(name, mapServerProgram);
}

Findings serverFindings(const MapFacts& facts, const Texts& texts)
{
    if (!facts.server.isRegistered && !facts.ownServer.empty())
        return {note(texts.map.registersItself, path(facts.ownServer))};
    Findings findings = classFindings(facts.server, texts.classes);
    if (facts.server.serverIsThere && !isOwnServer(facts.server))
        findings.push_back(note(texts.map.otherServer, path(facts.server.server)));
    return findings;
}

// One that another program has chosen: a long one may be a telephone number.
Words foreignNumber(std::int32_t number)
{
    const std::wstring text = std::to_wstring(number);
    return number >= 0 && number < 1'000 ? Words(text) : personal(text);
}

bool isForeign(const convid::IdentifierRecord& record)
{
    return (record.typApplication != 0 && record.typApplication != 1) ||
           (record.collection != 0 && record.collection != 1);
}

Words nameOf(std::int32_t application)
{
    switch (application) {
    case 0: return L"Outlook";
    case 1: return L"Notes";
    default: return foreignNumber(application);
    }
}

struct Count {
    std::size_t contacts = 0;
    std::size_t calls = 0;
    std::size_t others = 0;
};

Findings countFindings(const convid::StoreReading& store, const MapTexts& texts)
{
    std::map<std::int32_t, Count> counts;
    for (const RecordPointer& record : store.records) {
        Count& count = counts[record->typApplication];
        ++(record->collection == 1 ? count.contacts : record->collection == 0 ? count.calls : count.others);
    }
    Findings findings;
    for (const auto& [application, count] : counts) {
        const bool isKnown = application == 0 || application == 1;
        const std::size_t foreign = isKnown ? count.others : count.contacts + count.calls + count.others;
        if (isKnown) findings.push_back(ok(texts.records, nameOf(application), count.contacts, count.calls));
        if (foreign > 0) findings.push_back(note(texts.foreignRecords, nameOf(application), foreign));
    }
    return findings;
}

Finding stateFinding(const convid::StoreReading& store, const MapTexts& texts)
{
    const std::size_t count = store.records.size();
    switch (store.state) {
    case StoreState::missing: return ok(texts.missing);
    case StoreState::blank: return ok(texts.blank);
    case StoreState::sound: return ok(texts.sound, count);
    case StoreState::unfinished: return note(texts.unfinished, count);
    case StoreState::damaged: return problem(texts.damaged, count);
    case StoreState::newer: return problem(texts.newer);
    case StoreState::unreadable: break;
    }
    return problem(texts.unreadable, automation::systemMessage(store.failure));
}

Words kindOf(std::int32_t collection, const MapTexts& texts)
{
    switch (collection) {
    case 0: return texts.call();
    case 1: return texts.contact();
    default: return foreignNumber(collection);
    }
}

}

MapFacts mapFacts(const std::wstring& programFolder)
{
    MapFacts facts;
    facts.server = classFacts(convid::classRegistration.progId);
    const std::wstring own = programFolder + L"\\" + mapServerProgram;
    if (FileExist(own)) facts.ownServer = own;
    facts.file = storeFile();
    if (!facts.file.empty()) facts.store = convid::readStore(facts.file);
    return facts;
}

Findings mapFindings(const MapFacts& facts, const Texts& texts)
{
    Findings findings = serverFindings(facts, texts);
    if (facts.file.empty()) {
        findings.push_back(problem(texts.map.noFolder));
        return findings;
    }
    findings.push_back(ok(texts.map.store, path(facts.file)));
    findings.push_back(stateFinding(facts.store, texts.map));
    append(findings, countFindings(facts.store, texts.map));
    if (facts.store.hasReplacement) findings.push_back(note(texts.map.replacement));
    if (facts.store.damagedCopies > 0) findings.push_back(note(texts.map.damagedCopies, facts.store.damagedCopies));
    return findings;
}

std::vector<Words> mappings(const convid::StoreReading& store, const MapTexts& texts)
{
    std::vector<RecordPointer> records = store.records;
    const auto key = [](const RecordPointer& record) {
        return std::tie(record->typApplication, record->collection, record->idOrvel);
    };
    std::sort(records.begin(), records.end(), [&](const auto& a, const auto& b) { return key(a) < key(b); });
    std::vector<Words> lines;
    lines.reserve(records.size() + 1);
    for (const RecordPointer& record : records) {
        const auto words = [&](const std::wstring& id) { return isForeign(*record) ? personal(id) : Words(id); };
        lines.push_back(texts.mapping(words(record->idOrvel), words(record->idAppli), nameOf(record->typApplication),
                                      kindOf(record->collection, texts)));
    }
    if (lines.empty()) lines.push_back(texts.nothingMapped());
    return lines;
}

}
