// The member tables of the item classes.
#include "desk/outlook/application.h"
#include "desk/outlook/folder_object.h"
#include "desk/outlook/item_object.h"
#include "desk/outlook/members.h"
#include "desk/outlook/recipients.h"

namespace desk::outlook {

namespace {

template <ItemClass itemClass>
class ItemOf final : public OutlookTable<ItemOf<itemClass>, ItemObject> {
public:
    using OutlookTable<ItemOf<itemClass>, ItemObject>::OutlookTable;
    static const std::vector<MemberRow<ItemOf>>& members();
};

template <class Class>
void addFields(std::vector<MemberRow<Class>>& rows, ItemClass itemClass)
{
    for (const Field& field : allFields) {
        if (!field.in(itemClass)) continue;
        rows.push_back({field.name, field.id(), field.has(Field::readOnly) ? server::readOnly : server::readWrite, 0, 0,
                        [](Class& self, const IncomingCall& call) { return self.answerField(call); }});
    }
}

template <class Class>
void addMethods(std::vector<MemberRow<Class>>& rows)
{
    using Row = MemberRow<Class>;
    const Row methods[] = {
        {L"Save", members::save, server::method, 0, 0,
         [](Class& self, const IncomingCall&) -> Value { return self.save(), Value(); }},
        {L"Close", members::close, server::method, 1, 1,
         [](Class& self, const IncomingCall& call) -> Value { return self.answerClose(call); }},
        {L"Display", members::display, server::method, 0, 1,
         [](Class& self, const IncomingCall& call) -> Value { return self.answerDisplay(call); }},
        {L"Delete", members::remove, server::method, 0, 0,
         [](Class& self, const IncomingCall&) -> Value { return self.answerDelete(); }},
        {L"Application", members::application, server::readOnly, 0, 0,
         [](Class& self, const IncomingCall&) -> Value { return applicationOf(self.outlook()); }},
        {L"Session", members::session, server::readOnly, 0, 0,
         [](Class& self, const IncomingCall&) -> Value { return sessionOf(self.outlook()); }},
        {L"Parent", members::parent, server::readOnly, 0, 0,
         [](Class& self, const IncomingCall&) -> Value { return self.parent(); }},
    };
    rows.insert(rows.end(), std::begin(methods), std::end(methods));
}

template <ItemClass itemClass>
const std::vector<MemberRow<ItemOf<itemClass>>>& ItemOf<itemClass>::members()
{
    static const auto rows = [] {
        std::vector<MemberRow<ItemOf>> made;
        addFields(made, itemClass);
        addMethods(made);
        if (itemClass == ItemClass::journal || itemClass == ItemClass::mail)
            made.push_back({L"Recipients", members::recipients, server::readOnly, 0, 0,
                            [](ItemOf& self, const IncomingCall&) -> Value {
                                self.outlook().guard().ask();
                                return recipientsOf(self);
                            }});
        if (itemClass == ItemClass::mail)
            made.push_back({L"Send", members::send, server::method, 0, 0,
                            [](ItemOf& self, const IncomingCall&) -> Value { return self.answerSend(); }});
        return made;
    }();
    return rows;
}

template <class... Arguments>
automation::ComPtr<ItemObject> makeOf(ItemClass itemClass, Arguments&&... arguments)
{
    switch (itemClass) {
    case ItemClass::contact: return server::make<ItemOf<ItemClass::contact>>(arguments...);
    case ItemClass::distributionList: return server::make<ItemOf<ItemClass::distributionList>>(arguments...);
    case ItemClass::journal: return server::make<ItemOf<ItemClass::journal>>(arguments...);
    case ItemClass::mail: break;
    }
    return server::make<ItemOf<ItemClass::mail>>(arguments...);
}

}

automation::ComPtr<ItemObject> makeItem(Outlook& outlook, ItemClass itemClass, long folder)
{
    return makeOf(itemClass, outlook, itemClass, folder);
}

automation::ComPtr<ItemObject> makeItem(Outlook& outlook, const SavedItem& saved)
{
    return makeOf(saved->itemClass, outlook, saved);
}

Value ItemObject::parent()
{
    return folderValue(outlook(), *outlook().mailbox().folder(item().folder));
}

}
