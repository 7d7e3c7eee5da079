// Keeps every name look-up and every call that a partner's objects received,
// and shows the planned faults to the clients. One recorder serves all objects
// of a partner; everything happens on the partner's main thread.
#pragma once

#include "desk/common/fault_plan.h"

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace desk {

struct RecordedCall {
    const wchar_t* className;
    std::wstring member;    // its name, or "DISPID n" where the class has none of that number
    CallKind kind;
    std::wstring arguments; // see textOf, without the parentheses
    std::wstring text() const;
};

// An argument as text: its VARIANT type and its value, for example
//     I2 5    I4 5    BOOL True    DATE 2023-03-15 06:00:00    BSTR "a\nb"
//     DISPATCH    DISPATCH Nothing    EMPTY    NULL    missing    BYREF|BSTR NUL*1024
//     ARRAY|VARIANT
std::wstring textOf(const VARIANT& argument);

class Recorder {
public:
    // Used by RecordedObject: keeps the call, then lets a planned fault happen.
    // A failure code is the answer to the client. `call` may throw
    // automation::server::Exception; a look-up never throws. A fault for the time
    // after the call, or in place of it, is left to be taken.
    HRESULT lookUp(const wchar_t* className, std::wstring_view name);
    HRESULT call(const wchar_t* className, std::wstring member, CallKind kind,
                 const automation::server::Arguments& arguments);
    Fault takePendingFault() noexcept { return std::exchange(pendingFault_, Fault{}); }
    HRESULT apply(const Fault& fault, bool mayThrow);

    // Calls in order; after the first 200 000 only the totals go on.
    const std::vector<RecordedCall>& calls() const noexcept { return calls_; }

    // How many of "Class.Member kind" came, for example "ContactItem.Save method".
    unsigned long count(const std::wstring& classMemberAndKind) const;

    // One "COUNT Class.Member kind" a line, by name; and every call in order,
    // one a line: "Class.Member kind (arguments)", a look-up without parentheses.
    std::wstring totals() const;
    std::wstring record() const;

    // Forgets the calls and the planned faults.
    void clear();

    FaultPlan faults;

    // Ends the process, when a fault says so. Without it (objects in the
    // client's own process) the objects behave as a dead server's: the call
    // answers RPC_S_CALL_FAILED, later ones RPC_S_SERVER_UNAVAILABLE.
    std::function<void()> die;

    // Lets that many milliseconds pass (INFINITE: for ever) without any answer to
    // a client. Without it the thread sleeps.
    std::function<void(DWORD)> hang;

private:
    void keep(RecordedCall call);

    std::vector<RecordedCall> calls_;
    std::map<std::wstring, unsigned long> totals_;
    Fault pendingFault_;
    bool dead_ = false;
};

}
