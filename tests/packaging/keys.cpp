#include "keys.h"

#include <sstream>
#include <vector>

namespace packaging {

namespace {

std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        if (line.ends_with('\r')) line.pop_back();
        lines.push_back(line);
    }
    return lines;
}

// What stands between two marks, each time that it does.
std::vector<std::string> between(const std::string& text, char mark)
{
    std::vector<std::string> found;
    for (std::size_t start = text.find(mark); start != std::string::npos; start = text.find(mark, start)) {
        const std::size_t end = text.find(mark, start + 1);
        if (end == std::string::npos) break;
        found.push_back(text.substr(start + 1, end - start - 1));
        start = end + 1;
    }
    return found;
}

// The arguments of a call whose opening bracket stands at `start`, as they are written.
std::vector<std::string> arguments(const std::string& text, std::size_t start)
{
    std::vector<std::string> found(1);
    int depth = 0;
    bool quoted = false;
    for (std::size_t at = start; at < text.size(); ++at) {
        const char c = text[at];
        if (c == '"') quoted = !quoted;
        if (!quoted && c == '(' && depth++ == 0) continue;
        if (!quoted && c == ')' && --depth == 0) break;
        if (!quoted && c == ',' && depth == 1) found.emplace_back();
        else if (quoted || c != ' ') found.back() += c;
    }
    return found;
}

// The text of a literal, or of the constant of that name; "" for what is neither.
std::string textOf(const std::string& argument, const std::string& source)
{
    if (argument.starts_with('"')) return between(argument, '"').front();
    const std::string definition = "const char* " + argument + " = ";
    const std::size_t place = source.find(definition);
    return place == std::string::npos ? "" : between(source.substr(place, 200), '"').front();
}

// read(key) and read(key, fallback) within a section; with section and fallback everywhere else.
std::string keyAmong(const std::vector<std::string>& given, const std::string& source)
{
    return textOf(given.size() >= 3 ? given[1] : given[0], source);
}

}

Sections keysOfIni(const std::string& text)
{
    Sections sections;
    std::string section;
    for (const std::string& line : linesOf(text)) {
        const std::size_t equals = line.find('=');
        if (line.starts_with('[')) section = line.substr(1, line.find(']') - 1);
        else if (!line.starts_with(';') && equals != std::string::npos)
            sections[section].insert(line.substr(0, equals));
    }
    return sections;
}

Sections keysOfPage(const std::string& text)
{
    Sections sections;
    std::string section;
    for (const std::string& line : linesOf(text)) {
        const std::size_t open = line.find('[');
        if (line.starts_with('#'))
            section = open == std::string::npos ? "" : line.substr(open + 1, line.find(']') - open - 1);
        else if (!section.empty() && line.starts_with("| `"))
            for (const std::string& key : between(line.substr(0, line.find('|', 1)), '`'))
                sections[section].insert(key);
    }
    return sections;
}

Keys keysOfSource(const std::string& text)
{
    Keys keys;
    for (const std::string call : {"read(", "readSwitch(", "number("})
        for (std::size_t at = text.find(call); at != std::string::npos; at = text.find(call, at + 1)) {
            const std::string key = keyAmong(arguments(text, at + call.size() - 1), text);
            if (!key.empty()) keys.insert(key);
        }
    return keys;
}

Keys together(const Sections& sections)
{
    Keys all;
    for (const auto& [section, keys] : sections) all.insert(keys.begin(), keys.end());
    return all;
}

}
