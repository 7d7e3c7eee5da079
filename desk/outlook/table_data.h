// What a Table, its Columns and its Rows share.
#pragma once

#include "desk/outlook/filter.h"
#include "desk/outlook/outlook.h"

#include <memory>
#include <string>
#include <vector>

namespace desk::outlook {

class TableData {
public:
    TableData(Outlook& outlook, const Folder& folder, const std::wstring& filter);

    Outlook& outlook() const noexcept { return outlook_; }
    const std::vector<const Field*>& columns() const noexcept { return columns_; }

    // Both put the current row back to the first. The field must exist and
    // have a value of its own, or Outlook's error is raised.
    const Field& addColumn(const std::wstring& name);
    void removeColumns();
    void removeColumn(std::size_t index);

    // Back before the first row.
    void restart();

    void restrictTo(const std::wstring& filter);

    // The rows as the folder is now: a table shows what comes and goes while it is read.
    const std::vector<SavedItem>& rows();
    std::size_t current() const noexcept { return current_; }
    void advance(std::size_t count) noexcept { current_ += count; }

    // A cell; where the item has no such field or nothing in it, as the setup
    // says. A text is cut.
    automation::Value cell(const Item& item, const Field& field) const;

    // A position in the columns from a number counted from 1, or a name.
    std::size_t columnIndex(const automation::Value& key) const;

private:
    void readRows();
    automation::Value missing() const;

    Outlook& outlook_;
    const Folder& folder_;
    std::shared_ptr<Condition> condition_; // null for all
    std::vector<const Field*> columns_;
    std::vector<SavedItem> rows_;
    std::size_t current_ = 0;
    unsigned long changes_ = 0; // of the folder, when the rows were read
};

}
