#include "server_fixture.h"

#include "convid/store_place.h"

namespace convid_tests {

using automation::byRef;
using automation::Value;
using support::isWine;
using support::killMapServers;

DWORD runServer(const std::wstring& arguments)
{
    return support::Process(support::command(L"PavexConvId.exe") + L" " + arguments).exitCode();
}

void ServerFixture::SetUp()
{
    if (!isWine()) GTEST_SKIP() << "would use up the signed-in user's own identifier map";
    killMapServers();
    store = convid::storePath();
    DeleteFileW(store.c_str());
    ASSERT_EQ(runServer(L"/RegServer"), 0u);
}

void ServerFixture::TearDown()
{
    if (store.empty()) return; // the test was skipped
    killMapServers();
    DeleteFileW(store.c_str());
    EXPECT_EQ(runServer(L"/UnregServer"), 0u);
}

std::wstring converted(const automation::Object& map, const wchar_t* idOrvel, std::int32_t typApplication)
{
    Value text(std::wstring(1024, L'\0'));
    Value length(std::int32_t{1024});
    const Value result = map.get(L"ConvertIdOrvel", {idOrvel, byRef(text), byRef(length), typApplication});
    return result.int32() == 0 ? L"" : text.text().substr(0, static_cast<std::size_t>(length.int32()));
}

}
