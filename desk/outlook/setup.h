// What differs from one Outlook to another: its version, what its user or an
// administrator has decided, how far a table tells what is missing. The record
// [outlook] of the store has it, and a control command for each changes it.
#pragma once

#include "desk/common/store_file.h"

#include <windows.h>

#include <string>
#include <string_view>

namespace desk::outlook {

// 2003 has no tables and lives on while clients hold references; 2007 refuses
// GetArray for more rows than a table has.
enum class Version { v2003 = 2003, v2007 = 2007, v2016 = 2016 };

// What a client sees that touches a protected member.
struct GuardSetting {
    enum class Answer { off, allow, deny };
    Answer answer = Answer::off;
    DWORD delay = 0;            // milliseconds from the question to its answer
    HRESULT refusal = E_ABORT;  // deny

    bool operator==(const GuardSetting&) const = default;
};

// What stands in a table's cell whose item has nothing there.
enum class MissingCell { empty, null, notFound };

// The order of a table's rows, of which nothing is promised: that of the folder's
// items, or the last one first.
enum class RowOrder { folder, reversed };

// Which index of GetArray's array comes first.
enum class ArrayShape { columnsFirst, rowsFirst };

// What a client sees that creates the application object.
struct CreationSetting {
    bool fails = false;
    DWORD delay = 0; // milliseconds

    bool operator==(const CreationSetting&) const = default;
};

struct Setup {
    Version version = Version::v2016;
    GuardSetting guard;
    MissingCell missingCell = MissingCell::empty;
    unsigned maxTextLength = 255; // in a table's cell, in characters
    RowOrder rowOrder = RowOrder::folder;
    ArrayShape arrayShape = ArrayShape::columnsFirst;
    std::wstring hiddenColumn; // whose cells hold as little as those of an item without the field
    unsigned identifiers = 0; // by how many rows of its class each identifier has moved
    CreationSetting creation;
};

// Changes one setting, given as in the store:
//     Version      2003, 2007, 2016
//     Guard        off, allow [MS], deny [HRESULT]
//     MissingCell  empty, null, notfound
//     LongestText  a number of characters
//     RowOrder     folder, reversed
//     ArrayShape   columns, rows
//     HiddenColumn a field, or nothing
//     Identifiers  a number
//     Creation     works, fails [MS]
// Throws std::runtime_error for an unknown setting or value.
void change(Setup& setup, std::wstring_view setting, std::wstring_view text);

// The record [outlook]: what is not as usual. Without fields when all is.
StoreRecord recordOf(const Setup& setup);

}
