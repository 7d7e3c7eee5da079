#include "desk/outlook/table_data.h"

#include "desk/outlook/errors.h"

#include <algorithm>

namespace desk::outlook {

namespace {

using automation::Value;

constexpr const wchar_t* defaultColumns[] = {L"EntryID", L"Subject", L"CreationTime", L"LastModificationTime",
                                             L"MessageClass"};
constexpr const wchar_t* contactColumns[] = {L"FirstName", L"LastName", L"CompanyName"};

}

TableData::TableData(Outlook& outlook, const Folder& folder, const std::wstring& filter)
    : outlook_(outlook), folder_(folder)
{
    if (!filter.empty()) condition_ = parseFilter(filter);
    for (const wchar_t* name : defaultColumns) columns_.push_back(fieldNamed(name));
    if (folder.defaultClass == ItemClass::contact)
        for (const wchar_t* name : contactColumns) columns_.push_back(fieldNamed(name));
    restart();
}

const Field& TableData::addColumn(const std::wstring& name)
{
    const Field* field = fieldNamed(name);
    if (!field) raise(notFound, L"The property \"" + name + L"\" is unknown or cannot be found.");
    if (field->has(Field::noTable))
        raise(E_INVALIDARG, L"The property \"" + name + L"\" does not support this operation.");
    columns_.push_back(field);
    restart();
    return *field;
}

void TableData::removeColumns()
{
    columns_.clear();
    restart();
}

void TableData::removeColumn(std::size_t index)
{
    columns_.erase(columns_.begin() + static_cast<std::ptrdiff_t>(index));
    restart();
}

void TableData::readRows()
{
    rows_.clear();
    for (const SavedItem& item : folder_.items)
        if (!condition_ || condition_->holds(*item)) rows_.push_back(item);
    if (outlook_.setup().rowOrder == RowOrder::reversed) std::reverse(rows_.begin(), rows_.end());
    changes_ = folder_.changes;
}

const std::vector<SavedItem>& TableData::rows()
{
    if (changes_ == folder_.changes) return rows_;
    // Items come behind all others, or before them; those that have gone leave the rest where it is.
    const auto hasGone = [this](const SavedItem& item) { return item->deleted || item->folder != folder_.number; };
    const auto read = rows_.begin() + static_cast<std::ptrdiff_t>(current_);
    current_ -= static_cast<std::size_t>(std::count_if(rows_.begin(), read, hasGone));
    std::erase_if(rows_, hasGone);
    const std::size_t stayed = rows_.size();
    readRows();
    if (outlook_.setup().rowOrder == RowOrder::reversed) current_ += rows_.size() - stayed;
    return rows_;
}

void TableData::restart()
{
    readRows();
    current_ = 0;
}

void TableData::restrictTo(const std::wstring& filter)
{
    condition_ = filter.empty() ? nullptr : parseFilter(filter);
    restart();
}

Value TableData::missing() const
{
    VARIANT cell;
    VariantInit(&cell);
    switch (outlook_.setup().missingCell) {
    case MissingCell::empty: break;
    case MissingCell::null: V_VT(&cell) = VT_NULL; break;
    case MissingCell::notFound: V_VT(&cell) = VT_ERROR; V_ERROR(&cell) = notFound;
    }
    return Value::copyOf(cell);
}

Value TableData::cell(const Item& item, const Field& field) const
{
    if (!field.in(item.itemClass) || field.name == outlook_.setup().hiddenColumn) return missing();
    if (!field.has(Field::computed) && !item.fields.contains(field.id())) return missing();
    const Value value = valueOf(item, field);
    if (value.type() != VT_BSTR) return value;
    const std::wstring text = value.text();
    if (text.empty()) return missing();
    const unsigned longest = outlook_.setup().maxTextLength;
    return text.size() > longest ? Value(text.substr(0, longest)) : value;
}

std::size_t TableData::columnIndex(const Value& key) const
{
    if (key.type() == VT_BSTR) {
        const auto found = std::find(columns_.begin(), columns_.end(), fieldNamed(key.text()));
        if (found == columns_.end()) raiseNotFound();
        return static_cast<std::size_t>(found - columns_.begin());
    }
    const std::int32_t number = key.int32();
    if (number < 1 || static_cast<std::size_t>(number) > columns_.size()) raiseOutOfBounds();
    return static_cast<std::size_t>(number) - 1;
}

}
