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

}
