#include "TestKey.h"

#include <gtest/gtest.h>

#include <set>
#include <thread>
#include <vector>

namespace {

LONG Open(HKEY key, const char* subkey)
{
    HKEY opened = nullptr;
    const LONG result = RegOpenKeyExA(key, subkey, 0, KEY_READ, &opened);
    if (result == ERROR_SUCCESS)
        RegCloseKey(opened);
    return result;
}

DWORD Create(HKEY key, const char* subkey)
{
    HKEY made = nullptr;
    DWORD disposition = 0;
    if (RegCreateKeyExA(key, subkey, 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, nullptr, &made,
                        &disposition) == ERROR_SUCCESS)
        RegCloseKey(made);
    return disposition;
}

TEST(RegistryKey, CreatingMakesTheWholePathOnce)
{
    const TestKey test("create");
    EXPECT_EQ(Open(test.Key(), "a"), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(Create(test.Key(), "a\\b\\c"), DWORD{REG_CREATED_NEW_KEY});
    EXPECT_EQ(Create(test.Key(), "A\\B\\C"), DWORD{REG_OPENED_EXISTING_KEY});
    EXPECT_EQ(Create(test.Key(), "a"), DWORD{REG_OPENED_EXISTING_KEY});
    EXPECT_EQ(Create(test.Key(), "a\\b\\d"), DWORD{REG_CREATED_NEW_KEY});
    EXPECT_NE(Create(test.Key(), ""), 0u);
}

TEST(RegistryKey, PathsThatNameTheSameKey)
{
    const TestKey test("paths");
    ASSERT_EQ(Create(test.Key(), "a\\b"), DWORD{REG_CREATED_NEW_KEY});
    for (const char* path : {"a\\b", "A\\B", "a\\b\\"}) {
        SCOPED_TRACE(path);
        EXPECT_EQ(Open(test.Key(), path), ERROR_SUCCESS);
    }
    for (const char* path : {"b", "a\\b\\c", "a/b", "a b", "a\\b "}) {
        SCOPED_TRACE(path);
        EXPECT_EQ(Open(test.Key(), path), ERROR_FILE_NOT_FOUND);
    }
    EXPECT_EQ(Open(test.Key(), ""), ERROR_SUCCESS);
    EXPECT_EQ(Open(test.Key(), nullptr), ERROR_SUCCESS);
}

TEST(RegistryKey, RootsAreThereAndAreNotClosed)
{
    for (const HKEY root :
         {HKEY_CLASSES_ROOT, HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE, HKEY_USERS, HKEY_CURRENT_CONFIG}) {
        HKEY opened = nullptr;
        EXPECT_EQ(RegOpenKeyExA(root, nullptr, 0, KEY_READ, &opened), ERROR_SUCCESS);
        EXPECT_EQ(RegCloseKey(root), ERROR_SUCCESS);
        EXPECT_EQ(RegQueryInfoKeyA(root, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                   nullptr, nullptr, nullptr, nullptr),
                  ERROR_SUCCESS);
    }
}

TEST(RegistryKey, DeletingNeedsAnEmptyKey)
{
    const TestKey test("delete");
    const HKEY a = test.Make("a");
    RegCloseKey(test.Make("a\\b"));
    ASSERT_EQ(SetText(a, "v", "x"), ERROR_SUCCESS);
    EXPECT_EQ(RegDeleteKeyA(test.Key(), "a"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegDeleteKeyA(test.Key(), "a\\b"), ERROR_SUCCESS);
    EXPECT_EQ(RegDeleteKeyA(test.Key(), "a"), ERROR_SUCCESS);
    EXPECT_EQ(RegDeleteKeyA(test.Key(), "a"), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(SetText(a, "v", "x"), ERROR_KEY_DELETED);
    EXPECT_EQ(RegQueryValueExA(a, "v", nullptr, nullptr, nullptr, nullptr), ERROR_KEY_DELETED);
    EXPECT_EQ(RegCloseKey(a), ERROR_SUCCESS);
    EXPECT_EQ(Create(test.Key(), "a"), DWORD{REG_CREATED_NEW_KEY}) << "its values went with it";
    const HKEY again = test.Make("a");
    EXPECT_EQ(GetText(again, "v"), "error " + std::to_string(ERROR_FILE_NOT_FOUND));
    RegCloseKey(again);
}

TEST(RegistryKey, ClosedHandlesAreRefused)
{
    const TestKey test("closed");
    const HKEY key = test.Make("k");
    ASSERT_EQ(RegCloseKey(key), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(key), ERROR_INVALID_HANDLE);
    EXPECT_EQ(SetText(key, "v", "x"), ERROR_INVALID_HANDLE);
    EXPECT_EQ(Open(key, "x"), ERROR_INVALID_HANDLE);
    EXPECT_EQ(RegDeleteKeyA(key, "x"), ERROR_INVALID_HANDLE);
}

TEST(RegistryKey, NamesMayBe255CharactersLong)
{
    const TestKey test("limits");
    const std::string name(255, 'k');
    EXPECT_EQ(Create(test.Key(), name.c_str()), DWORD{REG_CREATED_NEW_KEY});
    EXPECT_EQ(Open(test.Key(), name.c_str()), ERROR_SUCCESS);
}

TEST(RegistryKey, ListsAndCountsWhatIsThere)
{
    const TestKey test("list");
    const std::set<std::string> names = {"beta", "Alpha", "gamma ray", "Zeta", "a.b"};
    for (const std::string& name : names)
        RegCloseKey(test.Make(name + "\\below"));
    ASSERT_EQ(SetText(test.Key(), "longest name", "x"), ERROR_SUCCESS);
    ASSERT_EQ(SetText(test.Key(), "n", "long data"), ERROR_SUCCESS);
    std::set<std::string> listed;
    char name[16];
    DWORD size = sizeof name;
    for (DWORD i = 0;
         RegEnumKeyExA(test.Key(), i, name, &size, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
         ++i, size = sizeof name) {
        EXPECT_EQ(size, std::string(name).size());
        listed.insert(name);
    }
    EXPECT_EQ(listed, names);
    DWORD keys = 0, longestKey = 0, values = 0, longestName = 0, longestData = 0;
    EXPECT_EQ(RegQueryInfoKeyA(test.Key(), nullptr, nullptr, nullptr, &keys, &longestKey, nullptr, &values,
                               &longestName, &longestData, nullptr, nullptr),
              ERROR_SUCCESS);
    EXPECT_EQ(keys, names.size());
    EXPECT_EQ(longestKey, 9u);
    EXPECT_EQ(values, 2u);
    EXPECT_EQ(longestName, 12u);
    EXPECT_GE(longestData, 10u) << "the system may count in its own character set";
}

TEST(RegistryKey, ListingWithoutRoom)
{
    const TestKey test("room");
    RegCloseKey(test.Make("name"));
    char name[8] = {'!', '!', '!', '!', '!', '!', '!', '!'};
    DWORD size = 4;
    EXPECT_EQ(RegEnumKeyExA(test.Key(), 0, name, &size, nullptr, nullptr, nullptr, nullptr), ERROR_MORE_DATA);
    EXPECT_EQ(name[5], '!');
    size = 5;
    EXPECT_EQ(RegEnumKeyExA(test.Key(), 0, name, &size, nullptr, nullptr, nullptr, nullptr), ERROR_SUCCESS);
    EXPECT_STREQ(name, "name");
    EXPECT_EQ(name[5], '!');
    EXPECT_EQ(RegEnumKeyExA(test.Key(), 1, name, &size, nullptr, nullptr, nullptr, nullptr),
              ERROR_NO_MORE_ITEMS);
}

TEST(RegistryKey, ThreadsWorkSideBySide)
{
    const TestKey test("threads");
    const auto work = [&](int number) {
        const HKEY key = test.Make(std::string("t").append(std::to_string(number)));
        for (int i = 0; i < 100; ++i) {
            EXPECT_EQ(SetText(key, "v", std::to_string(i)), ERROR_SUCCESS);
            EXPECT_EQ(GetText(key, "v"), std::to_string(i));
        }
        RegCloseKey(key);
    };
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back(work, i);
    for (std::thread& thread : threads)
        thread.join();
}

TEST(RegistryKey, FlushingSucceeds)
{
    const TestKey test("flush");
    ASSERT_EQ(SetText(test.Key(), "v", "x"), ERROR_SUCCESS);
    EXPECT_EQ(RegFlushKey(test.Key()), ERROR_SUCCESS);
    EXPECT_EQ(GetText(test.Key(), "v"), "x");
}

} // namespace
