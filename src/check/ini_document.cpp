#include "check/ini_document.h"

#include "automation/text.h"

#include <windows.h>

#include <algorithm>

namespace hublink::check {

namespace {

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view utf16Mark = "\xFF\xFE";
constexpr std::string_view utf16ReversedMark = "\xFE\xFF";

bool isUtf8(std::string_view bytes)
{
    const int size = static_cast<int>(bytes.size());
    return size == 0 || MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(), size, nullptr, 0) > 0;
}

bool isAscii(std::string_view bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](char byte) { return (byte & 0x80) == 0; });
}

// What no text needs: characters below the blank, but for tabulators and line ends.
bool isControl(wchar_t c)
{
    return c < L' ' && c != L'\t' && c != L'\r' && c != L'\n' && c != L'\x1A';
}

// One form feed makes no text into something else; a NUL does, and many controls do.
bool isText(std::string_view bytes)
{
    constexpr std::ptrdiff_t leastBytesPerControl = 20;
    const std::ptrdiff_t controls = std::count_if(
        bytes.begin(), bytes.end(), [](char byte) { return isControl(static_cast<unsigned char>(byte)); });
    return bytes.find('\0') == std::string_view::npos && controls * leastBytesPerControl <= std::ssize(bytes);
}

Encoding encodingOf(std::string_view bytes)
{
    if (bytes.starts_with(utf16Mark)) return Encoding::utf16;
    if (bytes.starts_with(utf16ReversedMark)) return Encoding::utf16Reversed;
    if (!isText(bytes)) return Encoding::noText;
    if (bytes.starts_with(utf8Mark)) return Encoding::utf8WithMark;
    return !isAscii(bytes) && isUtf8(bytes) ? Encoding::utf8 : Encoding::ansi;
}

std::wstring fromUtf16(std::string_view bytes)
{
    std::wstring text(bytes.size() / 2, L'\0');
    for (std::size_t k = 0; k < text.size(); ++k)
        text[k] = static_cast<wchar_t>(static_cast<unsigned char>(bytes[2 * k]) |
                                       static_cast<unsigned char>(bytes[2 * k + 1]) << 8);
    return text;
}

std::wstring fromUtf8(std::string_view bytes)
{
    const int size = static_cast<int>(bytes.size());
    std::wstring text(bytes.size(), L'\0');
    const int length = MultiByteToWideChar(CP_UTF8, 0, bytes.data(), size, text.data(), size);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

std::wstring_view trimmed(std::wstring_view text)
{
    constexpr const wchar_t* white = L" \t\r";
    const std::size_t first = text.find_first_not_of(white);
    if (first == std::wstring_view::npos) return {};
    return text.substr(first, text.find_last_not_of(white) - first + 1);
}

// Bytes become characters one for one here, so that lines and sizes are the bytes';
// only names are decoded.
class Parser {
public:
    explicit Parser(IniDocument& document) : document_(document) {}

    void parseLine(std::wstring_view line)
    {
        ++number_;
        if (std::any_of(line.begin(), line.end(), isControl)) document_.controlLines.push_back(number_);
        line = trimmed(line);
        if (line.empty() || line[0] == L';') return;
        const std::size_t equals = line.find(L'=');
        if (line[0] == L'[') parseSection(line);
        else if (equals != std::wstring_view::npos && equals > 0 && !document_.sections.empty())
            parseKey(trimmed(line.substr(0, equals)), trimmed(line.substr(equals + 1)));
        else document_.strayLines.push_back(number_);
    }

private:
    void parseSection(std::wstring_view line)
    {
        const std::size_t close = line.rfind(L']');
        if (close == std::wstring_view::npos) {
            document_.strayLines.push_back(number_);
            return;
        }
        IniSection section;
        section.name = nameOf(trimmed(line.substr(1, close - 1)));
        section.line = number_;
        document_.sections.push_back(std::move(section));
    }

    void parseKey(std::wstring_view name, std::wstring_view value)
    {
        document_.sections.back().keys.push_back({nameOf(name), number_, value.size()});
    }

    std::wstring nameOf(std::wstring_view text) const
    {
        if (document_.encoding == Encoding::utf16) return std::wstring(text);
        const std::string bytes(text.begin(), text.end());
        return document_.encoding == Encoding::ansi ? automation::toWide(bytes) : fromUtf8(bytes);
    }

    IniDocument& document_;
    std::size_t number_ = 0;
};

}

IniDocument parseIni(std::string_view bytes)
{
    IniDocument document;
    document.encoding = encodingOf(bytes);
    if (document.encoding == Encoding::noText || document.encoding == Encoding::utf16Reversed) return document;
    if (document.encoding == Encoding::utf8WithMark) {
        bytes.remove_prefix(utf8Mark.size());
        document.markHidesLine = !bytes.empty() && bytes[0] != ';' && bytes[0] != '\r' && bytes[0] != '\n';
    }
    std::wstring text;
    if (document.encoding == Encoding::utf16) {
        text = fromUtf16(bytes.substr(utf16Mark.size()));
        document.losesCharacters = automation::toWide(automation::toAnsi(text)) != text;
    } else {
        text.reserve(bytes.size());
        for (const char byte : bytes) text += static_cast<wchar_t>(static_cast<unsigned char>(byte));
    }
    Parser parser(document);
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find(L'\n', start), text.size());
        parser.parseLine(std::wstring_view(text).substr(start, end - start));
        start = end + 1;
    }
    return document;
}

}
