// The base of every automation object on the desk: it records what comes in
// and lets planned faults happen. A class is written as
//
//     class Folder final : public desk::RecordedTable<Folder> {
//     public:
//         Folder(desk::Recorder& recorder, ...) : RecordedTable(recorder, L"Folder") {}
//         static const std::vector<MemberRow<Folder>>& members();
//     };
//
// The class name is what the record, the totals and the faults call it.
#pragma once

#include "desk/common/recorder.h"
#include "desk/common/text.h"

#include <unordered_map>

namespace desk {

// What the tables of members are written with.
using automation::Value;
using automation::server::IncomingCall;
using automation::server::MemberRow;
namespace server = automation::server;

struct MemberSummary {
    const wchar_t* name;
    WORD kinds;
};

class RecordedObject : public server::Dispatch {
public:
    // The recorder and the name (a literal) outlive the object.
    RecordedObject(Recorder& recorder, const wchar_t* className) noexcept : recorder_(recorder), className_(className)
    {}

    Recorder& recorder() const noexcept { return recorder_; }
    const wchar_t* className() const noexcept { return className_; }

protected:
    // The member of that identifier, or null where there is none.
    virtual const MemberSummary* memberOf(DISPID id) const = 0;

    HRESULT admitLookUp(std::wstring_view name) override;
    HRESULT admitCall(const IncomingCall& call) override;
    Value carryOut(const IncomingCall& call) override;

private:
    Recorder& recorder_;
    const wchar_t* const className_;
};

// A RecordedObject whose members are the rows of Class::members(). Names are
// found by hash: the partners' classes are long, and clients ask often. A
// base between the two may carry what several classes share.
template <class Class, class Base = RecordedObject>
class RecordedTable : public server::TableDispatch<Class, Base> {
public:
    using server::TableDispatch<Class, Base>::TableDispatch;

protected:
    DISPID idOf(std::wstring_view name) override
    {
        static const auto ids = [] {
            std::unordered_map<std::wstring, DISPID> index;
            for (const auto& row : Class::members()) index.emplace(lowerCase(row.name), row.id);
            return index;
        }();
        const auto found = ids.find(lowerCase(name));
        return found == ids.end() ? DISPID_UNKNOWN : found->second;
    }

    const MemberSummary* memberOf(DISPID id) const override
    {
        static const auto summaries = [] {
            std::unordered_map<DISPID, MemberSummary> index;
            for (const auto& row : Class::members()) index.emplace(row.id, MemberSummary{row.name, row.kinds});
            return index;
        }();
        const auto found = summaries.find(id);
        return found == summaries.end() ? nullptr : &found->second;
    }
};

}
