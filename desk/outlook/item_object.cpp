#include "desk/outlook/item_object.h"

#include "automation/conversion.h"
#include "desk/outlook/errors.h"
#include "desk/outlook/item_view.h"

namespace desk::outlook {

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
    return call.arguments.isTrue(0);
}

}

ItemObject::ItemObject(Outlook& outlook, ItemClass itemClass, long folder)
    : OutlookObject(outlook, classNameOf(itemClass)), working_(std::make_unique<Item>(itemClass))
{
    working_->folder = folder;
}

ItemObject::ItemObject(Outlook& outlook, SavedItem saved)
    : OutlookObject(outlook, classNameOf(saved->itemClass)), saved_(std::move(saved))
{}

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
    outlook().updateInspector(*this);
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
        saved_ = outlook().mailbox().add(*working_);
    }
    working_.reset();
    unsaved_ = false;
    outlook().updateInspector(*this);
    outlook().changed();
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
        if (field.has(Field::guarded)) outlook().guard().ask();
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
    outlook().closeInspector(*this);
    return {};
}

Value ItemObject::answerDisplay(const IncomingCall& call)
{
    checkReachable();
    outlook().display(*this, call.arguments.isGiven(0) && call.arguments.isTrue(0));
    return {};
}

Value ItemObject::answerDelete()
{
    checkReachable();
    const automation::ComPtr<ItemObject> alive(this);
    outlook().closeInspector(*this);
    gone_ = true;
    if (!saved_) return {};
    if (saved_->folder == folders::deleted) outlook().mailbox().remove(saved_);
    else outlook().mailbox().move(saved_, folders::deleted);
    outlook().changed();
    return {};
}

Value ItemObject::answerSend()
{
    checkReachable();
    outlook().guard().ask();
    const automation::ComPtr<ItemObject> alive(this);
    if (item().recipients.empty())
        raise(E_FAIL, L"We need to know who to send this to. Make sure you enter at least one name.");
    static const Field& sent = *fieldNamed(L"Sent");
    static const Field& sentOn = *fieldNamed(L"SentOn");
    setValue(edit(), sent, true);
    setValue(edit(), sentOn, Value::date(automation::now()));
    save();
    outlook().closeInspector(*this);
    outlook().mailbox().move(saved_, folders::sent);
    gone_ = true;
    outlook().changed();
    return {};
}

}
