#include "desk/outlook/recipient.h"

#include "automation/text.h"
#include "desk/outlook/application.h"
#include "desk/outlook/errors.h"
#include "desk/outlook/members.h"

#include <algorithm>

namespace desk::outlook {

namespace {

using automation::ComPtr;

constexpr long recipientClass = 4;

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

}

Value recipientOf(ItemObject& item, unsigned id)
{
    return server::valueOf(server::make<Recipient>(item, id));
}

bool resolve(Outlook& outlook, RecipientData& recipient)
{
    static const DISPID mailAddress = fieldId(L"Email1Address");
    recipient.resolved = recipient.name.find(L'@') != std::wstring::npos;
    if (recipient.resolved) recipient.address = recipient.name;
    for (const SavedItem& contact : outlook.mailbox().folder(folders::contacts)->items) {
        if (recipient.resolved) break;
        if (!automation::equalIgnoringCase(nameOf(*contact), recipient.name)) continue;
        recipient.address = textOf(*contact, mailAddress);
        recipient.resolved = true;
    }
    return recipient.resolved;
}

}
