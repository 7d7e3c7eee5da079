#include "desk/softphone/softphone.h"

#include "desk/common/text.h"

#include <stdexcept>
#include <utility>

namespace desk::softphone {

using automation::server::make;
using automation::server::valueOf;

namespace {

[[noreturn]] void refuseUnknown(RecordId id)
{
    throw std::runtime_error("there is no record " + utf8(textOf(id)));
}

}

Softphone::Softphone(Recorder& recorder) : phone_(recorder), application_(make<Application>(phone_)) {}

void Softphone::ring(CallRecord call)
{
    phone_.call = call;
    phone_.tellChanged();
    raise([this, record = std::move(call)] {
        application_->line->events.raise(PAVEX_ON_LINE_NEW_CALL, {valueOf(make<Call>(phone_, record))});
    });
}

void Softphone::hangUp()
{
    phone_.call.reset();
    phone_.tellChanged();
}

RecordId Softphone::addHistory(HistoryRecord record)
{
    const HistoryRecord kept = phone_.contents.history.add(std::move(record));
    phone_.tellChanged();
    raise([this, kept] {
        application_->history->events.raise(PAVEX_ON_HISTORIC_NEW_ITEM, {valueOf(make<HistoryItem>(phone_, kept))});
    });
    return kept.id;
}

void Softphone::removeHistory(RecordId id)
{
    if (!phone_.contents.history.remove(id)) refuseUnknown(id);
    phone_.tellChanged();
    raise([this, id] { application_->history->events.raise(PAVEX_ON_HISTORIC_DELETE_ITEM, {id.high, id.low}); });
}

RecordId Softphone::addEntry(EntryRecord record)
{
    const EntryRecord kept = phone_.contents.entries.add(std::move(record));
    phone_.tellChanged();
    raise([this, kept] {
        application_->addressBook->events.raise(PAVEX_ON_REPERTORY_NEW_ENTRY, {valueOf(make<Entry>(phone_, kept))});
    });
    return kept.id;
}

void Softphone::removeEntry(RecordId id)
{
    if (!phone_.contents.entries.remove(id)) refuseUnknown(id);
    phone_.tellChanged();
    raise([this, id] { application_->addressBook->events.raise(PAVEX_ON_REPERTORY_DELETE_ENTRY, {id.high, id.low}); });
}

void Softphone::quit()
{
    if (std::exchange(quit_, true)) return;
    raise([this] { application_->events.raise(PAVEX_ON_QUIT, {}); });
}

void Softphone::raise(std::function<void()> event)
{
    events_.push_back(std::move(event));
    eventWaits ? eventWaits() : deliver();
}

void Softphone::deliver()
{
    if (delivering_) return;
    delivering_ = true;
    while (!events_.empty()) {
        const auto event = events_.front();
        event(); // it counts as waiting until everybody has been told
        events_.pop_front();
    }
    delivering_ = false;
}

void Softphone::disconnectClients()
{
    IDispatch* const lasting[] = {application_.get(), application_->user.get(), application_->line.get(),
                                  application_->history.get(), application_->addressBook.get()};
    for (IDispatch* object : lasting) CoDisconnectObject(object, 0);
}

std::vector<std::pair<std::wstring, std::size_t>> Softphone::subscribers() const
{
    return {{L"Application", application_->events.subscribers()},
            {L"Line", application_->line->events.subscribers()},
            {L"History", application_->history->events.subscribers()},
            {L"AddressBook", application_->addressBook->events.subscribers()}};
}

}
