#include "automation/server/end_request.h"

#include <array>

namespace automation::server {

namespace {

std::array<wchar_t, 64> eventName(DWORD process) noexcept
{
    std::array<wchar_t, 64> name;
    wsprintfW(name.data(), L"Global\\Hublink.EndOfServer.%lu", process);
    return name;
}

}

Handle createEndEvent() noexcept
{
    return Handle(CreateEventW(nullptr, TRUE, FALSE, eventName(GetCurrentProcessId()).data()));
}

bool requestEnd(DWORD process) noexcept
{
    const Handle event(OpenEventW(EVENT_MODIFY_STATE, FALSE, eventName(process).data()));
    return event && SetEvent(event.get());
}

}
