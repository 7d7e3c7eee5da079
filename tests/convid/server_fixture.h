// The real server program in this Windows session: registered, with an empty
// store, and ended when a test is over.
#pragma once

#include "automation/object.h"
#include "store_files.h"
#include "support/processes.h"

#include <gtest/gtest.h>

namespace convid_tests {

std::wstring serverProgram();

inline std::vector<DWORD> servers()
{
    return support::processesNamed(L"PavexConvId.exe");
}

// True when `condition` becomes true within `patience` milliseconds.
template <class Condition>
bool becomesTrue(Condition condition, DWORD patience = 10'000)
{
    for (const DWORD start = GetTickCount(); !condition(); Sleep(10))
        if (GetTickCount() - start > patience) return false;
    return true;
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
