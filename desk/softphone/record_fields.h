// The softphone's records as named texts: in the store file, and in control
// commands, where the fields of a record stand in one line:
//
//     Number=0123456 LastName="O'Brien \"Jim\"" Incoming=true
//
// A value ends at the next blank unless it stands in double quotes. In both
// forms \\ \" \n \r \0 are escapes. Field names are those of the automation
// members and go without regard to case; short forms are last, first, begin,
// end, ack and destination. Dates are ISO texts, truths true or false.
#pragma once

#include "desk/softphone/contents.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace desk::softphone {

using Fields = std::vector<std::pair<std::wstring, std::wstring>>;

// Throws std::runtime_error when the text has another form.
Fields parseFields(std::wstring_view line);
std::wstring lineOf(const Fields& fields);

// Throw std::runtime_error for an unknown field or a value that makes no
// sense. What is not given stays empty; a history record without dates begins
// now and ends when it began.
User userOf(const Fields& fields);
HistoryRecord historyRecordOf(const Fields& fields);
EntryRecord entryRecordOf(const Fields& fields);
CallRecord callRecordOf(const Fields& fields);

Fields fieldsOf(const User& user);
Fields fieldsOf(const HistoryRecord& record);
Fields fieldsOf(const EntryRecord& record);

}
