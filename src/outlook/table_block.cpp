#include "outlook/table_block.h"

#include "automation/array.h"
#include "automation/error.h"

namespace hublink {

using automation::Value;

TableBlock::TableBlock(const Value& array) : cells_(automation::elementsOf(array))
{
    if (cells_.empty()) return;
    const std::vector<std::size_t> extents = automation::extentsOf(array);
    const auto refuse = [] { throw automation::AutomationError(L"GetArray", DISP_E_TYPEMISMATCH); };
    if (extents.size() != 2 || (extents[0] != columnCount && extents[1] != columnCount)) refuse();
    firstIndex_ = extents[0] == columnCount ? FirstIndex::ofColumns : FirstIndex::ofRows;
    if (extents[0] != extents[1] || hasClassInEveryRow(FirstIndex::ofColumns)) return;
    if (!hasClassInEveryRow(FirstIndex::ofRows)) refuse();
}

const Value& TableBlock::cell(std::size_t row, std::size_t column) const
{
    return cells_[firstIndex_ == FirstIndex::ofColumns ? row * columnCount + column : column * rows() + row];
}

bool TableBlock::hasClassInEveryRow(FirstIndex firstIndex)
{
    firstIndex_ = firstIndex;
    for (std::size_t row = 0; row < rows(); ++row) {
        const Value& itsClass = cell(row, messageClassColumn);
        if (itsClass.type() != VT_BSTR || !itsClass.text().starts_with(L"IPM.")) return false;
    }
    return true;
}

}
