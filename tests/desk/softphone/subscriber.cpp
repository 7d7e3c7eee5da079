// Subscribes to the new calls of the running softphone, says so with the event
// named by the first argument, and then takes as many milliseconds for each
// call as the second argument says, without taking messages meanwhile.
#include "automation/apartment.h"
#include "automation/subscription.h"

#include <cstdlib>

int main(int argc, char** argv)
{
    if (argc != 3) return 2;
    const DWORD delay = std::strtoul(argv[2], nullptr, 10);
    const automation::Apartment apartment;
    try {
        const auto application = automation::Object::create(L"Pavex.Application");
        const automation::Subscription calls(application.get(10).object(), L"Pavex.Application",
                                             {{L"OnLineNewCall", [&](automation::EventArguments) { Sleep(delay); }}});
        SetEvent(OpenEventA(EVENT_MODIFY_STATE, FALSE, argv[1]));
        MSG message;
        while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    } catch (const automation::AutomationError&) {
        return 1;
    }
    return 0;
}
