// NotesDocument: one opening of a document. Whatever name is none of its
// members is an item: Doc.Form = "Person" sets it, Doc.Form reads it.
#pragma once

#include "desk/lotus/objects.h"
#include "desk/lotus/open_note.h"

namespace desk::lotus {

class DocumentObject final : public NotesTable<DocumentObject> {
public:
    // `ofWindow`: got through the window that displays it.
    DocumentObject(Notes& notes, SharedNote note, bool ofWindow);
    static const std::vector<automation::server::MemberRow<DocumentObject>>& members();

    // Raises once the document was removed through this object.
    const SharedNote& opened() const;
    SavedNote saved() const { return note_->saved(); } // null before the first save

protected:
    DISPID ownId(std::wstring_view name) override;
    automation::Value answer(const automation::server::IncomingCall& call) override;
    const MemberSummary* memberOf(DISPID id) const override;

private:
    using Call = automation::server::IncomingCall;

    const Note& note() const { return opened()->note(); }
    automation::Value valueOfItem(const ItemName& name) const;
    automation::Value itemProperty(const ItemName& name, const Call& call);
    automation::Value firstItem(const std::wstring& name) const;
    automation::Value allItems() const;
    automation::Value appendItem(const Call& call);
    automation::Value replaceItem(const Call& call);
    void removeItem(const std::wstring& name);
    automation::Value save(const Call& call);
    automation::Value remove(bool force);
    Item itemFor(const ItemName& name, const Call& call, std::size_t argument) const;
    void changed();

    Notes& notes_;
    const SharedNote note_;
    const bool ofWindow_;
    bool removed_ = false;
    const Notes::Registered<DocumentObject> registered_;
};

automation::Value documentValue(Notes& notes, const SharedNote& note, bool ofWindow = false);

}
