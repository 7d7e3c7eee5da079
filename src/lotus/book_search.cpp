#include "lotus/book_search.h"

#include "lotus/log_document.h"

#include <algorithm>
#include <cstdint>

namespace hublink {

using automation::Object;

namespace {

Object keyedDocument(const Object& view, const std::wstring& key)
{
    return view.get(L"GetDocumentByKey", {key, true}).object();
}

// A query cannot hold a double quote, "*" and "?" stand for any text in it, and
// without a letter or a digit there is no word to look for.
bool isQueryable(const std::wstring& value)
{
    return value.find_first_of(L"\"*?") == std::wstring::npos &&
           std::any_of(value.begin(), value.end(), [](wchar_t c) { return IsCharAlphaNumericW(c); });
}

// Leaves at most one document in the view; whether there is one.
bool filterView(const Object& view, const std::wstring& query)
{
    return !query.empty() && view.get(L"FTSearch", {query, std::int16_t{1}}).int32() != 0;
}

}

std::wstring BuildFullTextQuery(const std::vector<std::wstring>& items, const std::wstring& value)
{
    std::wstring query;
    for (const std::wstring& name : items) {
        if (!query.empty()) query += L" OR ";
        query += L"[" + name + L"] CONTAINS \"" + value + L"\"";
    }
    return query;
}

Object firstDocument(const Object& view)
{
    return view.get(L"GetFirstDocument").object();
}

Object findDocument(const Object& view, bool isKeyed, const std::vector<std::wstring>& items,
                    const std::vector<std::wstring>& values)
{
    if (!view) return Object();
    for (const std::wstring& value : values) {
        if (isKeyed) {
            if (const Object document = keyedDocument(view, value)) return document;
        } else if (isQueryable(value) && filterView(view, BuildFullTextQuery(items, value))) {
            return firstDocument(view);
        }
    }
    return Object();
}

void logNoAccess(LotusSession& session, const LotusAddressBook& book, const wchar_t* procedure)
{
    WriteLotusLog(session, L"Error acces " + book.Server + L" " + book.Base + L" in " + procedure);
}

}
