// The words for what became of a call, and their translation.
#pragma once

#include "automation/object.h"
#include "common/dictionary.h"

#include <cstdint>
#include <string>

// Whether a call of that state (as the softphone numbers it) was not answered.
bool isUnanswered(std::int32_t state);

// The English call-type text: the direction, then " unanswered" whatever else
// holds, else " acknowledged" or " answered".
std::wstring callTypeText(bool incoming, bool unanswered, bool acknowledged);

// The same of a call's state and acknowledgement as the softphone has them; the
// acknowledgement of an unanswered call may be anything. Throws AutomationError
// when one of them is no number.
std::wstring callTypeText(bool incoming, const automation::Value& state, const automation::Value& acknowledged);

// The same of a softphone history item, whose acknowledgement is not asked for
// when its state tells enough.
// Throws AutomationError when the item lacks one of the members it reads.
std::wstring callTypeText(const automation::Object& historyItem, bool incoming);

// The dictionary's text for one of the six call-type texts, without the "&"
// that marks a menu's access key. The text itself when it is none of the six
// or the dictionary has none for it.
std::wstring TranslateCallType(const std::wstring& Text, const Dictionary& dictionary);

// The dictionary's text for a caller without a number ("No identity" where it
// has none), without "&".
std::wstring unknownCallerText(const Dictionary& dictionary);
