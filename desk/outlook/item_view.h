// What the window of an item shows.
#pragma once

#include "desk/outlook/item.h"
#include "desk/outlook/screen.h"

namespace desk::outlook {

InspectorView viewOf(const Item& item);

}
