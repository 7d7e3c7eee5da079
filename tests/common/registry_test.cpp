// The three registry procedures with their odd ends.
#include "common/registry.h"

#include "support/handle_count.h"

#include <gtest/gtest.h>

#include <string>

namespace hublink {

namespace {

constexpr const wchar_t* path = L"Software\\HublinkTest\\Registry";

// A key of the test's own under HKEY_CURRENT_USER.
class Registry : public testing::Test {
protected:
    Registry() { RegCreateKeyExW(HKEY_CURRENT_USER, path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr); }

    ~Registry() override
    {
        RegCloseKey(key);
        RegDeleteKeyW(HKEY_CURRENT_USER, path);
        RegDeleteKeyW(HKEY_CURRENT_USER, L"Software\\HublinkTest");
    }

    void set(const char* name, DWORD type, const std::string& bytes) const
    {
        RegSetValueExA(key, name, 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                       static_cast<DWORD>(bytes.size()));
    }

    static std::wstring get(const wchar_t* name) { return RegGetString(HKEY_CURRENT_USER, path, name); }

    HKEY key = nullptr;
};

// As a C program stores a text: with its terminating NUL.
std::string terminated(const std::string& text)
{
    return text + '\0';
}

bool keyExists(const wchar_t* subkey)
{
    HKEY found = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, subkey, 0, KEY_READ, &found) != ERROR_SUCCESS) return false;
    RegCloseKey(found);
    return true;
}

}

TEST_F(Registry, Text_IsReadWithoutItsTerminator)
{
    set("Man", REG_SZ, terminated("John"));
    EXPECT_EQ(get(L"Man"), L"John");
    EXPECT_EQ(get(L"MAN"), L"John");
}

TEST_F(Registry, TextInTheCodePage_IsRead)
{
    set("Man", REG_SZ, terminated("Ren\xE9"));
    EXPECT_EQ(get(L"Man"), L"Ren\u00E9");
}

TEST_F(Registry, MissingKey_GivesEmptyText)
{
    EXPECT_EQ(RegGetString(HKEY_CURRENT_USER, L"Software\\HublinkTest\\Missing", L"Man"), L"");
}

TEST_F(Registry, ExistingKeyWithoutTheValue_GivesNotString)
{
    EXPECT_EQ(get(L"Man"), L"--Not String--");
}

TEST_F(Registry, ValueOfAnotherType_GivesEmptyText)
{
    set("Number", REG_DWORD, std::string("\1\0\0\0", 4));
    set("Binary", REG_BINARY, "abcd");
    set("Expand", REG_EXPAND_SZ, terminated("text"));
    set("Several", REG_MULTI_SZ, terminated(terminated("text")));
    set("None", REG_NONE, "abcd");
    for (const wchar_t* name : {L"Number", L"Binary", L"Expand", L"Several", L"None"})
        EXPECT_EQ(get(name), L"") << name;
}

TEST_F(Registry, TextOf300Bytes_GivesNotString)
{
    set("Long", REG_SZ, terminated(std::string(299, 'a')));
    EXPECT_EQ(get(L"Long"), L"--Not String--");
}

TEST_F(Registry, TextOf256Bytes_IsTheLongestThatIsRead)
{
    set("Fits", REG_SZ, terminated(std::string(255, 'a')));
    EXPECT_EQ(get(L"Fits"), std::wstring(255, L'a'));
    set("Fits", REG_SZ, terminated(std::string(254, 'a')));
    EXPECT_EQ(get(L"Fits"), std::wstring(254, L'a'));
    set("TooLong", REG_SZ, terminated(std::string(256, 'a')));
    EXPECT_EQ(get(L"TooLong"), L"--Not String--");
}

TEST_F(Registry, LongValueOfAnotherType_GivesNotStringToo)
{
    set("Binary", REG_BINARY, std::string(300, 'a'));
    EXPECT_EQ(get(L"Binary"), L"--Not String--");
}

