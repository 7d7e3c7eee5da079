// An item of a document: a name and one or more values of one type.
#pragma once

#include "automation/value.h"
#include "desk/common/recorded_object.h"

#include <string>
#include <string_view>
#include <vector>

namespace desk::lotus {

// The name of an item, one object for each spelling: documents are many and
// their names are few, and names are compared often, without regard to case.
struct ItemName {
    std::wstring spelling;
    const ItemName* folded; // the same for all spellings of a name
    MemberSummary asMember; // as a property of its document

    // As a property of its document; all spellings have identifiers of their
    // own, so that the record shows how the client spelt it.
    DISPID id;

    bool is(const ItemName& other) const noexcept { return folded == other.folded; }
};

// These live as long as the program.
const ItemName& itemName(std::wstring_view spelling);
const ItemName* itemNameOf(DISPID id) noexcept; // null for an identifier that is no item's

enum class ItemType { text, number, date, richText };

struct Item {
    const ItemName* name;
    ItemType type = ItemType::text;
    std::vector<std::wstring> texts{}; // of a text or a rich text
    std::vector<double> numbers{};     // of numbers, and of dates as automation has them

    std::size_t size() const noexcept { return texts.empty() ? numbers.size() : texts.size(); }
    bool isText() const noexcept { return type == ItemType::text || type == ItemType::richText; }
};

Item textItem(const ItemName& name, std::wstring text);

// One of its values; all of them as an array, counted from 0: of VARIANT, or
// with `typed`, of texts or of doubles (dates of VARIANT still); the text of one,
// and of all of them with semicolons between. Numbers and dates become texts in
// the user's formats.
automation::Value valueAt(const Item& item, std::size_t index);
automation::Value valuesOf(const Item& item, bool typed);
std::wstring textAt(const Item& item, std::size_t index);
std::wstring textOf(const Item& item);

// Elements of another type than VARIANT are of exactly that type already.
automation::Value arrayOf(const std::vector<automation::Value>& values, VARTYPE type = VT_VARIANT);

// What an array of any type holds; a single value is its own element. Throws
// AutomationError.
std::vector<automation::Value> elementsOf(const automation::Value& value);

// The item that a value makes: a text, a number or a date, or an array of one
// of these. Throws AutomationError (type mismatch) for anything else.
Item itemFrom(const ItemName& name, const automation::Value& value);

}
