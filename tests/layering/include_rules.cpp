#include "include_rules.h"

#include <algorithm>
#include <set>

namespace layering {

namespace {

using Rooms = std::set<std::string>;

// What each room may use besides itself.
const std::map<std::string, Rooms>& allowed()
{
    static const std::map<std::string, Rooms> rooms{
        {"shell", {"softphone", "outlook", "lotus", "common", "automation"}},
        {"softphone", {"outlook", "lotus", "common", "automation"}},
        {"outlook", {"common", "automation"}},
        {"lotus", {"common", "automation"}},
        {"common", {"automation"}},
        {"automation", {}},
        {"convid", {"automation"}},
        {"check", {"outlook", "lotus", "common", "automation", "convid"}},
        {"setup", {"common", "automation"}},
        {"desk", {"automation"}},
    };
    return rooms;
}

std::string firstPart(const std::string& path)
{
    return path.substr(0, path.find('/'));
}

std::string withoutSource(const std::string& path)
{
    return path.starts_with("src/") ? path.substr(4) : path;
}

bool isHeader(const std::string& path)
{
    return path.ends_with(".h");
}

void checkArrow(const std::string& file, const std::string& included, std::vector<std::string>& found)
{
    const std::string room = firstPart(withoutSource(file));
    const std::string target = firstPart(included);
    if (!allowed().contains(room)) found.push_back(file + ": no such room");
    else if (!allowed().contains(target)) found.push_back(file + " includes " + included + ", which names no room");
    else if (room != target && !allowed().at(room).contains(target)) found.push_back(file + " includes " + included);
}

// The headers of the same room that each header includes, by path as included.
std::map<std::string, std::vector<std::string>> headersWithinRooms(const Files& files)
{
    std::map<std::string, std::vector<std::string>> result;
    for (const auto& [path, text] : files) {
        if (!isHeader(path)) continue;
        const std::string header = withoutSource(path);
        for (const std::string& included : includesOf(text))
            if (firstPart(included) == firstPart(header)) result[header].push_back(included);
    }
    return result;
}

class CycleSearch {
public:
    explicit CycleSearch(const Files& files) : includes_(headersWithinRooms(files)) {}

    void run(std::vector<std::string>& found)
    {
        for (const auto& [header, included] : includes_) visit(header, found);
    }

private:
    void visit(const std::string& header, std::vector<std::string>& found)
    {
        const auto open = std::find(path_.begin(), path_.end(), header);
        if (open != path_.end()) {
            report(open, header, found);
            return;
        }
        if (!done_.insert(header).second) return;
        path_.push_back(header);
        if (const auto next = includes_.find(header); next != includes_.end())
            for (const std::string& included : next->second) visit(included, found);
        path_.pop_back();
    }

    void report(std::vector<std::string>::iterator first, const std::string& header, std::vector<std::string>& found)
    {
        std::string circle;
        for (; first != path_.end(); ++first) circle += *first + " > ";
        found.push_back("circle: " + circle + header);
    }

    const std::map<std::string, std::vector<std::string>> includes_;
    std::vector<std::string> path_;
    std::set<std::string> done_;
};

}

std::vector<std::string> includesOf(const std::string& text)
{
    std::vector<std::string> found;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        std::string line = text.substr(start, end - start);
        start = end + 1;
        std::erase_if(line, [](char c) { return c == ' ' || c == '\t' || c == '\r'; });
        constexpr std::string_view directive = "#include\"";
        if (!line.starts_with(directive)) continue;
        const std::size_t close = line.find('"', directive.size());
        if (close != std::string::npos) found.push_back(line.substr(directive.size(), close - directive.size()));
    }
    return found;
}

std::vector<std::string> violations(const Files& files)
{
    std::vector<std::string> found;
    for (const auto& [path, text] : files)
        for (const std::string& included : includesOf(text)) checkArrow(path, included, found);
    CycleSearch(files).run(found);
    return found;
}

}
