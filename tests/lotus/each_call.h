// A fault at one call to Notes after the other.
#pragma once

#include "documents_fixture.h"

#include <gtest/gtest.h>

namespace hublink {

// How many calls to Notes a deed made, look-ups of names left out.
inline std::size_t callsMade(const desk::Recorder& recorder)
{
    std::size_t made = 0;
    for (const desk::RecordedCall& call : recorder.calls()) made += call.kind != desk::CallKind::lookup;
    return made;
}

// Runs `prepare` and then `deed`, once for each call to Notes that `deed`
// makes, with the fault ("fail 0x80004005") at that call; then runs `check`
// with that call's text.
template <class Prepare, class Deed, class Check>
void atEachCall(desk::Recorder& recorder, const std::wstring& fault, Prepare prepare, Deed deed, Check check)
{
    prepare();
    recorder.clear();
    deed();
    const std::size_t made = callsMade(recorder);
    ASSERT_GT(made, 0u);
    for (std::size_t n = 1; n <= made; ++n) {
        prepare();
        recorder.clear();
        recorder.faults.add(L"on * at " + std::to_wstring(n) + L" " + fault);
        deed();
        std::size_t seen = 0;
        std::wstring failed;
        for (const desk::RecordedCall& call : recorder.calls())
            if (call.kind != desk::CallKind::lookup && ++seen == n) failed = call.text();
        recorder.clear();
        check(failed);
    }
}

// Whether a call only asks for a person's mail address, in one of the items
// that hold one: that is read under a trap of its own.
inline bool asksForMail(const std::wstring& call)
{
    for (const wchar_t* item : {L"MailAddress", L"InternetAddress", L"Mail"})
        if (call == L"NotesDocument.GetItemValue method (BSTR \"" + std::wstring(item) + L"\")") return true;
    return false;
}

inline constexpr const wchar_t* fails = L"fail 0x80004005";
inline constexpr const wchar_t* isBusy = L"busy";

}
