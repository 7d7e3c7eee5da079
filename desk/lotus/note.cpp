#include "desk/lotus/note.h"

#include <algorithm>
#include <cwchar>

namespace desk::lotus {

const Item* Note::find(const ItemName& name) const noexcept
{
    for (const Item& item : items)
        if (item.name->is(name)) return &item;
    return nullptr;
}

Item* Note::find(const ItemName& name) noexcept
{
    return const_cast<Item*>(std::as_const(*this).find(name));
}

std::wstring Note::text(const ItemName& name) const
{
    const Item* item = find(name);
    return item && item->size() > 0 ? textAt(*item, 0) : std::wstring();
}

void Note::replace(Item item)
{
    Item* const first = find(*item.name);
    if (!first) {
        items.push_back(std::move(item));
        return;
    }
    *first = std::move(item);
    const auto behind = items.begin() + (first - items.data()) + 1;
    const ItemName& name = *first->name;
    items.erase(std::remove_if(behind, items.end(), [&name](const Item& other) { return other.name->is(name); }),
                items.end());
}

void Note::remove(const ItemName& name)
{
    std::erase_if(items, [&name](const Item& item) { return item.name->is(name); });
}

bool Note::isResponse() const noexcept
{
    return find(names::reference) != nullptr;
}

std::wstring Note::noteIdText() const
{
    wchar_t text[16];
    swprintf(text, 16, L"%lX", noteId);
    return text;
}

}
