// The Columns of a Table, and Column.
#pragma once

#include "automation/value.h"
#include "desk/outlook/table_data.h"

namespace desk::outlook {

automation::Value columnsOf(const std::shared_ptr<TableData>& table);

}
