// An automation object reached through IDispatch, late bound: members are
// read, written and called by name or by dispatch identifier. Every failure,
// an empty reference included, throws AutomationError.
#pragma once

#include "automation/com_ptr.h"
#include "automation/value.h"

#include <initializer_list>
#include <map>
#include <memory>
#include <string>

namespace automation {

class OutgoingCall;

// A member of an object: its name, or its dispatch identifier where the
// object's maker publishes no name.
class Member {
public:
    Member(const wchar_t* name) noexcept : name_(name), id_(DISPID_UNKNOWN) {}
    Member(DISPID id) noexcept : name_(nullptr), id_(id) {}

    bool isNamed() const noexcept { return name_ != nullptr; }
    const wchar_t* name() const noexcept { return name_; }
    DISPID id() const noexcept { return id_; }
    std::wstring text() const;

private:
    const wchar_t* name_;
    DISPID id_;
};

// The dispatch identifiers found so far, by name. Each object has one of its
// own; objects of a class whose identifiers are fixed may share one.
class DispatchIdCache {
public:
    const DISPID* find(std::wstring_view name) const;
    void remember(std::wstring_view name, DISPID id);

private:
    std::map<std::wstring, DISPID, std::less<>> ids_;
};

using SharedIdCache = std::shared_ptr<DispatchIdCache>;

inline SharedIdCache makeIdCache()
{
    return std::make_shared<DispatchIdCache>();
}

class Object {
public:
    Object() noexcept = default;
    explicit Object(IDispatch* dispatch);            // takes a reference of its own

    // The same object, its names looked up in (and added to) `idCache`.
    Object usingIdCache(const SharedIdCache& idCache) const;

    // A new object of a registered class, in or out of process.
    static Object create(const wchar_t* progId);

    // The object behind any of its interfaces; empty for a null pointer.
    static Object query(IUnknown* unknown);

    explicit operator bool() const noexcept { return static_cast<bool>(dispatch_); }
    IDispatch* dispatch() const noexcept { return dispatch_.get(); }

    // A property, or a method whose result is wanted: late-bound callers ask
    // for both at once, since they cannot know which of the two a name is.
    Value get(Member member, std::initializer_list<Value> arguments = {}) const;

    // A method whose result is not wanted.
    void call(Member member, std::initializer_list<Value> arguments = {}) const;

    void put(Member member, const Value& value) const;

private:
    Value invoke(Member member, WORD flags, std::initializer_list<Value> arguments) const;
    DISPID lookUp(Member member, const OutgoingCall& scope) const;

    ComPtr<IDispatch> dispatch_;
    SharedIdCache idCache_;
};

}
