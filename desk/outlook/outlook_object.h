// The base of Outlook's automation objects: they know their Outlook, and their
// members have other dispatch identifiers after another Outlook was installed.
#pragma once

#include "desk/common/recorded_object.h"
#include "desk/outlook/outlook.h"

#include <algorithm>
#include <vector>

namespace desk::outlook {

class OutlookObject : public RecordedObject {
public:
    OutlookObject(Outlook& outlook, const wchar_t* className) noexcept
        : RecordedObject(outlook.recorder(), className), outlook_(outlook)
    {}

    Outlook& outlook() const noexcept { return outlook_; }

protected:
    // The identifier in the class's own table of the one that a client uses.
    virtual DISPID tableId(DISPID id) const = 0;

    HRESULT admitCall(const automation::server::IncomingCall& call) override
    {
        return RecordedObject::admitCall(inTable(call));
    }

    automation::Value carryOut(const automation::server::IncomingCall& call) override
    {
        return RecordedObject::carryOut(inTable(call));
    }

private:
    automation::server::IncomingCall inTable(const automation::server::IncomingCall& call) const
    {
        automation::server::IncomingCall known = call;
        known.id = tableId(call.id);
        return known;
    }

    Outlook& outlook_;
};

// An OutlookObject whose members are the rows of Class::members().
template <class Class, class Base = OutlookObject>
class OutlookTable : public RecordedTable<Class, Base> {
public:
    using RecordedTable<Class, Base>::RecordedTable;

protected:
    DISPID idOf(std::wstring_view name) override
    {
        return movedBy(this->outlook().setup().identifiers, RecordedTable<Class, Base>::idOf(name));
    }

    DISPID tableId(DISPID id) const override
    {
        const std::size_t all = movable().size();
        return movedBy(all - this->outlook().setup().identifiers % all, id);
    }

private:
    // The identifiers of the class in the order of its rows, without those that
    // automation itself has fixed.
    static const std::vector<DISPID>& movable()
    {
        static const auto ids = [] {
            std::vector<DISPID> made;
            for (const auto& row : Class::members())
                if (row.id > DISPID_VALUE) made.push_back(row.id);
            return made;
        }();
        return ids;
    }

    static DISPID movedBy(std::size_t rows, DISPID id)
    {
        const std::vector<DISPID>& ids = movable();
        if (rows % ids.size() == 0) return id;
        const auto found = std::find(ids.begin(), ids.end(), id);
        if (found == ids.end()) return id;
        return ids[(static_cast<std::size_t>(found - ids.begin()) + rows) % ids.size()];
    }
};

}
