// The words for what became of a call, and their translation.
#pragma once

#include "automation/value.h"

#include <functional>
#include <string>

namespace hublink {

class Dictionary;

// The English call-type text: the direction, then " unanswered" or, for any other
// state, " acknowledged" or " answered". State and acknowledgement are the softphone's
// numbers; `acknowledged` is called only when the call was answered. Throws
// AutomationError when a value that is needed cannot be converted to a number.
std::wstring callTypeText(bool incoming, const automation::Value& state,
                          const std::function<automation::Value()>& acknowledged);

// The dictionary's text for one of the six call-type texts, without the "&"
// that marks a menu's access key. The text itself when it is none of the six
// or the dictionary has none for it.
std::wstring TranslateCallType(const std::wstring& text, const Dictionary& dictionary);

// The dictionary's text for a caller without a number ("No identity" where it
// has none), without "&".
std::wstring unknownCallerText(const Dictionary& dictionary);

}
