// NotesUIDatabase and NotesUIView: a database and a view that the user looks at.
#include "desk/lotus/errors.h"
#include "desk/lotus/objects.h"

namespace desk::lotus {

namespace {

class UIDatabase final : public NotesTable<UIDatabase> {
public:
    UIDatabase(Notes& notes, SharedDatabase database)
        : NotesTable(notes, L"NotesUIDatabase"), notes_(notes), database_(std::move(database))
    {}
    static const std::vector<MemberRow<UIDatabase>>& members();

private:
    Value openView(const std::wstring& name)
    {
        const View* const view = database_->view(name);
        if (!view) raise(numbers::userInterface, L"Cannot locate view: " + name);
        notes_.workspace().show(database_, view);
        return {};
    }

    Notes& notes_;
    const SharedDatabase database_;
};

const std::vector<MemberRow<UIDatabase>>& UIDatabase::members()
{
    static const std::vector<MemberRow<UIDatabase>> rows{
        {L"Database", 0x801, server::readOnly, 0, 0,
         [](UIDatabase& self, const IncomingCall&) -> Value { return databaseValue(self.notes_, self.database_); }},
        {L"OpenView", 0x802, server::method, 1, 4,
         [](UIDatabase& self, const IncomingCall& call) -> Value { return self.openView(call.arguments.text(0)); }},
    };
    return rows;
}

class UIView final : public NotesTable<UIView> {
public:
    UIView(Notes& notes, SharedDatabase database, const View& view)
        : NotesTable(notes, L"NotesUIView"), notes_(notes), database_(std::move(database)), view_(view)
    {}
    static const std::vector<MemberRow<UIView>>& members();

private:
    std::wstring aliases() const
    {
        std::wstring text;
        for (std::size_t index = 1; index < view_.names.size(); ++index)
            text += (index > 1 ? L"|" : L"") + view_.names[index];
        return text;
    }

    Notes& notes_;
    const SharedDatabase database_;
    const View& view_;
};

const std::vector<MemberRow<UIView>>& UIView::members()
{
    static const std::vector<MemberRow<UIView>> rows{
        {L"View", 0x901, server::readOnly, 0, 0,
         [](UIView& self, const IncomingCall&) -> Value {
             return viewValue(self.notes_, self.database_, &self.view_);
         }},
        {L"ViewName", 0x902, server::readOnly, 0, 0,
         [](UIView& self, const IncomingCall&) -> Value { return self.view_.names[0]; }},
        {L"ViewAlias", 0x903, server::readOnly, 0, 0,
         [](UIView& self, const IncomingCall&) -> Value { return self.aliases(); }},
    };
    return rows;
}

}

Value uiDatabaseValue(Notes& notes, const SharedDatabase& database)
{
    if (!database) return automation::Object();
    return server::valueOf(server::make<UIDatabase>(notes, database));
}

Value uiViewValue(Notes& notes, const SharedDatabase& database, const View* view)
{
    if (!view) return automation::Object();
    return server::valueOf(server::make<UIView>(notes, database, *view));
}

}
