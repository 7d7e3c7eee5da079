// What a full-text query asks of a document.
#pragma once

#include "desk/lotus/words.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace desk::lotus {

class Condition {
public:
    virtual ~Condition() = default;

    // How often the note matches, 0 when it does not.
    virtual unsigned hits(const Note& note) const = 0;

    // The only places where there may be hits; none when that cannot be told.
    using Places = std::optional<std::vector<unsigned long>>;
    virtual Places candidates(const WordIndex& index) const = 0;
};

using Operand = std::unique_ptr<Condition>;

// The words stand in a row in one value of the item, or with null of any item.
Operand phrase(const ItemName* item, std::vector<std::wstring> words);

// The item has a text.
Operand present(const ItemName& item);

Operand negation(Operand operand);
Operand conjunction(Operand left, Operand right);
Operand disjunction(Operand left, Operand right);

}
