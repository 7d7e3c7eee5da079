// Full-text queries as a Notes user writes them:
//
//     [LastName] CONTAINS "durand" OR FIELD Company = pavex AND NOT draft
//
// Words in a row, in quotes or not, are a phrase: they stand in a row in one
// value of the item, or without an item's name, in one value of any item.
// Operators: CONTAINS and =, IS PRESENT, NOT !, AND & +, OR | ACCRUE and the
// comma; NOT binds more than AND, and AND more than OR. A name that is an
// operator stands in quotes. * stands for any characters within a word, ? for
// one.
//
// words.h says what a word is.
#pragma once

#include "desk/lotus/condition.h"

#include <memory>
#include <string_view>

namespace desk::lotus {

// Raises "Query is not understandable".
std::unique_ptr<Condition> parseQuery(std::wstring_view text);

}