TEST_F(Registry, EmptyAndZeroByteTexts_GiveEmptyText)
{
    set("Empty", REG_SZ, terminated(""));
    set("ZeroBytes", REG_SZ, "");
    EXPECT_EQ(get(L"Empty"), L"");
    EXPECT_EQ(get(L"ZeroBytes"), L"");
}

TEST_F(Registry, TextStoredWithoutTerminator_LosesItsLastCharacter)
{
    // The system itself adds a terminator that it finds behind the text, so none may stand there.
    RegSetValueExA(key, "Bare", 0, REG_SZ, reinterpret_cast<const BYTE*>("John."), 4);
    EXPECT_EQ(get(L"Bare"), L"Joh");
}

TEST_F(Registry, SetText_IsStoredAsText)
{
    EXPECT_EQ(RegSetString(HKEY_CURRENT_USER, path, L"Name", L"4;C:\\Ren\u00E9\\lib.dll"), L"True");
    char stored[32] = {};
    DWORD size = sizeof stored;
    DWORD type = 0;
    ASSERT_EQ(RegQueryValueExA(key, "Name", nullptr, &type, reinterpret_cast<BYTE*>(stored), &size), ERROR_SUCCESS);
    EXPECT_EQ(type, DWORD{REG_SZ});
    EXPECT_STREQ(stored, "4;C:\\Ren\xE9\\lib.dll");
    EXPECT_EQ(get(L"Name"), L"4;C:\\Ren\u00E9\\lib.dll");
}

TEST_F(Registry, SetText_ReplacesAValueOfAnyType)
{
    set("Name", REG_DWORD, std::string("\1\0\0\0", 4));
    EXPECT_EQ(RegSetString(HKEY_CURRENT_USER, path, L"Name", L"text"), L"True");
    DWORD type = 0;
    RegQueryValueExA(key, "Name", nullptr, &type, nullptr, nullptr);
    EXPECT_EQ(type, DWORD{REG_SZ});
}

TEST_F(Registry, SetEmptyText_IsReadBackEmpty)
{
    EXPECT_EQ(RegSetString(HKEY_CURRENT_USER, path, L"Name", L""), L"True");
    EXPECT_EQ(get(L"Name"), L"");
}

TEST_F(Registry, SetUnderAMissingKey_IsFalse_AndMakesNoKey)
{
    EXPECT_EQ(RegSetString(HKEY_CURRENT_USER, L"Software\\HublinkTest\\Missing", L"Name", L"text"), L"False");
    EXPECT_FALSE(keyExists(L"Software\\HublinkTest\\Missing"));
}

TEST_F(Registry, DeletedValue_IsGone)
{
    set("Name", REG_SZ, terminated("text"));
    EXPECT_EQ(RegDeleteString(HKEY_CURRENT_USER, path, L"Name"), L"True");
    EXPECT_EQ(get(L"Name"), L"--Not String--");
}

TEST_F(Registry, DeletionOfWhatIsNotThere_IsFalse)
{
    EXPECT_EQ(RegDeleteString(HKEY_CURRENT_USER, path, L"Name"), L"False");
    EXPECT_EQ(RegDeleteString(HKEY_CURRENT_USER, L"Software\\HublinkTest\\Missing", L"Name"), L"False");
}

TEST_F(Registry, KeyOpenedUnderARoot_StaysOpen)
{
    set("Man", REG_SZ, terminated("John"));
    const int before = support::openHandles();
    for (int time = 0; time < 20; ++time) get(L"Man");
    EXPECT_EQ(support::openHandles(), before + 20);
}

TEST_F(Registry, RootZero_FailsQuietly)
{
    EXPECT_EQ(RegGetString(nullptr, path, L"Man"), L"");
    EXPECT_EQ(RegSetString(nullptr, path, L"Man", L"x"), L"False");
    EXPECT_EQ(RegDeleteString(nullptr, path, L"Man"), L"False");
}

}
