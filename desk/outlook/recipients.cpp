#include "desk/outlook/recipients.h"

#include "automation/server/collection.h"
#include "automation/text.h"
#include "desk/outlook/application.h"
#include "desk/outlook/errors.h"
#include "desk/outlook/members.h"
#include "desk/outlook/recipient.h"

namespace desk::outlook {

namespace {

using automation::ComPtr;

constexpr long recipientsClass = 17;

class Recipients final : public OutlookTable<Recipients> {
public:
    explicit Recipients(ItemObject& item) : OutlookTable(item.outlook(), L"Recipients"), item_(&item) {}
    static const std::vector<MemberRow<Recipients>>& members();

protected:
    Value answer(const IncomingCall& call) override
    {
        outlook().guard().ask();
        return OutlookTable::answer(call);
    }

private:
    const std::vector<RecipientData>& all() const { return item_->item().recipients; }

    Value one(const RecipientData& data) const { return recipientOf(*item_.get(), data.id); }

    Value add(std::wstring name)
    {
        if (name.empty()) raiseBadParameter();
        const unsigned id = addRecipient(item_->edit(), std::move(name), 1).id;
        item_->changed();
        return recipientOf(*item_.get(), id);
    }

    std::size_t position(const IncomingCall& call) const
    {
        const long index = call.arguments.int32(0);
        if (index < 1 || static_cast<std::size_t>(index) > all().size()) raiseOutOfBounds();
        return static_cast<std::size_t>(index) - 1;
    }

    Value item(const IncomingCall& call) const
    {
        const Value key = call.arguments.value(0);
        if (key.type() != VT_BSTR) return one(all()[position(call)]);
        for (const RecipientData& data : all())
            if (automation::equalIgnoringCase(data.name, key.text())) return one(data);
        raiseNotFound();
    }

    Value remove(const IncomingCall& call)
    {
        const auto index = static_cast<std::ptrdiff_t>(position(call));
        auto& recipients = item_->edit().recipients;
        recipients.erase(recipients.begin() + index);
        item_->changed();
        return {};
    }

    Value resolveAll()
    {
        bool complete = true;
        for (RecipientData& recipient : item_->edit().recipients)
            if (!recipient.resolved && !resolve(outlook(), recipient)) complete = false;
        item_->changed();
        return complete;
    }

    Value enumeration() const
    {
        std::vector<Value> values;
        for (const RecipientData& data : all()) values.push_back(one(data));
        return server::enumerationOf(std::move(values));
    }

    const ComPtr<ItemObject> item_;
};

const std::vector<MemberRow<Recipients>>& Recipients::members()
{
    static const std::vector<MemberRow<Recipients>> rows{
        {L"Item", members::item, DISPATCH_METHOD | DISPATCH_PROPERTYGET, 1, 1,
         [](Recipients& self, const IncomingCall& call) -> Value { return self.item(call); }},
        {L"Count", members::count, server::readOnly, 0, 0,
         [](Recipients& self, const IncomingCall&) -> Value { return static_cast<std::int32_t>(self.all().size()); }},
        {L"Add", 0x6F, server::method, 1, 1,
         [](Recipients& self, const IncomingCall& call) -> Value { return self.add(call.arguments.text(0)); }},
        {L"Remove", members::removeAt, server::method, 1, 1,
         [](Recipients& self, const IncomingCall& call) -> Value { return self.remove(call); }},
        {L"ResolveAll", 0x7E, server::method, 0, 0,
         [](Recipients& self, const IncomingCall&) -> Value { return self.resolveAll(); }},
        {L"_NewEnum", DISPID_NEWENUM, DISPATCH_METHOD | DISPATCH_PROPERTYGET, 0, 0,
         [](Recipients& self, const IncomingCall&) -> Value { return self.enumeration(); }},
        {L"Application", members::application, server::readOnly, 0, 0,
         [](Recipients& self, const IncomingCall&) -> Value { return applicationOf(self.outlook()); }},
        {L"Session", members::session, server::readOnly, 0, 0,
         [](Recipients& self, const IncomingCall&) -> Value { return sessionOf(self.outlook()); }},
        {L"Parent", members::parent, server::readOnly, 0, 0,
         [](Recipients& self, const IncomingCall&) -> Value { return automation::Object(self.item_.get()); }},
        {L"Class", members::objectClass, server::readOnly, 0, 0,
         [](Recipients&, const IncomingCall&) -> Value { return recipientsClass; }},
    };
    return rows;
}

}

Value recipientsOf(ItemObject& item)
{
    return server::valueOf(server::make<Recipients>(item));
}

}
