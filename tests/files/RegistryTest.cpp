#include <Registry.h>

#include <gtest/gtest.h>

#include <string>

namespace {

const char kPath[] = "HKEY_CURRENT_USER\\Software\\ZekTest\\Settings";
const char kSubkey[] = "Software\\ZekTest\\Settings";

// The key of the tests, empty before each and gone afterwards.
class Registry : public testing::Test
{
protected:
    void SetUp() override { Remove(); }
    void TearDown() override { Remove(); }

    static void Remove()
    {
        for (const char* below : {"\\Deep\\Er", "\\Deep", ""})
            RegDeleteKeyA(HKEY_CURRENT_USER, (kSubkey + std::string(below)).c_str());
    }
    static bool KeyExists(const std::string& subkey)
    {
        HKEY key = nullptr;
        const bool found =
            RegOpenKeyExA(HKEY_CURRENT_USER, subkey.c_str(), 0, KEY_READ, &key) == ERROR_SUCCESS;
        RegCloseKey(key);
        return found;
    }
    static LONG WriteRaw(const char* name, DWORD type, const std::string& bytes)
    {
        HKEY key = nullptr;
        RegCreateKeyExA(HKEY_CURRENT_USER, kSubkey, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr);
        const LONG result = RegSetValueExA(key, name, 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                                           static_cast<DWORD>(bytes.size()));
        RegCloseKey(key);
        return result;
    }
    static std::string Text(const char* path, const char* entry)
    {
        CString value("untouched");
        const int result = CRegistry::GetProfileString(path, entry, value);
        return result ? static_cast<const char*>(value)
                      : "refused, " + std::string(static_cast<const char*>(value));
    }
};

TEST_F(Registry, TextsAndNumbersComeBack)
{
    for (const std::string text : {"", "x", "C:\\Program Files\\x", "%s %d", "ends with a backslash\\"}) {
        EXPECT_EQ(CRegistry::WriteProfileString(kPath, "Text", text.c_str()), 1);
        EXPECT_EQ(Text(kPath, "Text"), text);
    }
    const std::string longText(100000, 'l');
    EXPECT_EQ(CRegistry::WriteProfileString(kPath, "Long", longText.c_str()), 1);
    EXPECT_EQ(Text(kPath, "Long"), longText);
    for (const int number : {0, 1, -1, 2147483647, -2147483647 - 1}) {
        int read = 77;
        EXPECT_EQ(CRegistry::WriteProfileInt(kPath, "Number", number), 1);
        EXPECT_EQ(CRegistry::GetProfileInt(kPath, "Number", read), 1);
        EXPECT_EQ(read, number);
    }
}

TEST_F(Registry, WritesTextsWithTheirTerminatorAndNumbersAsFourBytes)
{
    ASSERT_EQ(CRegistry::WriteProfileString(kPath, "Text", "abc"), 1);
    ASSERT_EQ(CRegistry::WriteProfileInt(kPath, "Number", 7), 1);
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExA(HKEY_CURRENT_USER, kSubkey, 0, KEY_READ, &key), ERROR_SUCCESS);
    DWORD type = 0, size = 0;
    EXPECT_EQ(RegQueryValueExA(key, "Text", nullptr, &type, nullptr, &size), ERROR_SUCCESS);
    EXPECT_EQ(type, DWORD{REG_SZ});
    EXPECT_EQ(size, 4u);
    EXPECT_EQ(RegQueryValueExA(key, "Number", nullptr, &type, nullptr, &size), ERROR_SUCCESS);
    EXPECT_EQ(type, DWORD{REG_DWORD});
    EXPECT_EQ(size, 4u);
    RegCloseKey(key);
}

TEST_F(Registry, PathsOfTheSameKey)
{
    ASSERT_EQ(CRegistry::WriteProfileString(kPath, "Entry", "value"), 1);
    for (const char* path : {"HKEY_CURRENT_USER\\Software\\ZekTest\\Settings\\",
                             "hkey_current_user\\software\\zektest\\SETTINGS",
                             "HKEY_CURRENT_USER\\Software\\\\ZekTest\\Settings"}) {
        SCOPED_TRACE(path);
        EXPECT_EQ(Text(path, "Entry"), "value");
        EXPECT_EQ(Text(path, "ENTRY"), "value");
    }
}

