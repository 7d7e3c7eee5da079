// The words for what became of a call, and their translation.
#pragma once

#include "automation/object.h"
#include "common/dictionary.h"

#include <string>

// The English call-type text of a softphone history item: its direction, then
// " unanswered" by its state alone, else " acknowledged" or " answered".
// Throws AutomationError when the item lacks one of the members it reads.
std::wstring callTypeText(const automation::Object& historyItem, bool incoming);

// The dictionary's text for one of the six call-type texts, without the "&"
// that marks a menu's access key. The text itself when it is none of the six
// or the dictionary has none for it.
std::wstring TranslateCallType(const std::wstring& Text, const Dictionary& dictionary);

// The dictionary's text for a caller without a number ("No identity" where it
// has none), without "&".
std::wstring unknownCallerText(const Dictionary& dictionary);
