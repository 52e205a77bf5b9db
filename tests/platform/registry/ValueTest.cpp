#include "TestKey.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace {

struct StoredValue {
    const char* label;
    DWORD type;
    std::string bytes;
};

const StoredValue kValues[] = {
    {"empty text", REG_SZ, std::string("\0", 1)},
    {"text", REG_SZ, std::string("value\0", 6)},
    {"text to expand", REG_EXPAND_SZ, std::string("%PATH%;x\0", 9)},
    {"texts", REG_MULTI_SZ, std::string("one\0two\0\0", 9)},
    {"number", REG_DWORD, std::string("\x01\x02\x03\x04", 4)},
    {"long number", REG_QWORD, std::string("\x01\x02\x03\x04\0\0\0\x80", 8)},
    {"bytes", REG_BINARY, std::string("\0\xff\x80\0", 4)},
    {"no bytes", REG_BINARY, ""},
    {"no type", REG_NONE, std::string("abc", 3)},
    {"a type of the host's own", 0x1234, std::string("xyz", 3)},
};

const BYTE* Bytes(const std::string& text)
{
    return reinterpret_cast<const BYTE*>(text.data());
}

// Reads with a buffer of `room` bytes between guards; what was asked of every buffer is checked here.
void ExpectRead(HKEY key, const StoredValue& stored, DWORD room)
{
    SCOPED_TRACE(std::string(stored.label) + ", room " + std::to_string(room));
    std::vector<BYTE> buffer(room + 16, 0xA5);
    DWORD type = 0xDEAD;
    DWORD size = room;
    const auto needed = static_cast<DWORD>(stored.bytes.size());
    const LONG result = RegQueryValueExA(key, stored.label, nullptr, &type, buffer.data() + 8, &size);
    EXPECT_EQ(result, room < needed ? ERROR_MORE_DATA : ERROR_SUCCESS);
    EXPECT_EQ(size, needed);
    EXPECT_EQ(type, stored.type);
    const auto untouched = [](BYTE byte) { return byte == 0xA5; };
    EXPECT_TRUE(std::all_of(buffer.begin(), buffer.begin() + 8, untouched));
    EXPECT_TRUE(std::all_of(buffer.end() - 8, buffer.end(), untouched));
    if (result == ERROR_SUCCESS) {
        EXPECT_EQ(std::string(buffer.begin() + 8, buffer.begin() + 8 + static_cast<int>(needed)),
                  stored.bytes);
    }
}

TEST(RegistryValue, ShortExactAndRoomyBuffers)
{
    const TestKey test("values");
    for (const StoredValue& stored : kValues) {
        SCOPED_TRACE(stored.label);
        const auto needed = static_cast<DWORD>(stored.bytes.size());
        ASSERT_EQ(RegSetValueExA(test.Key(), stored.label, 0, stored.type, Bytes(stored.bytes), needed),
                  ERROR_SUCCESS);
        DWORD size = 77, type = 77;
        EXPECT_EQ(RegQueryValueExA(test.Key(), stored.label, nullptr, &type, nullptr, &size), ERROR_SUCCESS);
        EXPECT_EQ(size, needed);
        EXPECT_EQ(type, stored.type);
        EXPECT_EQ(RegQueryValueExA(test.Key(), stored.label, nullptr, nullptr, nullptr, nullptr),
                  ERROR_SUCCESS);
        for (const DWORD room : {DWORD{0}, needed / 2, needed, needed + 1, needed + 100})
            ExpectRead(test.Key(), stored, room);
    }
}

