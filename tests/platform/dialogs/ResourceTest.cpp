// What zek_add_resources compiled into this program, found again.
#include "TestIds.h"

#include <gmock/gmock.h>
#include <windows.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

LPCSTR Number(int number)
{
    return MAKEINTRESOURCEA(number);
}

std::vector<BYTE> BytesOf(HRSRC resource)
{
    const auto* data = static_cast<const BYTE*>(LockResource(LoadResource(nullptr, resource)));
    return {data, data + SizeofResource(nullptr, resource)};
}

std::string LoadText(UINT id, int size)
{
    // Guards on both sides of what the function may write to.
    std::vector<char> buffer(static_cast<size_t>(size) + 2, '#');
    const int length = LoadStringA(nullptr, id, buffer.data() + 1, size);
    EXPECT_EQ('#', buffer.front());
    EXPECT_EQ('#', buffer.back());
    EXPECT_EQ(static_cast<size_t>(length), std::strlen(buffer.data() + 1));
    return buffer.data() + 1;
}

} // namespace

TEST(Resources, AreFoundByNumberAndNameInAnyCase)
{
    const struct {
        LPCSTR label;
        LPCSTR name;
        LPCSTR type;
        DWORD error; // 0: found
    } kRows[] = {
        {"number", Number(IDR_BYTES), RT_RCDATA, 0},
        {"number as text", "#120", RT_RCDATA, 0},
        {"kind as text", "#120", "#10", 0},
        {"name", "NOTES", RT_RCDATA, 0},
        {"name in lower case", "notes", RT_RCDATA, 0},
        {"dialog", Number(IDD_FULL), RT_DIALOG, 0},
        {"unknown number", Number(121), RT_RCDATA, ERROR_RESOURCE_NAME_NOT_FOUND},
        {"unknown name", "note", RT_RCDATA, ERROR_RESOURCE_NAME_NOT_FOUND},
        {"unknown kind", Number(IDR_BYTES), Number(77), ERROR_RESOURCE_TYPE_NOT_FOUND},
        {"unknown named kind", Number(IDR_BYTES), "BYTES", ERROR_RESOURCE_TYPE_NOT_FOUND},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        SetLastError(0);
        const HRSRC found = FindResourceA(nullptr, row.name, row.type);
        EXPECT_EQ(row.error == 0, found != nullptr);
        EXPECT_EQ(row.error, found ? 0 : GetLastError());
    }
}

TEST(Resources, BelongToTheirModule)
{
    const HMODULE program = GetModuleHandleA(nullptr);
    EXPECT_NE(nullptr, FindResourceA(program, Number(IDR_BYTES), RT_RCDATA));
    EXPECT_EQ(nullptr, FindResourceA(GetModuleHandleA("KERNEL32.DLL"), Number(IDR_BYTES), RT_RCDATA));
}

TEST(Resources, GiveTheirBytes)
{
    EXPECT_THAT(BytesOf(FindResourceA(nullptr, Number(IDR_BYTES), RT_RCDATA)),
                testing::ElementsAre(0x34, 0x12, 'a', 'b', 0));
    const auto notes = BytesOf(FindResourceA(nullptr, "notes", RT_RCDATA));
    EXPECT_EQ("kept as it stands\n", std::string(notes.begin(), notes.end()));
}

// The tables are told apart by their text's first letter.
TEST(Resources, LanguageIsChosenInOrder)
{
    const struct {
        const char* label;
        int text;
        WORD language;
        char first; // 0: not found
    } kRows[] = {
        {"exact", IDS_BY_LANGUAGE, MAKELANGID(LANG_KOREAN, SUBLANG_DEFAULT), 'K'},
        {"neutral for a stranger", IDS_BY_LANGUAGE, MAKELANGID(LANG_GERMAN, SUBLANG_DEFAULT), 'n'},
        {"neutral for a relative", IDS_BY_LANGUAGE, MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_UK), 'n'},
        {"neutral before the user's", IDS_BY_LANGUAGE, 0, 'n'},
        {"no neutral one", IDS_FOREIGN, MAKELANGID(LANG_GERMAN, SUBLANG_DEFAULT), 0},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        const HRSRC found = FindResourceExA(nullptr, RT_STRING, Number(row.text / 16 + 1), row.language);
        EXPECT_EQ(row.first, found ? BytesOf(found)[2] : 0);
        EXPECT_EQ(row.first ? 0u : ERROR_RESOURCE_LANG_NOT_FOUND, found ? 0 : GetLastError());
    }
}

