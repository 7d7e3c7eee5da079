// One recipient of an item.
#pragma once

#include "desk/outlook/item_object.h"

namespace desk::outlook {

// The object for the recipient of that identifier.
automation::Value recipientOf(ItemObject& item, unsigned id);

// A name is resolved when it is an address or belongs to a contact.
bool resolve(Outlook& outlook, RecipientData& recipient);

}
