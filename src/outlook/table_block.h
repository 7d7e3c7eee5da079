// A block of rows of the contacts' table, and what each column holds.
#pragma once

#include "automation/value.h"
#include "outlook/telephone_fields.h"

#include <cstddef>
#include <vector>

namespace hublink {

// The columns behind the telephone fields. An item's class itself cannot be one.
inline constexpr std::size_t entryIdColumn = telephoneFields.size();
inline constexpr std::size_t messageClassColumn = entryIdColumn + 1;
inline constexpr std::size_t columnCount = messageClassColumn + 1;

// The array has two indexes. By the vendor's help ("Table.GetArray method") the first one
// is the column, in programs in the field it is the row. So the column is the index with
// as many values as there are columns. Where both have as many, it is the index by which
// every row holds a message class at the place of the message class.
class TableBlock {
public:
    // What GetArray gave. Throws AutomationError when it is no such array.
    explicit TableBlock(const automation::Value& array);

    std::size_t rows() const noexcept { return cells_.size() / columnCount; }
    const automation::Value& cell(std::size_t row, std::size_t column) const;

private:
    enum class FirstIndex { ofColumns, ofRows };

    bool hasClassInEveryRow(FirstIndex firstIndex);

    const std::vector<automation::Value> cells_;
    FirstIndex firstIndex_ = FirstIndex::ofColumns;
};

}
