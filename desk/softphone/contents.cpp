#include "desk/softphone/contents.h"

#include "desk/common/text.h"

#include <algorithm>
#include <cwchar>
#include <stdexcept>

namespace desk::softphone {

namespace {

std::int32_t halfOf(const std::wstring& text, std::wstring_view whole)
{
    wchar_t* end = nullptr;
    errno = 0;
    const long number = std::wcstol(text.c_str(), &end, 10);
    if (text.empty() || *end || errno == ERANGE)
        throw std::runtime_error("\"" + utf8(whole) + "\" is no identifier of the form 12.3405");
    return number;
}

}

std::wstring textOf(RecordId id)
{
    return std::to_wstring(id.high) + L"." + std::to_wstring(id.low);
}

RecordId recordIdOf(std::wstring_view text)
{
    const std::size_t dot = std::min(text.find(L'.'), text.size());
    const std::wstring_view low = dot < text.size() ? text.substr(dot + 1) : std::wstring_view();
    return {halfOf(std::wstring(text.substr(0, dot)), text), halfOf(std::wstring(low), text)};
}

template <class Record>
RecordId Book<Record>::nextId() const
{
    RecordId next{1, 1};
    for (const Record& record : records_)
        if (record.id.high == next.high) next.low = std::max(next.low, record.id.low + 1);
    return next;
}

template <class Record>
const Record& Book<Record>::add(Record record)
{
    if (record.id == RecordId{}) record.id = nextId();
    if (find(record.id)) throw std::runtime_error("the identifier " + utf8(textOf(record.id)) + " is in use");
    return records_.emplace_back(std::move(record));
}

template <class Record>
bool Book<Record>::remove(RecordId id)
{
    return std::erase_if(records_, [&](const Record& record) { return record.id == id; }) > 0;
}

template <class Record>
const Record* Book<Record>::find(RecordId id) const
{
    const auto found = std::ranges::find(records_, id, &Record::id);
    return found == records_.end() ? nullptr : &*found;
}

template class Book<HistoryRecord>;
template class Book<EntryRecord>;

}
