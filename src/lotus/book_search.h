// What the searches in an address book share, by number and by mail address.
#pragma once

#include "lotus/lotus_session.h"

#include <string>
#include <vector>

namespace hublink {

// The full-text query for documents with the value in one of the items; "" for no items.
std::wstring BuildFullTextQuery(const std::vector<std::wstring>& items, const std::wstring& value);

// Empty for a view without documents. Throws AutomationError.
automation::Object firstDocument(const automation::Object& view);

// The first document of the view for one of the values, in their order: by its key,
// or by full-text search, which is skipped for a value that no query can hold. Empty
// without one, and without a view. Throws AutomationError.
automation::Object findDocument(const automation::Object& view, bool isKeyed, const std::vector<std::wstring>& items,
                                const std::vector<std::wstring>& values);

// The line in the log about a book that `procedure` could not search.
void logNoAccess(LotusSession& session, const LotusAddressBook& book, const wchar_t* procedure);

}
