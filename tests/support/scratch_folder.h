// A folder of a test's own, empty at the start and gone at the end.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace support {

class ScratchFolder {
public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const std::wstring& path() const noexcept { return path_; }
    std::wstring file(std::wstring_view name) const { return path_ + L"\\" + std::wstring(name); }

    std::vector<std::wstring> files() const; // the names of all that lies in it, sorted
    void clear() const;

    // Makes a folder below it; returns its path.
    std::wstring folder(std::wstring_view name) const;

    // Writes a file below it, byte by byte as given; returns its path.
    std::wstring write(std::wstring_view name, std::string_view content) const;

private:
    std::wstring path_;
};

void writeFile(const std::wstring& path, std::string_view content);

// "" for a file that cannot be read.
std::string readFile(const std::wstring& path);

// UTF-16 with its mark, as the dictionary files are.
std::string utf16File(std::wstring_view text);

// A file of the project's own tree, by its path from the root.
std::wstring projectFile(std::wstring_view path);

}
