#include "common/registry.h"

#include "automation/conversion.h"
#include "automation/text.h"

namespace hublink {

namespace {

using automation::toAnsi;

constexpr DWORD bufferSize = 256;

// A registry key. One that was opened under a root is left open, on purpose: see the header.
class OpenedKey {
public:
    OpenedKey(HKEY root, const std::wstring& subkey, REGSAM access)
        : root_(root), open_(RegOpenKeyExA(root, toAnsi(subkey).c_str(), 0, access, &key_) == ERROR_SUCCESS)
    {}
    ~OpenedKey()
    {
        if (open_ && !root_) RegCloseKey(key_);
    }
    OpenedKey(const OpenedKey&) = delete;
    OpenedKey& operator=(const OpenedKey&) = delete;

    explicit operator bool() const { return open_; }
    HKEY get() const { return key_; }

private:
    HKEY root_;
    HKEY key_ = nullptr;
    bool open_;
};

}

std::wstring RegGetString(HKEY root, const std::wstring& subkey, const std::wstring& name)
{
    const OpenedKey key(root, subkey, KEY_READ);
    if (!key) return L"";

    char buffer[bufferSize];
    DWORD size = bufferSize;
    DWORD type = REG_NONE;
    if (RegQueryValueExA(key.get(), toAnsi(name).c_str(), nullptr, &type, reinterpret_cast<BYTE*>(buffer), &size) !=
        ERROR_SUCCESS)
        return registryNoText;
    if (type != REG_SZ || size == 0) return L"";
    return automation::toWide({buffer, size - 1});
}

std::wstring RegSetString(HKEY root, const std::wstring& subkey, const std::wstring& name, const std::wstring& text)
{
    const OpenedKey key(root, subkey, KEY_ALL_ACCESS);
    const std::string bytes = toAnsi(text);
    const bool succeeded =
        key && RegSetValueExA(key.get(), toAnsi(name).c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(bytes.c_str()),
                              static_cast<DWORD>(bytes.size())) == ERROR_SUCCESS;
    return automation::textFromBoolean(succeeded);
}

std::wstring RegDeleteString(HKEY root, const std::wstring& subkey, const std::wstring& name)
{
    const OpenedKey key(root, subkey, KEY_ALL_ACCESS);
    return automation::textFromBoolean(key && RegDeleteValueA(key.get(), toAnsi(name).c_str()) == ERROR_SUCCESS);
}

}
