// Recipients of a message or a journal entry, and Recipient.
#pragma once

#include "automation/value.h"
#include "desk/outlook/item_object.h"

namespace desk::outlook {

automation::Value recipientsOf(ItemObject& item);

}
