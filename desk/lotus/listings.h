// The control commands that tell what there is in Notes.
#pragma once

#include "desk/lotus/notes.h"

namespace desk::lotus {

// The answer to the command, if it is one of these.
std::optional<std::wstring> listing(Notes& notes, const std::wstring& word, std::wstring_view rest);

}
