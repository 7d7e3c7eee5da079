// Table: a folder's items as rows, for reading many of them at once; with its
// Columns, Column and Row.
#pragma once

#include "automation/value.h"
#include "desk/outlook/outlook.h"

#include <string>

namespace desk::outlook {

// All items of the folder, or those that the filter lets through ("" for all).
automation::Value tableOf(Outlook& outlook, Folder& folder, const std::wstring& filter);

}