// Run in several languages.
TEST(Resources, LanguageIsTheUsersWithoutANeutralOne)
{
    const WORD language = PRIMARYLANGID(GetUserDefaultUILanguage());
    EXPECT_EQ(language == LANG_KOREAN ? "Korean" : "English", LoadText(IDS_FOREIGN, 32));
}

TEST(Resources, TextsAreCutToTheBuffer)
{
    const struct {
        int size;
        const char* text;
    } kRows[] = {{32, "short"}, {6, "short"}, {5, "shor"}, {2, "s"}, {1, ""}};
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.size);
        EXPECT_EQ(row.text, LoadText(IDS_SHORT, row.size));
    }
    EXPECT_EQ("last of its table", LoadText(IDS_LAST_OF_TABLE, 64));
    EXPECT_EQ("", LoadText(IDS_LAST_OF_TABLE + 1, 64));
    EXPECT_EQ("", LoadText(9999, 64));
}

TEST(Resources, NoBufferIsNoPlaceForAText)
{
    char buffer[4] = "abc";
    EXPECT_EQ(-1, LoadStringA(nullptr, IDS_SHORT, buffer, 0));
    EXPECT_STREQ("abc", buffer);
}

TEST(Resources, TextsSurviveTheCodePage)
{
    const std::u16string expected = u"구조 해석 m²";
    const auto table = BytesOf(FindResourceA(nullptr, Number(IDS_KOREAN / 16 + 1), RT_STRING));
    // Ten texts stand before it in its table; all but one are empty.
    const size_t offset = sizeof(WORD) * (IDS_KOREAN % 16) + sizeof(WCHAR) * std::strlen("short");
    ASSERT_LE(offset + sizeof(WORD) * (1 + expected.size()), table.size());
    EXPECT_EQ(expected.size(), table[offset]);
    EXPECT_EQ(0, std::memcmp(expected.data(), &table[offset + 2], 2 * expected.size()));

    char ansi[64] = "";
    BOOL lossy = FALSE;
    const auto* wide = reinterpret_cast<const WCHAR*>(&table[offset + 2]);
    WideCharToMultiByte(CP_ACP, 0, wide, static_cast<int>(expected.size()), ansi, 64, nullptr,
                        GetACP() == CP_UTF8 ? nullptr : &lossy);
    EXPECT_EQ(ansi, LoadText(IDS_KOREAN, 64));
}
// K TEST(Resources, KeysAreReadInTheirOrder)
// K {
// K     const HACCEL keys = LoadAcceleratorsA(nullptr, Number(IDR_KEYS));
// K     ASSERT_NE(nullptr, keys);
// K     ASSERT_EQ(3, CopyAcceleratorTableA(keys, nullptr, 0));
// K     ACCEL rows[4] = {};
// K     rows[2].cmd = 7;
// K     EXPECT_EQ(2, CopyAcceleratorTableA(keys, rows, 2));
// K     EXPECT_EQ(7, rows[2].cmd);
// K     EXPECT_EQ(3, CopyAcceleratorTableA(keys, rows, 4));
// K     EXPECT_EQ(FVIRTKEY | FCONTROL, rows[0].fVirt & (FVIRTKEY | FCONTROL | FSHIFT | FALT));
// K     EXPECT_EQ('S', rows[0].key);
// K     EXPECT_EQ(IDM_FIND, rows[1].cmd);
// K     EXPECT_EQ('m', rows[2].key);
// K     EXPECT_EQ(nullptr, LoadAcceleratorsA(nullptr, Number(1)));
// K }

TEST(Resources, StockIconsAreThere)
{
    for (const LPCSTR icon : {IDI_APPLICATION, IDI_HAND, IDI_QUESTION, IDI_EXCLAMATION, IDI_ASTERISK})
        EXPECT_NE(nullptr, LoadIconA(nullptr, icon));
    EXPECT_EQ(nullptr, LoadIconA(GetModuleHandleA(nullptr), "missing"));
}
