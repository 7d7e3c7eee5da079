// The recipients of a message or a journal entry, as a collection.
#pragma once

#include "automation/value.h"
#include "desk/outlook/item_object.h"

namespace desk::outlook {

automation::Value recipientsOf(ItemObject& item);

}
