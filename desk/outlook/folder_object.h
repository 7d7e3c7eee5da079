// MAPIFolder, and its Items collection.
#pragma once

#include "automation/value.h"
#include "desk/outlook/outlook.h"

namespace desk::outlook {

automation::Value folderValue(Outlook& outlook, Folder& folder);

// A new collection with a cursor of its own.
automation::Value itemsOf(Outlook& outlook, Folder& folder);

}