TEST(RegistryValue, TextWithoutTerminatorGetsOneWhereThereIsRoom)
{
    const TestKey test("unterminated");
    const std::string text = "abcX"; // the byte behind the text is not zero
    ASSERT_EQ(RegSetValueExA(test.Key(), "t", 0, REG_SZ, Bytes(text), 3), ERROR_SUCCESS);
    char exact[3];
    DWORD size = sizeof exact;
    EXPECT_EQ(RegQueryValueExA(test.Key(), "t", nullptr, nullptr, reinterpret_cast<BYTE*>(exact), &size),
              ERROR_SUCCESS);
    EXPECT_EQ(std::string(exact, 3), "abc");
    char roomy[5] = {'!', '!', '!', '!', '!'};
    size = sizeof roomy;
    EXPECT_EQ(RegQueryValueExA(test.Key(), "t", nullptr, nullptr, reinterpret_cast<BYTE*>(roomy), &size),
              ERROR_SUCCESS);
    EXPECT_EQ(std::string(roomy, 5), std::string("abc\0!", 5));
    EXPECT_EQ(size, 3u);
}

TEST(RegistryValue, NamesAreFoundInAnyCaseAndKeepTheirFirstForm)
{
    const TestKey test("case");
    ASSERT_EQ(SetText(test.Key(), "MixedCase", "one"), ERROR_SUCCESS);
    EXPECT_EQ(GetText(test.Key(), "MIXEDcase"), "one");
    ASSERT_EQ(SetText(test.Key(), "mixedCASE", "two"), ERROR_SUCCESS);
    EXPECT_EQ(GetText(test.Key(), "MixedCase"), "two");
    char name[32];
    DWORD size = sizeof name;
    EXPECT_EQ(RegEnumValueA(test.Key(), 0, name, &size, nullptr, nullptr, nullptr, nullptr), ERROR_SUCCESS);
    EXPECT_STREQ(name, "MixedCase");
    size = sizeof name;
    EXPECT_EQ(RegEnumValueA(test.Key(), 1, name, &size, nullptr, nullptr, nullptr, nullptr),
              ERROR_NO_MORE_ITEMS);
}

TEST(RegistryValue, OddNamesAreNamesLikeOthers)
{
    const TestKey test("odd");
    const std::vector<std::string> names = {
        "",  " ",   "'; DROP TABLE key; --", "\"quoted\"", "%s%n", "a\\b", "?",
        "*", "[x]", std::string(500, 'n'),   "\t",         "@",    "/",    "..",
        "_", "100%"};
    for (const std::string& name : names)
        ASSERT_EQ(SetText(test.Key(), name.c_str(), "<" + name + ">"), ERROR_SUCCESS) << name;
    for (const std::string& name : names)
        EXPECT_EQ(GetText(test.Key(), name.c_str()), "<" + name + ">");
    EXPECT_EQ(GetText(test.Key(), nullptr), "<>") << "null is the default value";
    EXPECT_EQ(GetText(test.Key(), "100_"), "error " + std::to_string(ERROR_FILE_NOT_FOUND)) << "no wildcards";
}

TEST(RegistryValue, DeletingAndMissing)
{
    const TestKey test("delete");
    EXPECT_EQ(RegDeleteValueA(test.Key(), "none"), ERROR_FILE_NOT_FOUND);
    DWORD size = 5;
    EXPECT_EQ(RegQueryValueExA(test.Key(), "none", nullptr, nullptr, nullptr, &size), ERROR_FILE_NOT_FOUND);
    ASSERT_EQ(SetText(test.Key(), "there", "x"), ERROR_SUCCESS);
    EXPECT_EQ(RegDeleteValueA(test.Key(), "THERE"), ERROR_SUCCESS);
    EXPECT_EQ(RegDeleteValueA(test.Key(), "there"), ERROR_FILE_NOT_FOUND);
}

