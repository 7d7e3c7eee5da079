// Values of the real registry that a test changes, and that are as before at its end.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace support {

// A registry value, put back as it was at the end.
class SavedValue {
public:
    SavedValue(HKEY root, std::wstring key, std::wstring name);
    ~SavedValue();
    SavedValue(const SavedValue&) = delete;
    SavedValue& operator=(const SavedValue&) = delete;

    // Each makes the key when it is missing.
    void setText(const std::wstring& text) const { set(REG_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t)); }
    void setExpandableText(const std::wstring& text) const
    {
        set(REG_EXPAND_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
    }
    void setNumber(DWORD number) const { set(REG_DWORD, &number, sizeof number); }
    void removeValue() const;

    // The key, if nothing else is in it.
    void removeKey() const;

private:
    void set(DWORD type, const void* data, std::size_t size) const;

    const HKEY root_;
    const std::wstring key_;
    const std::wstring name_;
    DWORD type_ = REG_NONE;
    std::optional<std::string> content_;
};

// A class that cannot be created for as long as this lives.
class HiddenClass {
public:
    explicit HiddenClass(const std::wstring& progId);
    ~HiddenClass();
    HiddenClass(const HiddenClass&) = delete;
    HiddenClass& operator=(const HiddenClass&) = delete;

private:
    const SavedValue machine_;
    const SavedValue user_;
};

}