TEST_F(Registry, PathsThatAreNoKey)
{
    for (const char* path :
         {"", "\\", "HKEY_CURRENT_USER", "HKEY_CURRENT_USER\\", "HKEY_DYN_DATA\\Software",
          "HKEY_PERFORMANCE_DATA\\x", "HKCU\\Software", "Software\\ZekTest", "\\HKEY_CURRENT_USER\\Software",
          " HKEY_CURRENT_USER\\Software", "HKEY_CURRENT_USER/Software"}) {
        SCOPED_TRACE(path);
        int number = 77;
        EXPECT_EQ(CRegistry::WriteProfileString(path, "Entry", "x"), 0);
        EXPECT_EQ(CRegistry::WriteProfileInt(path, "Entry", 1), 0);
        EXPECT_EQ(CRegistry::GetProfileInt(path, "Entry", number), 0);
        EXPECT_EQ(number, 77);
        EXPECT_EQ(Text(path, "Entry"), "refused, untouched");
    }
}

TEST_F(Registry, ReadingMakesNothingAndWritingTheWholePath)
{
    const std::string deep = std::string(kPath) + "\\Deep\\Er";
    int number = 77;
    EXPECT_EQ(Text(deep.c_str(), "Entry"), "refused, untouched");
    EXPECT_EQ(CRegistry::GetProfileInt(deep.c_str(), "Entry", number), 0);
    EXPECT_EQ(number, 77);
    EXPECT_FALSE(KeyExists(kSubkey));
    EXPECT_EQ(CRegistry::WriteProfileInt(deep.c_str(), "Entry", 5), 1);
    EXPECT_TRUE(KeyExists(std::string(kSubkey) + "\\Deep\\Er"));
}

TEST_F(Registry, NoTextDeletesTheValue)
{
    EXPECT_EQ(CRegistry::WriteProfileString(kPath, "Entry", nullptr), 0) << "there was none";
    EXPECT_TRUE(KeyExists(kSubkey)) << "the key is made all the same";
    ASSERT_EQ(CRegistry::WriteProfileString(kPath, "Entry", "x"), 1);
    EXPECT_EQ(CRegistry::WriteProfileString(kPath, "Entry", nullptr), 1);
    EXPECT_EQ(Text(kPath, "Entry"), "refused, untouched");
    EXPECT_EQ(CRegistry::WriteProfileString("HKEY_CURRENT_USER", "Entry", nullptr), 0);
}

TEST_F(Registry, TypesDoNotCount)
{
    const struct {
        const char* label;
        DWORD type;
        std::string bytes, text;
        int result, number;
    } rows[] = {
        {"short text", REG_SZ, std::string("abc\0", 4), "abc", 1, 0x00636261},
        {"shorter text", REG_SZ, std::string("a\0", 2), "a", 1, 0x61},
        {"long text", REG_SZ, std::string("abcd\0", 5), "abcd", 0, 77},
        {"number", REG_DWORD, "zek!", "zek!", 1, 0x216b657a},
        {"long number", REG_QWORD, "12345678", "12345678", 0, 77},
        {"bytes with a zero", REG_BINARY, std::string("x\0y", 3), "x", 1, 0x00790078},
        {"no bytes", REG_BINARY, "", "", 1, 0},
        {"text without its terminator", REG_SZ, "abcdefg", "abcdefg", 0, 77},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        ASSERT_EQ(WriteRaw("Entry", row.type, row.bytes), ERROR_SUCCESS);
        EXPECT_EQ(Text(kPath, "Entry"), row.text);
        int number = 77;
        EXPECT_EQ(CRegistry::GetProfileInt(kPath, "Entry", number), row.result);
        EXPECT_EQ(number, row.number);
    }
}

// The protected member, as derived classes use it.
class OpenRegistry : public CRegistry
{
public:
    using CRegistry::GetRegistryKey;
};

TEST_F(Registry, GivesDerivedClassesTheKey)
{
    EXPECT_EQ(OpenRegistry::GetRegistryKey(kPath, 1), nullptr);
    const HKEY made = OpenRegistry::GetRegistryKey(kPath, 0);
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(RegSetValueExA(made, "v", 0, REG_SZ, reinterpret_cast<const BYTE*>("x"), 2), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(made), ERROR_SUCCESS);
    EXPECT_EQ(Text(kPath, "v"), "x");
    EXPECT_EQ(OpenRegistry::GetRegistryKey("HKEY_LOCAL_MACHINE", 1), nullptr);
}

} // namespace
