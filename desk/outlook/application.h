// The objects at the top: Application and NameSpace.
#pragma once

#include "desk/outlook/outlook.h"

namespace desk::outlook {

automation::ComPtr<IDispatch> makeApplication(Outlook& outlook);

// For the members Application and Session, which every object has.
automation::Value applicationOf(Outlook& outlook);
automation::Value sessionOf(Outlook& outlook);

// Outlook's number of an item type (0 mail, 2 contact, 4 journal, 7
// distribution list). Raises for another.
ItemClass itemClassOfType(long type);

}
