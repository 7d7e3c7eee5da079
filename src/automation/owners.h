// Owners of what Windows hands out and has to get back.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <memory>
#include <string>
#include <type_traits>

namespace automation {

struct HandleCloser {
    void operator()(HANDLE handle) const noexcept
    {
        // The same value is the pseudo handle of this process, which nobody need close.
        if (handle != INVALID_HANDLE_VALUE) CloseHandle(handle);
    }
};

struct SearchCloser {
    void operator()(HANDLE search) const noexcept { FindClose(search); }
};

struct KeyCloser {
    void operator()(HKEY key) const noexcept { RegCloseKey(key); }
};

struct LocalFreer {
    void operator()(void* memory) const noexcept { LocalFree(memory); }
};

using Handle = std::unique_ptr<std::remove_pointer_t<HANDLE>, HandleCloser>;
using FileSearch = std::unique_ptr<std::remove_pointer_t<HANDLE>, SearchCloser>;
using RegistryKey = std::unique_ptr<std::remove_pointer_t<HKEY>, KeyCloser>;
template <class Type>
using LocalMemory = std::unique_ptr<Type, LocalFreer>;

// For functions that say "none" by INVALID_HANDLE_VALUE: those that open files,
// pipes and snapshots. The owner is empty then.
template <class Owner = Handle>
Owner ownedIfValid(HANDLE handle) noexcept
{
    return Owner(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}

// An automation text that a callee has made.
class Bstr {
public:
    Bstr() noexcept = default;
    explicit Bstr(BSTR text) noexcept : text_(text) {} // takes it over
    ~Bstr() { SysFreeString(text_); }
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;

    BSTR* receive() noexcept { return &text_; } // to be filled once
    std::wstring text() const { return std::wstring(text_ ? text_ : L"", SysStringLen(text_)); }

private:
    BSTR text_ = nullptr;
};

}
