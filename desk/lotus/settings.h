// The control commands that decide how Notes behaves.
#pragma once

#include "desk/lotus/notes.h"

namespace desk::lotus {

// Carries the command out and answers it, if it is one of these.
std::optional<std::wstring> changeSetting(Notes& notes, const std::wstring& word, std::wstring_view rest);

}
