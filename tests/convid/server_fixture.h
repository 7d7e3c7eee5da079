// The real server program in this Windows session: registered, with an empty
// store, and ended when a test is over.
#pragma once

#include "automation/object.h"
#include "store_files.h"
#include "support/process.h"
#include "support/processes.h"

#include <gtest/gtest.h>

namespace convid_tests {

inline std::vector<DWORD> servers()
{
    return support::processesNamed(L"PavexConvId.exe");
}

// Runs the server program with arguments and returns its exit code.
DWORD runServer(const std::wstring& arguments);

class ServerFixture : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    automation::Object newObject() const { return automation::Object::create(L"PavexConvId.OrvelConvertId"); }

    std::wstring store;
};

// "" when the map does not know the identifier.
std::wstring converted(const automation::Object& map, const wchar_t* idOrvel, std::int32_t typApplication);

}
