#include "desk/outlook/application.h"

#include "automation/text.h"
#include "desk/outlook/errors.h"
#include "desk/outlook/folder_object.h"
#include "desk/outlook/item_object.h"
#include "desk/outlook/members.h"

namespace desk::outlook {

namespace {

constexpr long applicationClass = 0;
constexpr long nameSpaceClass = 1;

class NameSpace final : public OutlookTable<NameSpace> {
public:
    explicit NameSpace(Outlook& outlook) : OutlookTable(outlook, L"NameSpace") {}
    static const std::vector<MemberRow<NameSpace>>& members();

private:
    Value defaultFolder(long number)
    {
        Folder* folder = outlook().mailbox().folder(number);
        if (!folder) raiseBadParameter();
        return folderValue(outlook(), *folder);
    }

    Value itemFromId(const std::wstring& id)
    {
        const SavedItem saved = outlook().mailbox().find(id);
        if (!saved) raiseNotFound();
        return server::valueOf(outlook().itemOf(saved));
    }
};

class Application final : public OutlookTable<Application> {
public:
    explicit Application(Outlook& outlook) : OutlookTable(outlook, L"Application") {}
    static const std::vector<MemberRow<Application>>& members();

private:
    Value nameSpace(const std::wstring& type)
    {
        if (!automation::equalIgnoringCase(type, L"MAPI")) raiseBadParameter();
        return sessionOf(outlook());
    }

    Value createItem(long type)
    {
        const ItemClass itemClass = itemClassOfType(type);
        return server::valueOf(makeItem(outlook(), itemClass, Mailbox::homeOf(itemClass)));
    }

    Value version() const
    {
        switch (outlook().version()) {
        case Version::v2003: return L"11.0.0.8173";
        case Version::v2007: return L"12.0.0.6607";
        case Version::v2016: break;
        }
        return L"16.0.0.4266";
    }
};

const std::vector<MemberRow<NameSpace>>& NameSpace::members()
{
    static const std::vector<MemberRow<NameSpace>> rows{
        {L"GetDefaultFolder", 0x210B, server::method, 1, 1,
         [](NameSpace& self, const IncomingCall& call) -> Value {
             return self.defaultFolder(call.arguments.int32(0));
         }},
        {L"GetItemFromID", 0x2109, server::method, 1, 2,
         [](NameSpace& self, const IncomingCall& call) -> Value { return self.itemFromId(call.arguments.text(0)); }},
        {L"Type", 0x2104, server::readOnly, 0, 0, [](NameSpace&, const IncomingCall&) -> Value { return L"MAPI"; }},
        {L"Logon", 0x2106, server::method, 0, 4, [](NameSpace&, const IncomingCall&) -> Value { return {}; }},
        {L"Logoff", 0x2107, server::method, 0, 0, [](NameSpace&, const IncomingCall&) -> Value { return {}; }},
        {L"Application", members::application, server::readOnly, 0, 0,
         [](NameSpace& self, const IncomingCall&) -> Value { return applicationOf(self.outlook()); }},
        {L"Session", members::session, server::readOnly, 0, 0,
         [](NameSpace& self, const IncomingCall&) -> Value { return automation::Object(&self); }},
        {L"Parent", members::parent, server::readOnly, 0, 0,
         [](NameSpace& self, const IncomingCall&) -> Value { return applicationOf(self.outlook()); }},
        {L"Class", members::objectClass, server::readOnly, 0, 0,
         [](NameSpace&, const IncomingCall&) -> Value { return nameSpaceClass; }},
    };
    return rows;
}

const std::vector<MemberRow<Application>>& Application::members()
{
    static const std::vector<MemberRow<Application>> rows{
        {L"GetNamespace", 0x110, server::method, 1, 1,
         [](Application& self, const IncomingCall& call) -> Value { return self.nameSpace(call.arguments.text(0)); }},
        {L"CreateItem", 0x10A, server::method, 1, 1,
         [](Application& self, const IncomingCall& call) -> Value { return self.createItem(call.arguments.int32(0)); }},
        {L"Quit", 0x113, server::method, 0, 0,
         [](Application& self, const IncomingCall&) -> Value { return self.outlook().quit(), Value(); }},
        {L"Name", members::name, server::readOnly, 0, 0,
         [](Application&, const IncomingCall&) -> Value { return L"Outlook"; }},
        {L"Version", 0x116, server::readOnly, 0, 0,
         [](Application& self, const IncomingCall&) -> Value { return self.version(); }},
        {L"Session", members::session, server::readOnly, 0, 0,
         [](Application& self, const IncomingCall&) -> Value { return sessionOf(self.outlook()); }},
        {L"Application", members::application, server::readOnly, 0, 0,
         [](Application& self, const IncomingCall&) -> Value { return automation::Object(&self); }},
        {L"Parent", members::parent, server::readOnly, 0, 0,
         [](Application&, const IncomingCall&) -> Value { return automation::Object(); }},
        {L"Class", members::objectClass, server::readOnly, 0, 0,
         [](Application&, const IncomingCall&) -> Value { return applicationClass; }},
    };
    return rows;
}

}

automation::ComPtr<IDispatch> makeApplication(Outlook& outlook)
{
    return server::make<Application>(outlook);
}

Value applicationOf(Outlook& outlook)
{
    return automation::Object(outlook.application().get());
}

Value sessionOf(Outlook& outlook)
{
    return server::valueOf(server::make<NameSpace>(outlook));
}

ItemClass itemClassOfType(long type)
{
    switch (type) {
    case 0: return ItemClass::mail;
    case 2: return ItemClass::contact;
    case 4: return ItemClass::journal;
    case 7: return ItemClass::distributionList;
    default: raiseBadParameter();
    }
}

}
