// Full names, the current folder, drives, temporary folder.
#include "Scratch.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <cstring>
#include <string>

namespace {

std::string FullPath(const std::string& name)
{
    char buffer[2048];
    return GetFullPathNameA(name.c_str(), sizeof buffer, buffer, nullptr) ? buffer : "";
}

TEST(WinapiPaths, FullNamesAreLexical)
{
    const struct {
        const char *name, *full;
    } rows[] = {
        {"C:\\a\\b.txt", "C:\\a\\b.txt"}, {"c:/a/./b//c", "C:\\a\\b\\c"},       {"C:\\a\\..\\b", "C:\\b"},
        {"C:\\..\\..\\etc", "C:\\etc"},   {"C:\\a\\b\\..\\..\\..\\..", "C:\\"}, {"C:\\", "C:\\"},
        {"C:\\a\\", "C:\\a\\"},           {"Z:\\a\\b. .", "Z:\\a\\b"},          {"C:\\a\\nul", "\\\\.\\nul"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const std::string full = FullPath(row.name);
        EXPECT_EQ(_stricmp(full.c_str(), row.full), 0) << full;
    }
}

TEST(WinapiPaths, FullNameBufferContract)
{
    char guarded[10];
    std::memset(guarded, '#', sizeof guarded);
    char* part = guarded;
    EXPECT_EQ(GetFullPathNameA("C:\\ab", 0, nullptr, nullptr), 6u);
    EXPECT_EQ(GetFullPathNameA("C:\\ab", 5, guarded, &part), 6u);
    EXPECT_EQ(std::string(guarded + 6, 4), "####");
    std::memset(guarded, '#', sizeof guarded);
    EXPECT_EQ(GetFullPathNameA("C:\\ab", 6, guarded, &part), 5u);
    EXPECT_STREQ(guarded, "C:\\ab");
    EXPECT_EQ(std::string(guarded + 6, 4), "####");
    EXPECT_EQ(part, guarded + 3);
    EXPECT_EQ(GetFullPathNameA("C:\\", sizeof guarded, guarded, &part), 3u);
    EXPECT_EQ(part, nullptr);
}

TEST(WinapiPaths, TheCurrentFolderIsWhereRelativeNamesStart)
{
    const ScratchFolder folder;
    char before[1024], inside[1024];
    ASSERT_NE(GetCurrentDirectoryA(sizeof before, before), 0u);
    EXPECT_EQ(before[1], ':');
    ASSERT_TRUE(SetCurrentDirectoryA(folder.Path().c_str()));
    GetCurrentDirectoryA(sizeof inside, inside);
    WriteWholeFile(folder.Path("f.txt"), "x");
    EXPECT_NE(GetFileAttributesA("F.TXT"), INVALID_FILE_ATTRIBUTES);
    EXPECT_NE(GetFileAttributesA(".\\f.txt"), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(FullPath("f.txt"), std::string(inside) + "\\f.txt");
    EXPECT_EQ(FullPath(std::string(1, inside[0]) + ":f.txt"), std::string(inside) + "\\f.txt");
    EXPECT_EQ(FullPath("\\f.txt"), std::string(inside).substr(0, 2) + "\\f.txt");
    EXPECT_FALSE(SetCurrentDirectoryA("none"));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
    EXPECT_FALSE(SetCurrentDirectoryA("f.txt"));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_DIRECTORY));
    EXPECT_TRUE(SetCurrentDirectoryA(before));
}

TEST(WinapiPaths, NamesAreFoundInAnyCaseAndWithEitherSlash)
{
    const ScratchFolder folder;
    CreateDirectoryA(folder.Path("Sub").c_str(), nullptr);
    WriteWholeFile(folder.Path("Sub") + "/File.Txt", "found");
    for (const char* name :
         {"sub\\file.txt", "SUB/FILE.TXT", "Sub//File.Txt", "sub\\.\\..\\Sub\\file.TXT", "Sub\\File.Txt. "}) {
        SCOPED_TRACE(name);
        EXPECT_NE(GetFileAttributesA((folder.Path() + "\\" + name).c_str()), INVALID_FILE_ATTRIBUTES);
    }
}

TEST(WinapiPaths, TheNullDeviceIsEverywhere)
{
    for (const char* name : {"NUL", "nul", "C:\\nul", "nul.txt"}) {
        SCOPED_TRACE(name);
        const HANDLE file =
            CreateFileA(name, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                        OPEN_EXISTING, 0, nullptr);
        ASSERT_NE(file, INVALID_HANDLE_VALUE);
        char byte;
        DWORD done = 9;
        EXPECT_TRUE(WriteFile(file, "x", 1, &done, nullptr));
        EXPECT_EQ(done, 1u);
        EXPECT_TRUE(ReadFile(file, &byte, 1, &done, nullptr));
        EXPECT_EQ(done, 0u);
        EXPECT_EQ(GetFileType(file), static_cast<DWORD>(FILE_TYPE_CHAR));
        CloseHandle(file);
    }
}

TEST(WinapiPaths, FoldersOfTheSystemExist)
{
    char windows[MAX_PATH], system[MAX_PATH], temp[MAX_PATH];
    ASSERT_NE(GetWindowsDirectoryA(windows, sizeof windows), 0u);
    ASSERT_NE(GetSystemDirectoryA(system, sizeof system), 0u);
    ASSERT_NE(GetTempPathA(sizeof temp, temp), 0u);
    EXPECT_EQ(temp[std::strlen(temp) - 1], '\\');
    for (const char* folder : {static_cast<const char*>(windows), static_cast<const char*>(system), "C:\\",
                               static_cast<const char*>(temp)}) {
        SCOPED_TRACE(folder);
        const DWORD attributes = GetFileAttributesA(folder);
        ASSERT_NE(attributes, INVALID_FILE_ATTRIBUTES);
        EXPECT_TRUE(attributes & FILE_ATTRIBUTE_DIRECTORY);
    }
    EXPECT_EQ(GetWindowsDirectoryA(windows, 3), std::strlen("C:\\windows") + 1);
    EXPECT_TRUE(GetLogicalDrives() & 4);
    EXPECT_EQ(GetDriveTypeA("C:\\"), static_cast<UINT>(DRIVE_FIXED));
    EXPECT_EQ(GetDriveTypeA("Q:\\"), static_cast<UINT>(DRIVE_NO_ROOT_DIR));
}

} // namespace
