#include "source_files.h"

#include "automation/owners.h"
#include "automation/text.h"
#include "support/scratch_folder.h"

namespace layering {

namespace {

bool isSource(const std::string& path)
{
    return path.ends_with(".h") || path.ends_with(".cpp") || path.ends_with(".rc");
}

}

void readFolder(const std::string& folder, Files& files)
{
    WIN32_FIND_DATAW entry;
    const std::wstring pattern = support::projectFile(automation::toWide(folder + "/*"));
    const auto search = automation::ownedIfValid<automation::FileSearch>(FindFirstFileW(pattern.c_str(), &entry));
    if (!search) return;
    do {
        const std::string name = automation::toAnsi(entry.cFileName);
        const std::string path = folder + "/" + name;
        if (name == "." || name == "..") continue;
        if (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) readFolder(path, files);
        else if (isSource(path)) files[path] = support::readFile(support::projectFile(automation::toWide(path)));
    } while (FindNextFileW(search.get(), &entry));
}

}
