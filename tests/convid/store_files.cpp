#include "store_files.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace convid_tests {

std::vector<std::uint8_t> contents(const std::wstring& path)
{
    EXPECT_TRUE(fileExists(path));
    const std::string bytes = support::readFile(path);
    return {bytes.begin(), bytes.end()};
}

void writeContents(const std::wstring& path, const std::vector<std::uint8_t>& bytes)
{
    support::writeFile(path, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

bool fileExists(const std::wstring& path)
{
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

convid::IdentifierRecord record(const std::wstring& idOrvel, const std::wstring& idAppli, std::int32_t typApplication,
                                std::int32_t collection)
{
    return {.idOrvel = idOrvel, .idAppli = idAppli, .typApplication = typApplication, .collection = collection};
}

Records everything(convid::IdentifierStore& store)
{
    Records result;
    for (const std::int32_t collection : {0, 1})
        for (const auto& found : store.records(collection)) {
            EXPECT_EQ(found->collection, collection);
            const bool fresh = result.emplace(Key{found->idOrvel, found->typApplication}, *found).second;
            EXPECT_TRUE(fresh) << "told twice";
        }
    return result;
}

}
