#include "desk/common/fault_plan.h"

#include "desk/common/text.h"

#include <stdexcept>

namespace desk {

namespace {

using automation::server::isSameName;

constexpr CallKind allKinds[] = {CallKind::lookup, CallKind::get, CallKind::put, CallKind::method};

// What `answer` takes, in the words of a recorded argument.
automation::Value resultOf(std::wstring_view text)
{
    const std::wstring type = takeWord(text);
    if (type == L"I4") return static_cast<std::int32_t>(numberOf(text, "32-bit integer"));
    if (type == L"BSTR") return unescaped(text);
    if (type == L"BOOL" && (text == L"True" || text == L"False")) return text == L"True";
    if (type == L"ERROR") {
        VARIANT error;
        V_VT(&error) = VT_ERROR;
        V_ERROR(&error) = static_cast<SCODE>(numberOf(text, "error code"));
        return automation::Value::copyOf(error);
    }
    if (text.empty() && type == L"Nothing") return automation::Object();
    if (text.empty() && type == L"EMPTY") return {};
    if (text.empty() && type == L"NULL") {
        VARIANT null;
        V_VT(&null) = VT_NULL;
        return automation::Value::copyOf(null);
    }
    throw std::runtime_error("fault: answer needs Nothing, EMPTY, NULL, ERROR, I4, BOOL or BSTR and its value");
}

bool matchesName(const std::wstring& pattern, std::wstring_view name)
{
    return pattern == L"*" || isSameName(pattern, name);
}

}

const wchar_t* nameOf(CallKind kind) noexcept
{
    switch (kind) {
    case CallKind::lookup: return L"lookup";
    case CallKind::get: return L"get";
    case CallKind::put: return L"put";
    case CallKind::method: break;
    }
    return L"method";
}

bool FaultPlan::Planned::matches(std::wstring_view wantedClass, std::wstring_view wantedMember,
                                 CallKind wantedKind) const
{
    if (anyKind ? wantedKind == CallKind::lookup && !lookUpsToo : wantedKind != kind) return false;
    return matchesName(className, wantedClass) && matchesName(member, wantedMember);
}

void FaultPlan::readPattern(Planned& planned, std::wstring_view pattern)
{
    if (pattern.empty()) throw std::runtime_error("fault: a pattern such as Class.Member is missing after \"on\"");
    const std::size_t dot = pattern.find(L'.');
    if (dot != std::wstring_view::npos) planned.className = pattern.substr(0, dot);
    planned.member = dot == std::wstring_view::npos ? pattern : pattern.substr(dot + 1);
    planned.lookUpsToo = false;
}

void FaultPlan::readAction(Planned& planned, const std::wstring& action, std::wstring_view rest)
{
    Fault& fault = planned.fault;
    if (action == L"busy") {
        fault.action = Fault::Action::busy;
        if (!rest.empty()) planned.times = numberOf(takeWord(rest), "how often busy");
    } else if (action == L"fail" || action == L"raise") {
        fault.action = action == L"fail" ? Fault::Action::fail : Fault::Action::raise;
        fault.code = static_cast<HRESULT>(numberOf(takeWord(rest), "HRESULT"));
        if (!FAILED(fault.code)) throw std::runtime_error("fault: the HRESULT is no failure code");
    } else if (action == L"hang") {
        fault.action = Fault::Action::hang;
        fault.milliseconds = rest.empty() ? INFINITE : numberOf(takeWord(rest), "milliseconds");
    } else if (action == L"answer") {
        fault.action = Fault::Action::answer;
        fault.result = resultOf(rest);
        rest = {};
    } else if (action == L"die") {
        fault.action = Fault::Action::die;
    } else if (action == L"kill") {
        fault.action = Fault::Action::kill;
        fault.processId = numberOf(takeWord(rest), "process identifier");
    } else {
        throw std::runtime_error("fault: unknown action \"" + utf8(action) + "\"");
    }
    if (fault.action == Fault::Action::raise) {
        const std::size_t bar = rest.find(L'|');
        if (bar == std::wstring_view::npos) throw std::runtime_error("fault: raise needs SOURCE|TEXT");
        fault.source = rest.substr(0, bar);
        fault.description = rest.substr(bar + 1);
        rest = {};
    }
    const bool isDeath = fault.action == Fault::Action::die || fault.action == Fault::Action::kill;
    if (isDeath && rest == L"after") {
        fault.after = true;
        rest = {};
    }
    if (fault.action == Fault::Action::kill && rest == L"instead") {
        fault.instead = true;
        rest = {};
    }
    if (!rest.empty()) throw std::runtime_error("fault: \"" + utf8(rest) + "\" is too much");
}

void FaultPlan::add(std::wstring_view text)
{
    std::wstring word = takeWord(text);
    if (word == L"off" && text.empty()) {
        clear();
        return;
    }
    Planned planned;
    if (word == L"on") {
        readPattern(planned, takeWord(text));
        word = takeWord(text);
        for (const CallKind kind : allKinds) {
            if (word != nameOf(kind)) continue;
            planned.anyKind = false;
            planned.kind = kind;
            word = takeWord(text);
            break;
        }
    }
    if (word == L"at" || word == L"from") {
        planned.lasting = word == L"from";
        planned.at = numberOf(takeWord(text), "at which call");
        if (planned.at == 0) throw std::runtime_error("fault: the first call is number 1");
        word = takeWord(text);
    } else if (planned.anyKind && planned.lookUpsToo) {
        throw std::runtime_error(R"(fault: "on PATTERN", "at N" or "from N" is missing)");
    }
    readAction(planned, word, text);
    if (planned.at == 0 && planned.times > 1) planned.at = 1; // "busy K": the next K, not all
    planned_.push_back(std::move(planned));
}

Fault FaultPlan::next(std::wstring_view className, std::wstring_view member, CallKind kind)
{
    Fault chosen;
    for (std::size_t index = 0; index < planned_.size();) {
        Planned& planned = planned_[index];
        if (!planned.matches(className, member, kind)) {
            ++index;
            continue;
        }
        if (planned.at > 1) {
            --planned.at;
            ++index;
            continue;
        }
        const bool first = chosen.action == Fault::Action::none;
        if (first) chosen = planned.fault;
        // A fault that another one hides at this call still happens: at the next.
        if (first && planned.at == 1 && !planned.lasting && --planned.times == 0)
            planned_.erase(planned_.begin() + static_cast<std::ptrdiff_t>(index));
        else ++index;
    }
    return chosen;
}

}
