// Items: a folder's items with a cursor for GetFirst and GetNext, and another
// for Find and FindNext. The item objects are made as they are asked for.
#include "automation/server/collection.h"
#include "desk/outlook/application.h"
#include "desk/outlook/errors.h"
#include "desk/outlook/filter.h"
#include "desk/outlook/folder_object.h"
#include "desk/outlook/item_object.h"
#include "desk/outlook/members.h"
#include "desk/outlook/outlook_object.h"

#include "automation/text.h"

namespace desk::outlook {

namespace {

constexpr long itemsClass = 16;

class Items final : public OutlookTable<Items> {
public:
    Items(Outlook& outlook, Folder& folder) : OutlookTable(outlook, L"Items"), folder_(folder) {}
    static const std::vector<MemberRow<Items>>& members();

private:
    const std::vector<SavedItem>& all() const { return folder_.items; }

    Value at(std::size_t index) const
    {
        if (index >= all().size()) return automation::Object();
        return server::valueOf(outlook().itemOf(all()[index]));
    }

    Value item(const IncomingCall& call) const
    {
        const Value key = call.arguments.value(0);
        if (key.type() == VT_BSTR) return named(key.text());
        const long index = call.arguments.int32(0);
        if (index < 1 || static_cast<std::size_t>(index) > all().size()) raiseOutOfBounds();
        return at(static_cast<std::size_t>(index) - 1);
    }

    Value named(const std::wstring& name) const
    {
        for (std::size_t index = 0; index < all().size(); ++index)
            if (automation::equalIgnoringCase(nameOf(*all()[index]), name)) return at(index);
        raiseNotFound();
    }

    Value add(const IncomingCall& call) const
    {
        ItemClass itemClass = folder_.defaultClass;
        if (call.arguments.isGiven(0)) {
            const Value type = call.arguments.value(0);
            if (type.type() != VT_BSTR) itemClass = itemClassOfType(call.arguments.int32(0));
            else if (!itemClassOf(type.text(), itemClass)) raiseNotFound();
        }
        return server::valueOf(makeItem(outlook(), itemClass, folder_.number));
    }

    // Positions are counted from 1; 0 is before the first item. Before
    // GetFirst the cursor is there, so that GetNext gives the first.
    Value moveTo(std::size_t position)
    {
        position_ = std::min(position, all().size() + 1);
        return position_ == 0 ? Value(automation::Object()) : at(position_ - 1);
    }

    Value find(const std::wstring& filter)
    {
        searched_ = parseFilter(filter);
        found_ = 0;
        return findNext();
    }

    Value findNext()
    {
        if (!searched_) return automation::Object();
        while (found_ < all().size()) {
            const std::size_t index = found_++;
            if (searched_->holds(*all()[index])) return at(index);
        }
        return automation::Object();
    }

    Value enumeration() const
    {
        std::vector<Value> values;
        values.reserve(all().size());
        for (std::size_t index = 0; index < all().size(); ++index) values.push_back(at(index));
        return server::enumerationOf(std::move(values));
    }

    Value removeAt(long index)
    {
        if (index < 1 || static_cast<std::size_t>(index) > all().size()) raiseOutOfBounds();
        outlook().itemOf(all()[static_cast<std::size_t>(index) - 1])->answerDelete();
        return {};
    }

    Folder& folder_;
    std::size_t position_ = 0;
    std::unique_ptr<Condition> searched_;
    std::size_t found_ = 0; // how many items have been searched
};

const std::vector<MemberRow<Items>>& Items::members()
{
    static const std::vector<MemberRow<Items>> rows{
        {L"Item", members::item, DISPATCH_METHOD | DISPATCH_PROPERTYGET, 1, 1,
         [](Items& self, const IncomingCall& call) -> Value { return self.item(call); }},
        {L"Count", members::count, server::readOnly, 0, 0,
         [](Items& self, const IncomingCall&) -> Value { return static_cast<std::int32_t>(self.all().size()); }},
        {L"Add", members::add, server::method, 0, 1,
         [](Items& self, const IncomingCall& call) -> Value { return self.add(call); }},
        {L"GetFirst", 0x56, server::method, 0, 0,
         [](Items& self, const IncomingCall&) -> Value { return self.moveTo(1); }},
        {L"GetNext", 0x57, server::method, 0, 0,
         [](Items& self, const IncomingCall&) -> Value { return self.moveTo(self.position_ + 1); }},
        {L"GetLast", 0x58, server::method, 0, 0,
         [](Items& self, const IncomingCall&) -> Value { return self.moveTo(self.all().size()); }},
        {L"GetPrevious", 0x59, server::method, 0, 0,
         [](Items& self, const IncomingCall&) -> Value {
             return self.moveTo(self.position_ == 0 ? 0 : self.position_ - 1);
         }},
        {L"Find", 0x62, server::method, 1, 1,
         [](Items& self, const IncomingCall& call) -> Value { return self.find(call.arguments.text(0)); }},
        {L"FindNext", 0x63, server::method, 0, 0,
         [](Items& self, const IncomingCall&) -> Value { return self.findNext(); }},
        {L"Remove", members::removeAt, server::method, 1, 1,
         [](Items& self, const IncomingCall& call) -> Value { return self.removeAt(call.arguments.int32(0)); }},
        {L"_NewEnum", DISPID_NEWENUM, DISPATCH_METHOD | DISPATCH_PROPERTYGET, 0, 0,
         [](Items& self, const IncomingCall&) -> Value { return self.enumeration(); }},
        {L"Application", members::application, server::readOnly, 0, 0,
         [](Items& self, const IncomingCall&) -> Value { return applicationOf(self.outlook()); }},
        {L"Session", members::session, server::readOnly, 0, 0,
         [](Items& self, const IncomingCall&) -> Value { return sessionOf(self.outlook()); }},
        {L"Parent", members::parent, server::readOnly, 0, 0,
         [](Items& self, const IncomingCall&) -> Value { return folderValue(self.outlook(), self.folder_); }},
        {L"Class", members::objectClass, server::readOnly, 0, 0,
         [](Items&, const IncomingCall&) -> Value { return itemsClass; }},
    };
    return rows;
}

}

Value itemsOf(Outlook& outlook, Folder& folder)
{
    return server::valueOf(server::make<Items>(outlook, folder));
}

}
