// The lines of Hublink's own log, wherever they are kept.
#pragma once

#include <string>
#include <vector>

namespace deaths {

// The lines of a log's text, each without the date and time before it.
std::vector<std::wstring> linesWithoutTime(const std::wstring& text);

}
