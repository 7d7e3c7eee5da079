#include "desk/outlook/outlook.h"

#include "desk/common/text.h"
#include "desk/outlook/application.h"
#include "desk/outlook/item_object.h"

#include <algorithm>
#include <stdexcept>

namespace desk::outlook {

Outlook::Outlook(Recorder& recorder, Screen& screen, std::function<void()> changed, std::function<void()> quit)
    : recorder_(recorder), screen_(screen), changed_(std::move(changed)), quit_(std::move(quit))
{}

Outlook::~Outlook()
{
    closeWindows();
}

automation::ComPtr<IDispatch> Outlook::application()
{
    if (!application_) application_ = makeApplication(*this);
    return application_;
}

automation::ComPtr<IDispatch> Outlook::applicationForClient()
{
    ++creations_;
    if (!setup_.creation.fails) return application();
    if (setup_.creation.delay != 0) Sleep(setup_.creation.delay);
    throw automation::AutomationError(L"Outlook.Application", CO_E_SERVER_EXEC_FAILURE);
}

void Outlook::setVersion(Version version)
{
    setup_.version = version;
    changed();
}

void Outlook::changed()
{
    screen_.updateFolders();
    if (changed_) changed_();
}

void Outlook::load(const std::vector<StoreRecord>& records)
{
    std::vector<StoreRecord> items = records;
    Setup setup;
    std::erase_if(items, [&](const StoreRecord& record) {
        if (record.kind != L"outlook") return false;
        for (const auto& [setting, text] : record.fields) change(setup, setting, text);
        return true;
    });
    mailbox_.load(items);
    setup_ = setup;
    deferredCommand_.reset();
    closeWindows();
    screen_.updateFolders();
}

std::vector<StoreRecord> Outlook::records() const
{
    std::vector<StoreRecord> records = mailbox_.records();
    StoreRecord own = recordOf(setup_);
    if (!own.fields.empty()) records.insert(records.begin(), std::move(own));
    return records;
}

automation::ComPtr<ItemObject> Outlook::itemOf(const SavedItem& saved)
{
    for (const Inspector& inspector : inspectors_)
        if (inspector.item->isOf(saved)) return inspector.item;
    return makeItem(*this, saved);
}

void Outlook::blockWasRead()
{
    if (!deferredCommand_ || --deferredCommand_->blocks != 0) return;
    const DeferredCommand due = *std::exchange(deferredCommand_, std::nullopt);
    command(due.word, due.rest);
}

bool Outlook::isHeld()
{
    if (!application_) return automation::server::Dispatch::liveCount() > 0;
    const auto* const own = static_cast<automation::server::Dispatch*>(application_.get());
    return own->references() > 1 || automation::server::Dispatch::liveCount() > 1;
}

void Outlook::closeWindows()
{
    while (!inspectors_.empty()) closedByUser(inspectors_.back().id);
}

Outlook::Inspector* Outlook::inspectorOf(const ItemObject& item) noexcept
{
    for (Inspector& inspector : inspectors_)
        if (inspector.item->isSameItem(item)) return &inspector;
    return nullptr;
}

void Outlook::display(ItemObject& item, bool modal)
{
    InspectorId id = 0;
    if (const Inspector* open = inspectorOf(item)) {
        id = open->id;
        screen_.bringToFront(id);
    } else {
        id = ++lastInspector_;
        inspectors_.push_back({id, automation::ComPtr<ItemObject>(&item)});
        screen_.open(id, item.view());
    }
    if (modal) screen_.waitUntilClosed(id);
}

void Outlook::updateInspector(ItemObject& item)
{
    if (const Inspector* open = inspectorOf(item)) screen_.update(open->id, open->item->view());
}

void Outlook::closeInspector(ItemObject& item)
{
    if (const Inspector* open = inspectorOf(item)) remove(open->id);
}

void Outlook::closedByUser(InspectorId id)
{
    for (const Inspector& inspector : inspectors_) {
        if (inspector.id != id) continue;
        inspector.item->discard();
        remove(id);
        return;
    }
}

void Outlook::savedByUser(InspectorId id)
{
    for (const Inspector& inspector : inspectors_) {
        if (inspector.id != id) continue;
        try {
            inspector.item->save();
        } catch (const automation::server::Exception& error) {
            throw std::runtime_error(utf8(error.description));
        }
        remove(id);
        return;
    }
}

void Outlook::open(const std::wstring& entryId)
{
    const SavedItem saved = mailbox_.find(entryId);
    if (!saved) throw std::runtime_error("there is no such item");
    display(*itemOf(saved).get(), false);
}

void Outlook::remove(InspectorId id)
{
    const auto found =
        std::find_if(inspectors_.begin(), inspectors_.end(), [id](const Inspector& one) { return one.id == id; });
    if (found == inspectors_.end()) return;
    // The window may hold the item's last reference: it goes after the list is in order again.
    const automation::ComPtr<ItemObject> item = found->item;
    inspectors_.erase(found);
    screen_.close(id);
}

}