TEST(RegistryValue, RefusesWrongArguments)
{
    const TestKey test("arguments");
    BYTE data[4] = {};
    DWORD reserved = 0;
    EXPECT_EQ(RegQueryValueExA(test.Key(), "v", nullptr, nullptr, data, nullptr), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(RegQueryValueExA(test.Key(), "v", &reserved, nullptr, nullptr, nullptr),
              ERROR_INVALID_PARAMETER);
    EXPECT_EQ(RegSetValueExA(nullptr, "v", 0, REG_BINARY, data, 4), ERROR_INVALID_HANDLE);
    EXPECT_EQ(RegQueryValueExA(nullptr, "v", nullptr, nullptr, nullptr, nullptr), ERROR_INVALID_HANDLE);
}

TEST(RegistryValue, ListsWithShortBuffers)
{
    const TestKey test("list");
    ASSERT_EQ(SetText(test.Key(), "name", "data"), ERROR_SUCCESS);
    char name[8] = "guard";
    DWORD size = 4; // the terminator does not fit
    EXPECT_EQ(RegEnumValueA(test.Key(), 0, name, &size, nullptr, nullptr, nullptr, nullptr), ERROR_MORE_DATA);
    size = 5;
    BYTE data[4];
    DWORD dataSize = sizeof data, type = 0;
    EXPECT_EQ(RegEnumValueA(test.Key(), 0, name, &size, nullptr, &type, data, &dataSize), ERROR_MORE_DATA);
    EXPECT_EQ(dataSize, 5u);
    BYTE room[5];
    size = 5;
    EXPECT_EQ(RegEnumValueA(test.Key(), 0, name, &size, nullptr, &type, room, &dataSize), ERROR_SUCCESS);
    EXPECT_EQ(size, 4u);
    EXPECT_STREQ(name, "name");
    EXPECT_EQ(type, DWORD{REG_SZ});
}

// Random writes, reads and deletions against a plain map.
TEST(RegistryValue, BehavesLikeAMap)
{
    const TestKey test("map");
    std::mt19937 random(20240501);
    std::map<std::string, std::string> oracle;
    for (int step = 0; step < 1500; ++step) {
        const std::string name = std::string("v").append(std::to_string(random() % 12));
        const std::string text(random() % 300, static_cast<char>('a' + random() % 26));
        switch (random() % 4) {
        case 0:
            EXPECT_EQ(SetText(test.Key(), name.c_str(), text), ERROR_SUCCESS);
            oracle[name] = text;
            break;
        case 1:
            EXPECT_EQ(RegDeleteValueA(test.Key(), name.c_str()),
                      oracle.erase(name) ? ERROR_SUCCESS : ERROR_FILE_NOT_FOUND);
            break;
        default:
            EXPECT_EQ(GetText(test.Key(), name.c_str()),
                      oracle.contains(name) ? oracle[name] : "error " + std::to_string(ERROR_FILE_NOT_FOUND));
        }
    }
}

// Forwards, again, backwards and by leaps, also while values come and go: as a list of the names would
// answer.
TEST(RegistryValue, ListsByPlaceInAnyOrder)
{
    constexpr int kCount = 40;
    const TestKey test("places");
    const auto nameAt = [&](DWORD index) -> std::string {
        char name[8];
        DWORD size = sizeof name, dataSize = 0;
        BYTE data = 0;
        // Asked twice, as hosts do that have no room for the data at first.
        RegEnumValueA(test.Key(), index, name, &size, nullptr, nullptr, &data, &dataSize);
        size = sizeof name;
        const LONG result = RegEnumValueA(test.Key(), index, name, &size, nullptr, nullptr, nullptr, nullptr);
        return result == ERROR_SUCCESS ? name : "error " + std::to_string(result);
    };
    std::vector<std::string> names;
    for (int i = 0; i < kCount; ++i)
        ASSERT_EQ(SetText(test.Key(), ("v" + std::to_string(i)).c_str(), "x"), ERROR_SUCCESS);
    for (DWORD i = 0; i < kCount; ++i)
        names.push_back(nameAt(i));
    EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), names.size());
    std::mt19937 random(20261121);
    for (int step = 0; step < 500; ++step) {
        const auto index = static_cast<DWORD>(random() % kCount);
        if (random() % 8 == 0 && names.size() > 1) {
            const std::size_t gone = random() % names.size();
            ASSERT_EQ(RegDeleteValueA(test.Key(), names[gone].c_str()), ERROR_SUCCESS);
            names.erase(names.begin() + static_cast<std::ptrdiff_t>(gone));
        }
        for (DWORD i = index; i < index + 3; ++i)
            ASSERT_EQ(nameAt(i), i < names.size() ? names[i] : "error " + std::to_string(ERROR_NO_MORE_ITEMS))
                << step << ' ' << i;
    }
}

} // namespace
