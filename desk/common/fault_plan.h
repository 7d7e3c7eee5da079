// Faults that a partner is told to show to its clients: at the n-th call from
// now, at every call of a member, or at the n-th call of a member.
//
// The text of a fault, as the control command `fault` takes it:
//
//     [on PATTERN [KIND]] [at N | from N] ACTION
//
//     PATTERN   Class.Member, Member, Class.* or * (without regard to case)
//     KIND      lookup, get, put or method; without it every kind but lookup
//     N         1 is the next matching call; without `on`, every call counts,
//               name look-ups too. With `from`, that call and all after it; without
//               both, every matching call.
//     ACTION    busy [K]                    K times from there on (1 without K),
//                                           RPC_E_SERVERCALL_RETRYLATER
//               fail HRESULT                this bare HRESULT
//               raise HRESULT SOURCE|TEXT   an automation exception
//               hang [MS]                   no answer and no message for MS milliseconds, then the
//                                           ordinary answer; without MS for ever. The control
//                                           pipe goes on answering
//               answer VALUE                this result, the call is not carried out: Nothing,
//                                           EMPTY, NULL, ERROR CODE, I4 NUMBER, BOOL True, BSTR TEXT
//               die [after]                 the process dies inside the call, with what its
//                                           clients have saved in the store file
//               kill ID [after | instead]   the process of that identifier dies, a client's
//                                           for example; then the ordinary answer
//
// With `after`, the call is carried out first and its answer still to be sent; with
// `instead` it is not carried out, as when the client had died before it called.
// A fault `at N` is used up when it has happened; the others stay until `off`.
#pragma once

#include "automation/server/dispatch.h"
#include "automation/value.h"

#include <string>
#include <string_view>
#include <vector>

namespace desk {

enum class CallKind { lookup, get, put, method };

const wchar_t* nameOf(CallKind kind) noexcept;

struct Fault {
    enum class Action { none, busy, fail, raise, hang, answer, die, kill };
    Action action = Action::none;
    HRESULT code = S_OK;           // fail, raise
    DWORD milliseconds = 0;        // hang; INFINITE for ever
    automation::Value result;      // answer
    std::wstring source;           // raise
    std::wstring description;      // raise
    DWORD processId = 0;           // kill
    bool after = false;            // die, kill: once the call has been carried out
    bool instead = false;          // kill: the call is not carried out
};

class FaultPlan {
public:
    // Adds the fault described by `text` (see above), or with "off" forgets
    // all. Throws std::runtime_error saying what is wrong with the text.
    void add(std::wstring_view text);
    void clear() noexcept { planned_.clear(); }

    // What shall happen to this call. Counts it.
    Fault next(std::wstring_view className, std::wstring_view member, CallKind kind);

private:
    struct Planned {
        std::wstring className = L"*"; // lower case; * matches all
        std::wstring member = L"*";
        bool anyKind = true;
        bool lookUpsToo = true;
        CallKind kind = CallKind::get;
        unsigned long at = 0;          // matching calls still to come, this one included; 0 for every one
        unsigned long times = 1;       // how many calls in a row, with `at`
        bool lasting = false;          // from that call on
        Fault fault;

        bool matches(std::wstring_view wantedClass, std::wstring_view wantedMember, CallKind wantedKind) const;
    };

    static void readPattern(Planned& planned, std::wstring_view pattern);
    static void readAction(Planned& planned, const std::wstring& action, std::wstring_view rest);

    std::vector<Planned> planned_;
};

}
