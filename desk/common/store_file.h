// A partner's data as a plain text file that people can read and tests can
// write. UTF-8, one record after the other:
//
//     # a comment
//     [contact]
//     FirstName=Marc
//     Body=two\nlines
//
// A value is everything after the first '=', blanks included, with \\ \n \r \0
// escaped. A field may come more than once. Empty lines mean nothing.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace desk {

struct StoreRecord {
    std::wstring kind;
    std::vector<std::pair<std::wstring, std::wstring>> fields; // in the file's order
    std::size_t line = 0;                                      // where it starts, for messages

    // The first field of that name (with regard to case), or null.
    const std::wstring* find(std::wstring_view name) const;
    void add(std::wstring name, std::wstring value) { fields.emplace_back(std::move(name), std::move(value)); }
};

// Throws std::runtime_error with one line saying where and what is wrong.
std::vector<StoreRecord> parseStore(std::wstring_view text);

// The text of one record or of many; parseStore reads it back the same.
std::wstring storeText(const StoreRecord& record);
std::wstring storeText(const std::vector<StoreRecord>& records);

// Reads the file; no file is an empty store. Throws std::runtime_error.
std::vector<StoreRecord> readStore(const std::wstring& path);

// Replaces the file as a whole: a reader sees the old or the new one, never a
// part. Throws std::runtime_error.
void writeStore(const std::wstring& path, const std::vector<StoreRecord>& records);

// For a partner's own check of a record: an error that names its line.
[[noreturn]] void refuseRecord(const StoreRecord& record, const std::string& what);

}
