// Whether the user gets to see a record on the screen.
#pragma once

namespace hublink {

enum class Show { no, yes };

}
