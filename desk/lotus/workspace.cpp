#include "desk/lotus/workspace.h"

#include "automation/error.h"
#include "automation/text.h"
#include "desk/lotus/errors.h"

#include <algorithm>

namespace desk::lotus {

namespace {

constexpr const wchar_t* saveWhenClosed = L"1";

}

const Form* DocumentWindow::form() const
{
    return note->database()->form(note->note().text(names::form));
}

std::wstring DocumentWindow::title() const
{
    const Form* const own = form();
    const std::wstring formName = own ? own->name : note->note().text(names::form);
    const std::wstring text = own && own->title ? note->note().text(*own->title) : std::wstring();
    if (!text.empty()) return text;
    return note->isNew() ? L"New " + formName : formName;
}

DocumentView DocumentWindow::view() const
{
    DocumentView view{title(), editing, {}};
    for (const Item& item : note->note().items) view.items.emplace_back(item.name->spelling, textOf(item));
    return view;
}

FormField DocumentWindow::field(const std::wstring& name) const
{
    if (name.empty() && currentField) return field(currentField->spelling);
    const ItemName& wanted = itemName(name);
    const Form* const own = form();
    if (own && !own->fields.empty()) {
        for (const FormField& field : own->fields)
            if (field.name->is(wanted)) return field;
    } else if (const Item* item = note->note().find(wanted)) {
        return {item->name, item->type};
    }
    raiseNoField(name);
}

DocumentWindow* Workspace::find(WindowId id) noexcept
{
    for (DocumentWindow& window : windows_)
        if (window.id == id) return &window;
    return nullptr;
}

DocumentWindow* Workspace::current() noexcept
{
    return order_.empty() ? nullptr : find(order_.back());
}

DocumentWindow* Workspace::windowOf(const OpenNote& note) noexcept
{
    for (DocumentWindow& window : windows_)
        if (window.note.get() == &note || (note.saved() && window.note->saved() == note.saved())) return &window;
    return nullptr;
}

void Workspace::toFront(WindowId id)
{
    std::erase(order_, id);
    order_.push_back(id);
}

void Workspace::update(const DocumentWindow& window)
{
    screen_.update(window.id, window.view());
}

WindowId Workspace::open(const SharedNote& note, bool editing, bool readOnly, bool newInstance)
{
    if (note->isDeleted()) raiseDeleted();
    if (const DocumentWindow* open = newInstance ? nullptr : windowOf(*note)) {
        const WindowId id = open->id;
        setEditing(id, editing);
        toFront(id);
        screen_.raise(id);
        return id;
    }
    const WindowId id = ++lastWindow_;
    windows_.push_back({id, note, editing && !readOnly, readOnly, note->savedVersion(), nullptr});
    toFront(id);
    screen_.open(id, windows_.back().view());
    return id;
}

void Workspace::setEditing(WindowId id, bool editing)
{
    DocumentWindow& window = *find(id);
    window.editing = editing && !window.readOnly;
    update(window);
}

// What was typed into a field that holds numbers or dates becomes one.
void Workspace::convertFields(DocumentWindow& window)
{
    const Form* const form = window.form();
    if (!form) return;
    for (const FormField& field : form->fields) {
        const Item* item = window.note->note().find(*field.name);
        const bool typed = item && item->isText() && (field.type == ItemType::number || field.type == ItemType::date);
        if (!typed || textOf(*item).empty()) continue;
        const automation::Value text(textOf(*item));
        Item converted{item->name, field.type};
        try {
            converted.numbers.push_back(field.type == ItemType::date ? text.asDate() : text.number());
        } catch (const automation::AutomationError&) {
            raise(numbers::userInterface, field.type == ItemType::date ? L"Cannot convert Text to a Time/Date"
                                                                       : L"Cannot convert text to a number");
        }
        window.note->edit().replace(std::move(converted));
    }
}

void Workspace::save(WindowId id)
{
    DocumentWindow& window = *find(id);
    if (!window.editing) raiseNotAvailable();
    convertFields(window);
    window.version = window.note->saveFromWindow(window.version);
    update(window);
    saved_();
}

void Workspace::close(WindowId id)
{
    DocumentWindow& window = *find(id);
    const bool wanted = window.editing && !window.note->isDeleted() && window.note->hasChanges() &&
                        window.note->note().text(names::saveOptions) == saveWhenClosed;
    if (wanted) save(id);
    remove(id);
}

void Workspace::remove(WindowId id)
{
    std::erase(order_, id);
    std::erase_if(windows_, [id](const DocumentWindow& window) { return window.id == id; });
    screen_.close(id);
}

void Workspace::activated(WindowId id)
{
    if (id == 0 || find(id)) toFront(id);
}

void Workspace::changed(const OpenNote& note)
{
    for (const DocumentWindow& window : windows_)
        if (window.note.get() == &note) update(window);
}

void Workspace::show(SharedDatabase database, const View* view)
{
    database_ = std::move(database);
    view_ = view;
    toFront(0);
    screen_.raise(0);
    screen_.updateMain();
}

void Workspace::addIcon(const Database& database)
{
    const auto found = std::find_if(icons_.begin(), icons_.end(), [&database](const Icon& icon) {
        return database.isAt(icon.server, icon.filePath);
    });
    highlighted_ = static_cast<std::size_t>(found - icons_.begin());
    if (found == icons_.end()) {
        icons_.push_back({database.server, database.filePath});
        saved_();
    }
    screen_.updateMain();
}

bool Workspace::hasIcon(const Database& database) const
{
    return std::any_of(icons_.begin(), icons_.end(),
                       [&database](const Icon& icon) { return database.isAt(icon.server, icon.filePath); });
}

const Icon* Workspace::highlighted() const noexcept
{
    return highlighted_ < icons_.size() ? &icons_[highlighted_] : nullptr;
}

void Workspace::clear()
{
    while (!windows_.empty()) remove(windows_.back().id);
    order_.clear();
    database_.reset();
    view_ = nullptr;
    icons_.clear();
    highlighted_ = static_cast<std::size_t>(-1);
}

}
