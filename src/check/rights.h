// Where Hublink writes, and whether its user may. Asked for without writing anything.
#pragma once

#include "check/finding.h"
#include "check/program_settings.h"
#include "check/texts.h"

namespace hublink::check {

enum class Access {
    writable,
    refused,
    missing,
    fileInPlace, // of a folder
};

struct RightsFacts {
    std::wstring connectorFolder;
    Access connector = Access::missing;
    std::wstring iniFile;
    Access ini = Access::missing;
    std::wstring mapFolder;
    Access map = Access::missing;
    std::wstring mapFile;
    Access mapStore = Access::missing;
    bool registersExtension = false;
    bool extensionKeyIsWritable = false;
};

// Each of the three may be "": then there is no place for it.
RightsFacts rightsFacts(const ProgramSettings& settings, const std::wstring& connectorFolder,
                        const std::wstring& iniFile, const std::wstring& mapFile);

Findings rightsFindings(const RightsFacts& facts, const RightsTexts& texts);

// Whether new files could be made in a folder, a file be written to.
Access accessToFolder(const std::wstring& folder);
Access accessToFile(const std::wstring& file);

}
