// The base of Notes' automation objects. Where Notes is told so, each object has
// dispatch identifiers of its own.
#pragma once

#include "desk/common/recorded_object.h"
#include "desk/lotus/notes.h"

namespace desk::lotus {

class NotesObject : public RecordedObject {
public:
    NotesObject(Notes& notes, const wchar_t* className)
        : RecordedObject(notes.recorder(), className), shift_(notes.nextIdentifierShift())
    {}

protected:
    // An identifier of the class, as this object's clients know it.
    DISPID shifted(DISPID id) const noexcept { return id <= 0 ? id : id + shift_; }

    HRESULT admitCall(const automation::server::IncomingCall& call) override
    {
        return RecordedObject::admitCall(unshifted(call));
    }

    automation::Value carryOut(const automation::server::IncomingCall& call) override
    {
        return RecordedObject::carryOut(unshifted(call));
    }

private:
    automation::server::IncomingCall unshifted(const automation::server::IncomingCall& call) const
    {
        automation::server::IncomingCall known = call;
        if (known.id > 0) known.id -= shift_;
        return known;
    }

    const DISPID shift_;
};

// A NotesObject whose members are the rows of Class::members().
template <class Class>
class NotesTable : public RecordedTable<Class, NotesObject> {
public:
    using RecordedTable<Class, NotesObject>::RecordedTable;

protected:
    // What a class adds to its rows, it adds to this.
    virtual DISPID ownId(std::wstring_view name) { return RecordedTable<Class, NotesObject>::idOf(name); }

    DISPID idOf(std::wstring_view name) final { return this->shifted(ownId(name)); }
};

}
