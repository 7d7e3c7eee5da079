// The package that is being installed, as a custom action sees it.
#pragma once

#include <windows.h>
#include <msi.h>

#include <string>

namespace hublink::setup {

class Package {
public:
    explicit Package(MSIHANDLE handle) noexcept : handle_(handle) {} // which stays the caller's

    // "" for a property that is not set.
    std::wstring property(const std::wstring& name) const;
    void setProperty(const std::wstring& name, const std::wstring& value) const;

    // Whether another version of the product is installed besides: then this one is
    // removed for its sake, and what both use stays. Windows Installer reports it by the
    // property UPGRADINGPRODUCTCODE, Wine does not.
    bool hasOtherVersion() const;

    // A line in Windows Installer's log.
    void log(const std::wstring& line) const;

private:
    MSIHANDLE handle_;
};

}
