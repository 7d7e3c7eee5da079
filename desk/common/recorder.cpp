#include "desk/common/recorder.h"

#include "automation/owners.h"
#include "automation/value.h"
#include "desk/common/text.h"

namespace desk {

namespace {

constexpr std::size_t maxKept = 200'000;

constexpr DWORD endTimeout = 5'000; // milliseconds

// Returns when it has ended; one that has gone already is no fault.
void endProcess(DWORD id)
{
    const automation::Handle process(OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, id));
    if (!process) return;
    TerminateProcess(process.get(), 9);
    WaitForSingleObject(process.get(), endTimeout);
}

std::wstring typeName(VARTYPE type)
{
    std::wstring prefix;
    if (type & VT_BYREF) prefix += L"BYREF|";
    if (type & VT_ARRAY) prefix += L"ARRAY|";
    static const std::map<VARTYPE, const wchar_t*> names{{VT_EMPTY, L"EMPTY"},     {VT_NULL, L"NULL"},
                                                         {VT_I2, L"I2"},           {VT_I4, L"I4"},
                                                         {VT_R4, L"R4"},           {VT_R8, L"R8"},
                                                         {VT_CY, L"CY"},           {VT_DATE, L"DATE"},
                                                         {VT_BSTR, L"BSTR"},       {VT_DISPATCH, L"DISPATCH"},
                                                         {VT_ERROR, L"ERROR"},     {VT_BOOL, L"BOOL"},
                                                         {VT_VARIANT, L"VARIANT"}, {VT_UNKNOWN, L"UNKNOWN"},
                                                         {VT_I1, L"I1"},           {VT_UI1, L"UI1"},
                                                         {VT_UI2, L"UI2"},         {VT_UI4, L"UI4"},
                                                         {VT_I8, L"I8"},           {VT_INT, L"INT"},
                                                         {VT_UINT, L"UINT"}};
    const VARTYPE bare = type & VT_TYPEMASK;
    const auto found = names.find(bare);
    return prefix + (found == names.end() ? L"VT" + std::to_wstring(bare) : std::wstring(found->second));
}

std::wstring quoted(const std::wstring& text)
{
    // A buffer lent to be filled.
    if (!text.empty() && text.find_first_not_of(L'\0') == std::wstring::npos)
        return L"NUL*" + std::to_wstring(text.size());
    return L"\"" + escaped(text) + L"\"";
}

std::wstring valueText(const automation::Value& value)
{
    switch (value.type()) {
    case VT_EMPTY:
    case VT_NULL: return L"";
    case VT_BSTR: return quoted(value.text());
    case VT_BOOL: return value.isTrue() ? L"True" : L"False";
    case VT_DATE: return isoText(V_DATE(&value.variant()));
    case VT_DISPATCH:
    case VT_UNKNOWN: return V_UNKNOWN(&value.variant()) ? L"" : L"Nothing";
    default: return value.type() & VT_ARRAY ? L"" : value.text();
    }
}

}

std::wstring textOf(const VARIANT& argument)
{
    if (V_VT(&argument) == VT_ERROR && V_ERROR(&argument) == DISP_E_PARAMNOTFOUND) return L"missing";
    const std::wstring type = typeName(V_VT(&argument));
    try {
        const std::wstring value = valueText(automation::Value::copyOf(argument));
        return value.empty() ? type : type + L" " + value;
    } catch (const automation::AutomationError&) {
        return type; // a type that has no text
    }
}

std::wstring RecordedCall::text() const
{
    std::wstring line = std::wstring(className) + L"." + member + L" " + nameOf(kind);
    return kind == CallKind::lookup ? line : line + L" (" + arguments + L")";
}

HRESULT Recorder::lookUp(const wchar_t* className, std::wstring_view name)
{
    keep({className, std::wstring(name), CallKind::lookup, L""});
    return apply(faults.next(className, name, CallKind::lookup), false);
}

HRESULT Recorder::call(const wchar_t* className, std::wstring member, CallKind kind,
                       const automation::server::Arguments& arguments)
{
    std::wstring list;
    for (std::size_t index = 0; index < arguments.size(); ++index)
        list += (index ? L", " : L"") + textOf(arguments.raw(index));
    const Fault fault = faults.next(className, member, kind);
    keep({className, std::move(member), kind, std::move(list)});
    const bool isForLater = fault.after || fault.action == Fault::Action::answer;
    if (!isForLater) return apply(fault, true);
    pendingFault_ = fault;
    return S_OK;
}

void Recorder::keep(RecordedCall call)
{
    ++totals_[std::wstring(call.className) + L"." + call.member + L" " + nameOf(call.kind)];
    if (calls_.size() < maxKept) calls_.push_back(std::move(call));
}

HRESULT Recorder::apply(const Fault& fault, bool mayThrow)
{
    if (dead_) return HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE);
    switch (fault.action) {
    case Fault::Action::none:
    case Fault::Action::answer: return S_OK; // a look-up has no result to replace
    case Fault::Action::busy: return RPC_E_SERVERCALL_RETRYLATER;
    case Fault::Action::fail: return fault.code;
    case Fault::Action::raise:
        if (mayThrow) throw automation::server::Exception{fault.code, fault.source, fault.description};
        return fault.code;
    case Fault::Action::hang:
        if (hang) hang(fault.milliseconds);
        else Sleep(fault.milliseconds);
        return S_OK;
    case Fault::Action::kill:
        endProcess(fault.processId);
        return fault.instead ? HRESULT_FROM_WIN32(RPC_S_CALL_CANCELLED) : S_OK;
    case Fault::Action::die: break;
    }
    if (die) die();
    dead_ = true;
    return HRESULT_FROM_WIN32(RPC_S_CALL_FAILED);
}

unsigned long Recorder::count(const std::wstring& classMemberAndKind) const
{
    const auto found = totals_.find(classMemberAndKind);
    return found == totals_.end() ? 0 : found->second;
}

std::wstring Recorder::totals() const
{
    std::vector<std::wstring> lines;
    for (const auto& [call, count] : totals_) lines.push_back(std::to_wstring(count) + L" " + call);
    return joined(lines);
}

std::wstring Recorder::record() const
{
    std::vector<std::wstring> lines;
    lines.reserve(calls_.size());
    for (const RecordedCall& call : calls_) lines.push_back(call.text());
    return joined(lines);
}

void Recorder::clear()
{
    calls_.clear();
    totals_.clear();
    faults.clear();
}

}
