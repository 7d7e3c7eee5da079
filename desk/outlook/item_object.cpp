#include "desk/outlook/item_object.h"

#include "automation/conversion.h"
#include "desk/outlook/errors.h"
#include "desk/outlook/item_view.h"

namespace desk::outlook {

using automation::Value;
using automation::server::IncomingCall;

namespace {

constexpr long saveAndClose = 0;
constexpr long askAtClose = 2;

const wchar_t* classNameOf(ItemClass itemClass)
{
    switch (itemClass) {
    case ItemClass::contact: return L"ContactItem";
    case ItemClass::distributionList: return L"DistListItem";
    case ItemClass::journal: return L"JournalItem";
    case ItemClass::mail: break;
    }
    return L"MailItem";
}

Value argumentFor(const Field& field, const IncomingCall& call)
{
    switch (field.type) {
    case FieldType::text: return call.arguments.text(0);
    case FieldType::date: return Value::date(call.arguments.date(0));
    case FieldType::number: return call.arguments.int32(0);
    case FieldType::boolean: break;
    }
    return call.arguments.truth(0);
}

}

ItemObject::ItemObject(Outlook& outlook, ItemClass itemClass, long folder)
    : RecordedObject(outlook.recorder(), classNameOf(itemClass)), outlook_(outlook),
      working_(std::make_unique<Item>(itemClass))
{
    working_->folder = folder;
}

ItemObject::ItemObject(Outlook& outlook, SavedItem saved)
    : RecordedObject(outlook.recorder(), classNameOf(saved->itemClass)), outlook_(outlook), saved_(std::move(saved))
{
}

void ItemObject::checkReachable() const
{
    if (gone_ || (saved_ && saved_->deleted)) raiseDeleted();
}

const Item& ItemObject::item() const
{
    return working_ ? *working_ : *saved_;
}

Item& ItemObject::edit()
{
    if (!working_) {
        working_ = std::make_unique<Item>(*saved_);
        version_ = saved_->version;
    }
    return *working_;
}

void ItemObject::changed()
{
    unsaved_ = true;
    outlook_.updateInspector(*this);
}

bool ItemObject::isSameItem(const ItemObject& other) const noexcept
{
    return this == &other || (saved_ && saved_ == other.saved_);
}

InspectorView ItemObject::view() const
{
    return viewOf(item());
}

void ItemObject::save()
{
    checkReachable();
    if (!working_) return;
    if (saved_ && version_ != saved_->version)
        raise(objectChanged, L"The operation cannot be performed because the message has been changed.");
    working_->modified = automation::now();
    ++working_->version;
    if (saved_) {
        working_->folder = saved_->folder;
        *saved_ = *working_;
    } else {
        saved_ = outlook_.mailbox().add(*working_);
    }
    working_.reset();
    unsaved_ = false;
    outlook_.updateInspector(*this);
    outlook_.changed();
}

void ItemObject::discard()
{
    if (saved_) working_.reset();
    unsaved_ = false;
}

Value ItemObject::answerField(const IncomingCall& call)
{
    checkReachable();
    const Field& field = *fieldOf(call.id);
    if (!call.isPut()) {
        if (field.name == std::wstring_view(L"Saved")) return isSaved();
        return valueOf(item(), field);
    }
    const Value value = argumentFor(field, call);
    setValue(edit(), field, value);
    changed();
    return {};
}

Value ItemObject::answerClose(const IncomingCall& call)
{
    checkReachable();
    const long mode = call.arguments.int32(0);
    if (mode < saveAndClose || mode > askAtClose) raiseBadParameter();
    // Nobody sits at the desk to be asked: the answer is No.
    if (mode == saveAndClose) save();
    else discard();
    outlook_.closeInspector(*this);
    return {};
}

Value ItemObject::answerDisplay(const IncomingCall& call)
{
    checkReachable();
    outlook_.display(*this, call.arguments.given(0) && call.arguments.truth(0));
    return {};
}

Value ItemObject::answerDelete()
{
    checkReachable();
    const automation::ComPtr<ItemObject> alive(this);
    outlook_.closeInspector(*this);
    gone_ = true;
    if (!saved_) return {};
    if (saved_->folder == folders::deleted) outlook_.mailbox().remove(saved_);
    else outlook_.mailbox().move(saved_, folders::deleted);
    outlook_.changed();
    return {};
}

Value ItemObject::answerSend()
{
    checkReachable();
    const automation::ComPtr<ItemObject> alive(this);
    if (item().recipients.empty())
        raise(E_FAIL, L"We need to know who to send this to. Make sure you enter at least one name.");
    static const Field& sent = *fieldNamed(L"Sent");
    static const Field& sentOn = *fieldNamed(L"SentOn");
    setValue(edit(), sent, true);
    setValue(edit(), sentOn, Value::date(automation::now()));
    save();
    outlook_.closeInspector(*this);
    outlook_.mailbox().move(saved_, folders::sent);
    gone_ = true;
    outlook_.changed();
    return {};
}

}
