// NotesView: a view's documents, or after FTSearch those of them that match.
#include "desk/common/text.h"
#include "desk/lotus/document_object.h"
#include "desk/lotus/errors.h"
#include "desk/lotus/objects.h"

#include <algorithm>

namespace desk::lotus {

namespace {

class ViewObject final : public NotesTable<ViewObject> {
public:
    ViewObject(Notes& notes, SharedDatabase database, const View& view)
        : NotesTable(notes, L"NotesView"), notes_(notes), database_(std::move(database)), view_(view),
          seen_(index().kept())
    {}
    static const std::vector<MemberRow<ViewObject>>& members();

private:
    const ViewIndex& index() const { return database_->index(view_); }
    std::size_t count() const { return filtered_ ? found_.size() : index().entries().size(); }
    const SavedNote& noteAt(std::size_t position) const
    {
        return filtered_ ? found_[position] : index().entries()[position].note;
    }

    // Positions are counted from 0; past the end there is Nothing.
    Value at(std::size_t position) const
    {
        return documentValue(notes_, database_, position < count() ? noteAt(position) : nullptr);
    }

    // Of the main documents; the answers to others are not counted.
    Value nth(std::size_t number) const
    {
        const std::size_t responses = filtered_ ? found_.size() : index().responses();
        if (number == 0) return automation::Object();
        if (responses == 0) return at(number - 1);
        for (std::size_t position = 0; position < count(); ++position)
            if (!noteAt(position)->isResponse() && --number == 0) return at(position);
        return automation::Object();
    }

    std::size_t positionOf(const IncomingCall& call) const
    {
        const DocumentObject* const document = notes_.documentOf(call.arguments.object(0));
        const SavedNote note = document ? document->saved() : nullptr;
        if (note && note->deleted) raiseDeleted();
        std::size_t position = count();
        if (note && filtered_)
            position = static_cast<std::size_t>(std::find(found_.begin(), found_.end(), note) - found_.begin());
        else if (note && database_->find(note->noteId) == note) position = index().positionOf(*note);
        if (position == count()) raise(numbers::notesError, L"Document is not from this view");
        return position;
    }

    Value next(const IncomingCall& call) const { return at(positionOf(call) + 1); }

    Value previous(const IncomingCall& call) const
    {
        const std::size_t position = positionOf(call);
        return position == 0 ? Value(automation::Object()) : at(position - 1);
    }

    // The whole view is looked through, also when it is filtered, as it was when
    // this object was made or refreshed last.
    Value byKey(const IncomingCall& call) const
    {
        const bool exact = call.arguments.isGiven(1) && call.arguments.isTrue(1);
        const Columns wanted = columnsFor(call);
        if (wanted.empty() || wanted.size() > view_.sorted.size())
            raise(numbers::notesError, L"Key array has more entries than the view has sorted columns");
        return documentValue(notes_, database_, ViewIndex::find(*seen_, wanted, exact));
    }

    // One value for each column, from the first on.
    static Columns columnsFor(const IncomingCall& call)
    try {
        Columns columns;
        const Value key = call.arguments.value(0);
        const std::vector<Value> values = elementsOf(key);
        for (const Value& value : values) {
            const Item item = itemFrom(names::form, value);
            columns.push_back(columnOf(&item));
        }
        return columns;
    } catch (const automation::AutomationError& error) {
        throw server::Failure{error.code(), 0};
    }

    Value search(const IncomingCall& call)
    {
        const std::int32_t most = call.arguments.isGiven(1) ? call.arguments.int32(1) : 0;
        const auto condition = parseQuery(call.arguments.text(0));
        found_ = database_->search(view_, *condition, static_cast<std::size_t>(std::max(most, 0)));
        filtered_ = true;
        return static_cast<std::int32_t>(found_.size());
    }

    void clear()
    {
        filtered_ = false;
        found_.clear();
    }

    // Documents deleted meanwhile are no hits any more.
    void refresh()
    {
        std::erase_if(found_, [](const SavedNote& note) { return note->deleted; });
        seen_ = index().kept();
    }

    Value aliases() const
    {
        if (view_.names.size() < 2) return {};
        return arrayOf({view_.names.begin() + 1, view_.names.end()});
    }

    Notes& notes_;
    const SharedDatabase database_;
    const View& view_;
    std::shared_ptr<const ViewIndex::Entries> seen_;
    bool filtered_ = false;
    std::vector<SavedNote> found_;
};

const std::vector<MemberRow<ViewObject>>& ViewObject::members()
{
    static const std::vector<MemberRow<ViewObject>> rows{
        {L"Name", 0x301, server::readOnly, 0, 0,
         [](ViewObject& self, const IncomingCall&) -> Value { return self.view_.names[0]; }},
        {L"Aliases", 0x302, server::readOnly, 0, 0,
         [](ViewObject& self, const IncomingCall&) -> Value { return self.aliases(); }},
        {L"Parent", 0x303, server::readOnly, 0, 0,
         [](ViewObject& self, const IncomingCall&) -> Value { return databaseValue(self.notes_, self.database_); }},
        {L"EntryCount", 0x304, server::readOnly, 0, 0,
         [](ViewObject& self, const IncomingCall&) -> Value { return static_cast<std::int32_t>(self.count()); }},
        {L"IsDefaultView", 0x305, server::readOnly, 0, 0,
         [](ViewObject& self, const IncomingCall&) -> Value { return self.database_->defaultView() == &self.view_; }},
        {L"GetDocumentByKey", 0x306, server::method, 1, 2,
         [](ViewObject& self, const IncomingCall& call) -> Value { return self.byKey(call); }},
        {L"FTSearch", 0x307, server::method, 1, 2,
         [](ViewObject& self, const IncomingCall& call) -> Value { return self.search(call); }},
        {L"Clear", 0x308, server::method, 0, 0,
         [](ViewObject& self, const IncomingCall&) -> Value { return self.clear(), Value(); }},
        {L"Refresh", 0x309, server::method, 0, 0,
         [](ViewObject& self, const IncomingCall&) -> Value { return self.refresh(), Value(); }},
        {L"GetFirstDocument", 0x30A, server::method, 0, 0,
         [](ViewObject& self, const IncomingCall&) -> Value { return self.at(0); }},
        {L"GetLastDocument", 0x30B, server::method, 0, 0,
         [](ViewObject& self, const IncomingCall&) -> Value { return self.at(self.count() - 1); }},
        {L"GetNextDocument", 0x30C, server::method, 1, 1,
         [](ViewObject& self, const IncomingCall& call) -> Value { return self.next(call); }},
        {L"GetPrevDocument", 0x30D, server::method, 1, 1,
         [](ViewObject& self, const IncomingCall& call) -> Value { return self.previous(call); }},
        {L"GetNthDocument", 0x30E, server::method, 1, 1,
         [](ViewObject& self, const IncomingCall& call) -> Value {
             return self.nth(static_cast<std::size_t>(std::max(call.arguments.int32(0), 0)));
         }},
    };
    return rows;
}

}

Value viewValue(Notes& notes, const SharedDatabase& database, const View* view)
{
    if (!view) return automation::Object();
    return server::valueOf(server::make<ViewObject>(notes, database, *view));
}

}
