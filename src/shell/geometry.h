// Where a control stands in its window.
#pragma once

#include "automation/object.h"

#include <windows.h>

#include <cstdint>

namespace hublink {

// Position (relative to the outer corner of the form's window) and size of a
// control, in pixels. The control is read late bound: "Left", "Top", "Width"
// and "Height", in twips. No error leaves it; results not reached stay as they were.
void GetRelPt(HWND form, const automation::Object& control, float& x, float& y, std::int32_t& width,
              std::int32_t& height);

}
