// Small questions about Notes documents and databases, and the way in which a
// document is opened on the screen.
#pragma once

#include "lotus/lotus_session.h"

#include <optional>
#include <string>
#include <vector>

namespace hublink {

// The first value of an item as text. Throws AutomationError, also when the
// item's values are no array.
std::wstring firstItemValue(const automation::Object& document, const std::wstring& item);

// The first of the items' values, in order, that is not empty; "" when none is.
// No value when one cannot be read. No error leaves it.
std::optional<std::wstring> readFirstNonEmptyItemValue(const automation::Object& document,
                                                       const std::vector<std::wstring>& items);

// The same; "" too when one cannot be read.
std::wstring FirstNonEmptyItemValue(const automation::Object& document, const std::vector<std::wstring>& items);

// Whether it is the document in front in the Notes client. `frontDocument` receives
// the front-end object of the one there, if any. No error leaves it.
bool IsCurrentDocument(const automation::Object& document, automation::Object& frontDocument);

// What a database is called. Each name is asked for when it is needed first, and kept.
// A database can be given wherever its names are wanted.
class DatabaseNames {
public:
    DatabaseNames(const automation::Object& database) : database_(database) {}

    // Each throws AutomationError.
    const std::wstring& server() const { return readOnce(server_, L"Server"); }
    const std::wstring& filePath() const { return readOnce(filePath_, L"FilePath"); }
    const std::wstring& fileName() const { return readOnce(fileName_, L"FileName"); }

private:
    const std::wstring& readOnce(std::optional<std::wstring>& answer, const wchar_t* member) const;

    const automation::Object database_;
    mutable std::optional<std::wstring> server_, filePath_, fileName_;
};

// Whether a database lies on the server under that file name or path. Case and
// the markers "CN=" and "O=" of a hierarchical name make no difference. No error leaves it.
bool IsSameDatabase(const DatabaseNames& database, const std::wstring& server, const std::wstring& fileName);

// Saves a document, also over what somebody else has saved of it meanwhile. Throws
// AutomationError.
void saveDocument(const automation::Object& document);

enum class OpenFor { reading, editing };

// Opens a document of that database in the Notes client. Throws AutomationError.
void openDocument(const LotusBaseRef& base, const automation::Object& document, OpenFor purpose);

}
