#include "desk/softphone/contents.h"

#include "desk/common/text.h"

#include <algorithm>
#include <cwchar>
#include <stdexcept>

namespace desk::softphone {

namespace {

std::uint64_t keyOf(RecordId id)
{
    return static_cast<std::uint64_t>(static_cast<std::uint32_t>(id.high)) << 32 | static_cast<std::uint32_t>(id.low);
}

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
const Record& Book<Record>::add(Record record)
{
    if (record.id == RecordId{}) record.id = {ownHigh_, nextLow_};
    if (!positions_.emplace(keyOf(record.id), records_.size()).second)
        throw std::runtime_error("the identifier " + utf8(textOf(record.id)) + " is in use");
    if (record.id.high == ownHigh_ && record.id.low >= nextLow_ && record.id.low < INT32_MAX)
        nextLow_ = record.id.low + 1;
    return records_.emplace_back(std::move(record));
}

template <class Record>
bool Book<Record>::remove(RecordId id)
{
    const auto found = positions_.find(keyOf(id));
    if (found == positions_.end()) return false;
    const std::size_t removed = found->second;
    positions_.erase(found);
    records_.erase(records_.begin() + static_cast<std::ptrdiff_t>(removed));
    for (std::size_t position = removed; position < records_.size(); ++position)
        positions_[keyOf(records_[position].id)] = position;
    return true;
}

template <class Record>
const Record* Book<Record>::find(RecordId id) const
{
    const auto found = positions_.find(keyOf(id));
    return found == positions_.end() ? nullptr : &records_[found->second];
}

template class Book<HistoryRecord>;
template class Book<EntryRecord>;

}
