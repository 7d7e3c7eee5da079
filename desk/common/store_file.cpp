#include "desk/common/store_file.h"

#include "automation/owners.h"
#include "desk/common/text.h"

#include <windows.h>

#include <stdexcept>

namespace desk {

namespace {

automation::Handle openFile(const std::wstring& path, DWORD access, DWORD disposition)
{
    return automation::ownedIfValid(CreateFileW(path.c_str(), access,
                                                FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                                disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
}

[[noreturn]] void fileError(const std::wstring& path, const char* what)
{
    const DWORD code = GetLastError();
    throw std::runtime_error(utf8(path) + ": " + what + " (error " + std::to_string(code) + ")");
}

[[noreturn]] void lineError(std::size_t line, const std::string& what)
{
    throw std::runtime_error("line " + std::to_string(line) + ": " + what);
}

std::pair<std::wstring, std::wstring> parseField(std::wstring_view line, std::size_t number)
{
    const std::size_t sign = line.find(L'=');
    if (sign == std::wstring_view::npos || sign == 0) lineError(number, "neither [kind] nor Field=value");
    try {
        return {std::wstring(line.substr(0, sign)), unescaped(line.substr(sign + 1))};
    } catch (const std::runtime_error& error) {
        lineError(number, error.what());
    }
}

}

const std::wstring* StoreRecord::find(std::wstring_view name) const
{
    for (const auto& [field, value] : fields)
        if (field == name) return &value;
    return nullptr;
}

std::vector<StoreRecord> parseStore(std::wstring_view text)
{
    if (text.starts_with(L'\xFEFF')) text.remove_prefix(1);
    std::vector<StoreRecord> records;
    std::size_t number = 0;
    for (const std::wstring& line : linesOf(text)) {
        ++number;
        if (line.empty() || line[0] == L'#') continue;
        if (line[0] == L'[') {
            if (line.size() < 3 || line.back() != L']') lineError(number, "a record starts with [kind]");
            records.push_back({line.substr(1, line.size() - 2), {}, number});
        } else if (records.empty()) {
            lineError(number, "a field before the first [kind]");
        } else {
            records.back().fields.push_back(parseField(line, number));
        }
    }
    return records;
}

std::wstring storeText(const StoreRecord& record)
{
    std::wstring text = L"[" + record.kind + L"]\n";
    for (const auto& [name, value] : record.fields) text += name + L"=" + escaped(value) + L"\n";
    return text;
}

std::wstring storeText(const std::vector<StoreRecord>& records)
{
    std::wstring text;
    for (const StoreRecord& record : records) {
        if (!text.empty()) text += L'\n';
        text += storeText(record);
    }
    return text;
}

std::vector<StoreRecord> readStore(const std::wstring& path)
{
    const automation::Handle file = openFile(path, GENERIC_READ, OPEN_EXISTING);
    if (!file) {
        if (GetLastError() == ERROR_FILE_NOT_FOUND) return {};
        fileError(path, "cannot be opened");
    }
    const DWORD size = GetFileSize(file.get(), nullptr);
    std::string bytes(size, '\0');
    DWORD read = 0;
    if (!ReadFile(file.get(), bytes.data(), size, &read, nullptr) || read != size) fileError(path, "cannot be read");
    try {
        return parseStore(fromUtf8(bytes));
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(utf8(path) + ": " + error.what());
    }
}

void writeStore(const std::wstring& path, const std::vector<StoreRecord>& records)
{
    const std::string bytes = utf8(storeText(records));
    const std::wstring temporary = path + L".new";
    {
        const automation::Handle file = openFile(temporary, GENERIC_WRITE, CREATE_ALWAYS);
        DWORD written = 0;
        if (!file || !WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr))
            fileError(temporary, "cannot be written");
    }
    if (!MoveFileExW(temporary.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING)) fileError(path, "cannot be replaced");
}

void refuseRecord(const StoreRecord& record, const std::string& what)
{
    lineError(record.line, "[" + utf8(record.kind) + "] " + what);
}

}
