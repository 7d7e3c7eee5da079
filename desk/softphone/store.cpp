#include "desk/softphone/store.h"

#include "desk/softphone/record_fields.h"

#include <stdexcept>

namespace desk::softphone {

namespace {

void take(Contents& contents, const StoreRecord& record)
{
    if (record.kind == L"user") contents.user = userOf(record.fields);
    else if (record.kind == L"entry") contents.entries.add(entryRecordOf(record.fields));
    else if (record.kind == L"history") contents.history.add(historyRecordOf(record.fields));
    else throw std::runtime_error("is none of user, entry, history");
}

}

Contents contentsOf(const std::vector<StoreRecord>& records)
{
    Contents contents;
    for (const StoreRecord& record : records) {
        try {
            take(contents, record);
        } catch (const std::runtime_error& error) {
            refuseRecord(record, error.what());
        }
    }
    return contents;
}

std::vector<StoreRecord> recordsOf(const Contents& contents)
{
    std::vector<StoreRecord> records{{L"user", fieldsOf(contents.user)}};
    for (const EntryRecord& entry : contents.entries.records()) records.push_back({L"entry", fieldsOf(entry)});
    for (const HistoryRecord& item : contents.history.records()) records.push_back({L"history", fieldsOf(item)});
    return records;
}

}
