#include "desk/outlook/recipients.h"

#include "automation/server/collection.h"
#include "automation/text.h"
#include "desk/outlook/application.h"
#include "desk/outlook/errors.h"
#include "desk/outlook/members.h"

#include <algorithm>

namespace desk::outlook {

namespace {

using automation::ComPtr;

constexpr long recipientsClass = 17;
constexpr long recipientClass = 4;

// A name is resolved when it is an address or belongs to a contact.
bool resolve(Outlook& outlook, RecipientData& recipient)
{
    static const DISPID mailAddress = fieldId(L"Email1Address");
    recipient.resolved = recipient.name.find(L'@') != std::wstring::npos;
    if (recipient.resolved) recipient.address = recipient.name;
    for (const SavedItem& contact : outlook.mailbox().folder(folders::contacts)->items) {
        if (recipient.resolved) break;
        if (!automation::equalWithoutCase(nameOf(*contact), recipient.name)) continue;
        recipient.address = textOf(*contact, mailAddress);
        recipient.resolved = true;
    }
    return recipient.resolved;
}

class Recipient final : public OutlookTable<Recipient> {
public:
    Recipient(ItemObject& item, unsigned id) : OutlookTable(item.outlook(), L"Recipient"), item_(&item), id_(id) {}
    static const std::vector<MemberRow<Recipient>>& members();

private:
    const RecipientData& data() const
    {
        const auto& all = item_->item().recipients;
        const auto found = std::find_if(all.begin(), all.end(), [this](const auto& one) { return one.id == id_; });
        if (found == all.end()) raiseNotFound();
        return *found;
    }

    RecipientData& edit()
    {
        item_->edit();
        return const_cast<RecipientData&>(data()); // the working copy's own, not the saved item's
    }

    Value type(const IncomingCall& call)
    {
        if (!call.isPut()) return data().type;
        const long type = call.arguments.int32(0);
        if (type < 1 || type > 3) raiseBadParameter();
        edit().type = type;
        item_->changed();
        return {};
    }

    Value resolveIt()
    {
        const bool resolved = resolve(outlook(), edit());
        item_->changed();
        return resolved;
    }

    Value remove()
    {
        data();
        std::erase_if(item_->edit().recipients, [this](const auto& one) { return one.id == id_; });
        item_->changed();
        return {};
    }

    const ComPtr<ItemObject> item_;
    const unsigned id_;
};

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

    Value one(const RecipientData& data) const
    {
        return server::valueOf(server::make<Recipient>(*item_.get(), data.id));
    }

    Value add(std::wstring name)
    {
        if (name.empty()) raiseBadParameter();
        const unsigned id = addRecipient(item_->edit(), std::move(name), 1).id;
        item_->changed();
        return server::valueOf(server::make<Recipient>(*item_.get(), id));
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
            if (automation::equalWithoutCase(data.name, key.text())) return one(data);
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

const std::vector<MemberRow<Recipient>>& Recipient::members()
{
    static const std::vector<MemberRow<Recipient>> rows{
        {L"Name", members::name, server::readOnly, 0, 0,
         [](Recipient& self, const IncomingCall&) -> Value { return self.data().name; }},
        {L"Address", 0x3003, server::readOnly, 0, 0,
         [](Recipient& self, const IncomingCall&) -> Value { return self.data().address; }},
        {L"Resolved", 0x64, server::readOnly, 0, 0,
         [](Recipient& self, const IncomingCall&) -> Value { return self.data().resolved; }},
        {L"Type", 0x0C15, server::readWrite, 0, 0,
         [](Recipient& self, const IncomingCall& call) -> Value { return self.type(call); }},
        {L"Index", 0x5B, server::readOnly, 0, 0,
         [](Recipient& self, const IncomingCall&) -> Value {
             return static_cast<std::int32_t>(&self.data() - self.item_->item().recipients.data()) + 1;
         }},
        {L"Resolve", 0x71, server::method, 0, 0,
         [](Recipient& self, const IncomingCall&) -> Value { return self.resolveIt(); }},
        {L"Delete", members::remove, server::method, 0, 0,
         [](Recipient& self, const IncomingCall&) -> Value { return self.remove(); }},
        {L"Application", members::application, server::readOnly, 0, 0,
         [](Recipient& self, const IncomingCall&) -> Value { return applicationOf(self.outlook()); }},
        {L"Session", members::session, server::readOnly, 0, 0,
         [](Recipient& self, const IncomingCall&) -> Value { return sessionOf(self.outlook()); }},
        {L"Parent", members::parent, server::readOnly, 0, 0,
         [](Recipient& self, const IncomingCall&) -> Value { return automation::Object(self.item_.get()); }},
        {L"Class", members::objectClass, server::readOnly, 0, 0,
         [](Recipient&, const IncomingCall&) -> Value { return recipientClass; }},
    };
    return rows;
}

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
