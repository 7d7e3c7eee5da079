// An owned interface pointer. The compilers' own ones disagree on whether
// attaching adds a reference, so the program brings this small one.
//
// Giving a reference back counts as an outgoing call: the last one of a proxy
// goes out to the object's process, and messages come in meanwhile.
#pragma once

#include "automation/outgoing_call.h"

#include <unknwn.h>

#include <utility>

namespace automation {

template <class Interface>
class ComPtr {
public:
    ComPtr() noexcept = default;
    ComPtr(std::nullptr_t) noexcept {}

    // Takes a reference of its own.
    explicit ComPtr(Interface* pointer) noexcept : pointer_(pointer)
    {
        if (pointer_) pointer_->AddRef();
    }

    // Takes over the caller's reference.
    static ComPtr adopt(Interface* pointer) noexcept
    {
        ComPtr owner;
        owner.pointer_ = pointer;
        return owner;
    }

    ComPtr(const ComPtr& other) noexcept : ComPtr(other.pointer_) {}
    ComPtr(ComPtr&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
    ComPtr& operator=(ComPtr other) noexcept
    {
        std::swap(pointer_, other.pointer_);
        return *this;
    }
    ~ComPtr() { reset(); }

    template <class Derived>
    ComPtr(const ComPtr<Derived>& other) noexcept : ComPtr(static_cast<Interface*>(other.get()))
    {}

    Interface* get() const noexcept { return pointer_; }
    Interface* operator->() const noexcept { return pointer_; }
    explicit operator bool() const noexcept { return pointer_ != nullptr; }

    void reset() noexcept
    {
        if (!pointer_) return;
        const OutgoingCall scope;
        std::exchange(pointer_, nullptr)->Release();
    }

    // Lends the emptied pointer for a callee to fill.
    Interface** receive() noexcept
    {
        reset();
        return &pointer_;
    }
    void** receiveVoid() noexcept { return reinterpret_cast<void**>(receive()); }

private:
    Interface* pointer_ = nullptr;
};

// The object's interface `iid`, empty when it has none.
template <class Interface>
ComPtr<Interface> query(IUnknown* object, REFIID iid)
{
    ComPtr<Interface> result;
    if (object) object->QueryInterface(iid, result.receiveVoid());
    return result;
}

}
