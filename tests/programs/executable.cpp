#include "executable.h"

#include "support/scratch_folder.h"

#include <windows.h>

#include <cstddef>
#include <cstring>
#include <stdexcept>

namespace programs {

namespace {

// The file's bytes, found by the addresses that they will have in memory.
class Image {
public:
    explicit Image(std::string bytes) : bytes_(std::move(bytes))
    {
        const auto start = static_cast<std::size_t>(at<IMAGE_DOS_HEADER>(0).e_lfanew);
        headers_ = at<IMAGE_NT_HEADERS32>(start);
        if (headers_.OptionalHeader.Magic != IMAGE_NT_OPTIONAL_HDR32_MAGIC)
            throw std::runtime_error("no 32-bit program");
        firstSection_ = start + offsetof(IMAGE_NT_HEADERS32, OptionalHeader) + headers_.FileHeader.SizeOfOptionalHeader;
    }

    const IMAGE_OPTIONAL_HEADER32& header() const { return headers_.OptionalHeader; }

    template <class Type>
    Type inMemory(DWORD address) const
    {
        return at<Type>(offsetOf(address));
    }

    std::string text(DWORD address) const { return bytes_.c_str() + offsetOf(address); }

private:
    template <class Type>
    Type at(std::size_t offset) const
    {
        if (offset + sizeof(Type) > bytes_.size()) throw std::runtime_error("the file ends too early");
        Type found;
        std::memcpy(&found, bytes_.data() + offset, sizeof found);
        return found;
    }

    DWORD offsetOf(DWORD address) const
    {
        for (WORD number = 0; number < headers_.FileHeader.NumberOfSections; ++number) {
            const auto section = at<IMAGE_SECTION_HEADER>(firstSection_ + number * sizeof(IMAGE_SECTION_HEADER));
            if (address >= section.VirtualAddress && address < section.VirtualAddress + section.SizeOfRawData)
                return address - section.VirtualAddress + section.PointerToRawData;
        }
        throw std::runtime_error("an address outside the file");
    }

    const std::string bytes_;
    IMAGE_NT_HEADERS32 headers_;
    std::size_t firstSection_ = 0;
};

std::string lowerCase(std::string text)
{
    CharLowerBuffA(text.data(), static_cast<DWORD>(text.size()));
    return text;
}

std::set<std::string> functionsOf(const Image& image, const IMAGE_IMPORT_DESCRIPTOR& library)
{
    std::set<std::string> names;
    for (DWORD place = library.OriginalFirstThunk;; place += sizeof(DWORD)) {
        const auto name = image.inMemory<DWORD>(place);
        if (name == 0) return names;
        if (name & IMAGE_ORDINAL_FLAG32) names.insert("#" + std::to_string(name & 0xFFFF));
        else names.insert(image.text(name + offsetof(IMAGE_IMPORT_BY_NAME, Name)));
    }
}

}

Executable executable(const std::wstring& path)
{
    const Image image(support::readFile(path));
    Executable result;
    result.subsystemVersion =
        static_cast<unsigned>(image.header().MajorSubsystemVersion << 8 | image.header().MinorSubsystemVersion);
    DWORD place = image.header().DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
    for (;; place += sizeof(IMAGE_IMPORT_DESCRIPTOR)) {
        const auto library = image.inMemory<IMAGE_IMPORT_DESCRIPTOR>(place);
        if (library.Name == 0) return result;
        result.imports[lowerCase(image.text(library.Name))] = functionsOf(image, library);
    }
}

std::string manifestOf(const std::wstring& path)
{
    const HMODULE module = LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    if (!module) return {};
    std::string text;
    const HRSRC place = FindResourceW(module, MAKEINTRESOURCEW(1), MAKEINTRESOURCEW(24)); // of a process; RT_MANIFEST
    if (place)
        text.assign(static_cast<const char*>(LockResource(LoadResource(module, place))), SizeofResource(module, place));
    FreeLibrary(module);
    return text;
}

namespace {

std::wstring versionText(const std::string& resource, const wchar_t* name)
{
    const std::wstring place = std::wstring(L"\\StringFileInfo\\040904B0\\") + name;
    void* text = nullptr;
    UINT length = 0;
    if (!VerQueryValueW(resource.data(), place.c_str(), &text, &length)) return {};
    return static_cast<const wchar_t*>(text);
}

std::wstring versionNumbers(const std::string& resource)
{
    void* found = nullptr;
    UINT length = 0;
    if (!VerQueryValueW(resource.data(), L"\\", &found, &length)) return {};
    const auto& fixed = *static_cast<const VS_FIXEDFILEINFO*>(found);
    std::wstring text;
    for (const DWORD part : {fixed.dwFileVersionMS, fixed.dwFileVersionLS})
        text += (text.empty() ? L"" : L".") + std::to_wstring(HIWORD(part)) + L"." + std::to_wstring(LOWORD(part));
    return text;
}

}

ProgramVersion versionOf(const std::wstring& path)
{
    std::string resource(GetFileVersionInfoSizeW(path.c_str(), nullptr), '\0');
    if (!GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(resource.size()), resource.data())) return {};
    const auto text = [&](const wchar_t* name) { return versionText(resource, name); };
    return {text(L"FileVersion"),  text(L"ProductVersion"),   versionNumbers(resource), text(L"FileDescription"),
            text(L"InternalName"), text(L"OriginalFilename"), text(L"ProductName")};
}

}
