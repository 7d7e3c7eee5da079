#include "test_names.h"

#include <regex>
#include <set>
#include <sstream>

namespace layering {

namespace {

// The files in which a name is given, by name.
using Places = std::map<std::string, std::set<std::string>>;

void reportSeveral(const Places& places, const std::string& what, std::vector<std::string>& found)
{
    for (const auto& [name, files] : places) {
        if (files.size() < 2) continue;
        std::string report = what + " " + name + " stands in";
        for (const std::string& file : files) report += " " + file;
        found.push_back(report);
    }
}

}

std::vector<std::string> nameViolations(const Files& tests)
{
    static const std::regex test(R"(^TEST(?:_F|_P)?\((\w+),\s*(\w+)\))");
    static const std::regex definedClass(R"(^(?:class|struct) (\w+)(?: .*)?$)");
    Places suites;
    Places classes;
    std::vector<std::string> found;
    for (const auto& [path, text] : tests) {
        std::istringstream lines(text);
        std::smatch match;
        for (std::string line; std::getline(lines, line);) {
            if (std::regex_search(line, match, test)) {
                suites[match[1]].insert(path);
                if (match.str(2).find('_') == std::string::npos)
                    found.push_back(match.str(1) + "." + match.str(2) + " tells a condition or a result only");
            } else if (std::regex_match(line, match, definedClass)) {
                classes[match[1]].insert(path);
            }
        }
    }
    reportSeveral(suites, "suite", found);
    reportSeveral(classes, "class", found);
    return found;
}

}
