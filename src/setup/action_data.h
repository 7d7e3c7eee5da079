// What an action that only looks hands to one that changes something: the latter
// runs later, with the system's rights, and sees no property but this text.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace hublink::setup {

class ActionData {
public:
    ActionData() = default;
    explicit ActionData(const std::wstring& text);

    void add(const std::wstring& name, const std::wstring& value) { entries_.emplace_back(name, value); }

    // "" for a name that was not added; the first one of several.
    std::wstring value(const std::wstring& name) const;
    std::vector<std::wstring> values(const std::wstring& name) const;

    // The entries as one text, a line each.
    std::wstring text() const;

private:
    std::vector<std::pair<std::wstring, std::wstring>> entries_;
};

}
