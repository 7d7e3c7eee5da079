// The file as docs/identifier-map.md describes it, byte by byte, with a
// checksum computed in another way than the program does.
#include "convid/checksum.h"
#include "store_files.h"

#include <gtest/gtest.h>

#include <string_view>

using namespace convid_tests;
using convid::IdentifierStore;

namespace {

std::uint32_t slowCrc32(const std::vector<std::uint8_t>& bytes, std::size_t from)
{
    std::uint32_t value = 0xFFFFFFFFu;
    for (std::size_t index = from; index < bytes.size(); ++index)
        for (int bit = 0; bit < 8; ++bit) {
            const bool odd = ((value ^ (std::uint32_t{bytes[index]} >> bit)) & 1) != 0;
            value = (value >> 1) ^ (odd ? 0xEDB88320u : 0u);
        }
    return ~value;
}

void put(std::vector<std::uint8_t>& bytes, std::uint32_t number, int size)
{
    for (int index = 0; index < size; ++index) bytes.push_back(static_cast<std::uint8_t>(number >> (8 * index)));
}

void putText(std::vector<std::uint8_t>& bytes, std::wstring_view text)
{
    put(bytes, static_cast<std::uint32_t>(text.size()), 2);
    for (const wchar_t unit : text) put(bytes, unit, 2);
}

std::vector<std::uint8_t> headerOfVersion(std::uint32_t version)
{
    std::vector<std::uint8_t> bytes{'I', 'D', 'M', 'A', 'P', '\r', '\n', 0x1A};
    put(bytes, version, 4);
    put(bytes, slowCrc32(bytes, 0), 4);
    return bytes;
}

void putEntry(std::vector<std::uint8_t>& file, const std::vector<std::uint8_t>& payload)
{
    const std::size_t start = file.size();
    put(file, static_cast<std::uint32_t>(payload.size()), 4);
    put(file, slowCrc32(file, start), 4);
    file.insert(file.end(), payload.begin(), payload.end());
    put(file, slowCrc32(payload, 0), 4);
}

std::vector<std::uint8_t> documentedFile()
{
    std::vector<std::uint8_t> file = headerOfVersion(1);
    std::vector<std::uint8_t> insertion{1};
    put(insertion, 1, 4); // typApplication
    put(insertion, 0, 4); // collection
    putText(insertion, L"5.7");
    putText(insertion, L"0000\u20AC");
    putEntry(file, insertion);
    std::vector<std::uint8_t> removal{2};
    put(removal, 1, 4);
    putText(removal, L"5.7");
    putEntry(file, removal);
    return file;
}

}

TEST(StoreFormat, Checksum_IsThePublishedOne_ForEveryLength)
{
    const std::string text = "123456789";
    EXPECT_EQ(convid::crc32(std::vector<std::uint8_t>(text.begin(), text.end())), 0xCBF43926u);
    std::vector<std::uint8_t> bytes;
    for (int length = 0; length < 40; ++length) {
        EXPECT_EQ(convid::crc32(bytes), slowCrc32(bytes, 0)) << length << " bytes";
        bytes.push_back(static_cast<std::uint8_t>(length * 37 + 129));
    }
}

TEST(StoreFormat, InsertionAndRemoval_AreWrittenAsDocumented)
{
    const ScratchFolder folder;
    {
        IdentifierStore store(folder.file(L"map"));
        store.insert(record(L"5.7", L"0000\u20AC", 1, 0));
        store.remove(L"5.7", 1);
    }
    EXPECT_EQ(contents(folder.file(L"map")), documentedFile());
}

TEST(StoreFormat, FileMadeByHandAsDocumented_IsRead)
{
    const ScratchFolder folder;
    auto file = documentedFile();
    std::vector<std::uint8_t> insertion{1};
    put(insertion, 0, 4);
    put(insertion, 1, 4);
    putText(insertion, L"8.9");
    putText(insertion, L"EntryId");
    putEntry(file, insertion);
    writeContents(folder.file(L"map"), file);

    IdentifierStore store(folder.file(L"map"));
    EXPECT_EQ(everything(store), (Records{{{L"8.9", 0}, record(L"8.9", L"EntryId", 0, 1)}}));
    store.close();
    EXPECT_EQ(contents(folder.file(L"map")), file);
}

TEST(StoreFormat, NewerVersion_IsRefused_AndLeftUntouched)
{
    const ScratchFolder folder;
    auto file = headerOfVersion(2);
    put(file, 0x12345678, 4);
    writeContents(folder.file(L"map"), file);

    IdentifierStore store(folder.file(L"map"));
    EXPECT_ANY_THROW(store.find(L"5.7", 0));
    EXPECT_ANY_THROW(store.insert(record(L"5.7", L"entry", 0, 1)));
    EXPECT_EQ(contents(folder.file(L"map")), file);
    EXPECT_EQ(folder.files(), std::vector<std::wstring>{L"map"});
}

TEST(StoreFormat, SoundEntryOfUnknownType_IsDamage_AndIsKeptAside)
{
    const ScratchFolder folder;
    auto file = documentedFile();
    putEntry(file, {3, 0, 0, 0, 0, 0, 0});
    writeContents(folder.file(L"map"), file);
    IdentifierStore store(folder.file(L"map"));
    EXPECT_TRUE(everything(store).empty());
    EXPECT_EQ(contents(folder.file(L"map.damaged-1")), file);
}
