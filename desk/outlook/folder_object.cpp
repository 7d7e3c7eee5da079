#include "desk/outlook/folder_object.h"

#include "automation/text.h"
#include "desk/outlook/application.h"
#include "desk/outlook/members.h"
#include "desk/outlook/outlook_object.h"
#include "desk/outlook/table.h"

#include <algorithm>

namespace desk::outlook {

namespace {

constexpr long folderClass = 2;

class FolderObject final : public OutlookTable<FolderObject> {
public:
    FolderObject(Outlook& outlook, Folder& folder) : OutlookTable(outlook, L"Folder"), folder_(folder) {}
    static const std::vector<MemberRow<FolderObject>>& members();

protected:
    // Before 2007 a folder had no table.
    DISPID idOf(std::wstring_view name) override
    {
        if (outlook().version() == Version::v2003 && automation::equalIgnoringCase(name, L"GetTable"))
            return DISPID_UNKNOWN;
        return OutlookTable::idOf(name);
    }

    Value answer(const IncomingCall& call) override
    {
        if (outlook().version() == Version::v2003 && call.id == tableId) throw server::Failure{DISP_E_MEMBERNOTFOUND};
        return OutlookTable::answer(call);
    }

private:
    static constexpr DISPID tableId = 0xFBDF;

    long itemType() const
    {
        switch (folder_.defaultClass) {
        case ItemClass::contact: return 2;
        case ItemClass::journal: return 4;
        case ItemClass::distributionList: return 7;
        case ItemClass::mail: break;
        }
        return 0;
    }

    Value table(const IncomingCall& call)
    {
        return tableOf(outlook(), folder_, call.arguments.isGiven(0) ? call.arguments.text(0) : std::wstring());
    }

    std::int32_t unread() const
    {
        static const Field& field = *fieldNamed(L"UnRead");
        return static_cast<std::int32_t>(
            std::count_if(folder_.items.begin(), folder_.items.end(),
                          [](const auto& item) { return valueOf(*item, field).isTrue(); }));
    }

    Folder& folder_;
};

const std::vector<MemberRow<FolderObject>>& FolderObject::members()
{
    static const std::vector<MemberRow<FolderObject>> rows{
        {L"Name", members::name, server::readOnly, 0, 0,
         [](FolderObject& self, const IncomingCall&) -> Value { return self.folder_.name; }},
        {L"Items", 0x3100, server::readOnly, 0, 0,
         [](FolderObject& self, const IncomingCall&) -> Value { return itemsOf(self.outlook(), self.folder_); }},
        {L"GetTable", tableId, server::method, 0, 2,
         [](FolderObject& self, const IncomingCall& call) -> Value { return self.table(call); }},
        {L"DefaultItemType", 0x3106, server::readOnly, 0, 0,
         [](FolderObject& self, const IncomingCall&) -> Value { return self.itemType(); }},
        {L"DefaultMessageClass", 0x3107, server::readOnly, 0, 0,
         [](FolderObject& self, const IncomingCall&) -> Value { return messageClass(self.folder_.defaultClass); }},
        {L"UnReadItemCount", 0x3603, server::readOnly, 0, 0,
         [](FolderObject& self, const IncomingCall&) -> Value { return self.unread(); }},
        {L"Application", members::application, server::readOnly, 0, 0,
         [](FolderObject& self, const IncomingCall&) -> Value { return applicationOf(self.outlook()); }},
        {L"Session", members::session, server::readOnly, 0, 0,
         [](FolderObject& self, const IncomingCall&) -> Value { return sessionOf(self.outlook()); }},
        {L"Parent", members::parent, server::readOnly, 0, 0,
         [](FolderObject& self, const IncomingCall&) -> Value { return sessionOf(self.outlook()); }},
        {L"Class", members::objectClass, server::readOnly, 0, 0,
         [](FolderObject&, const IncomingCall&) -> Value { return folderClass; }},
    };
    return rows;
}

}

Value folderValue(Outlook& outlook, Folder& folder)
{
    return server::valueOf(server::make<FolderObject>(outlook, folder));
}

}
