// Files by handle: opening, reading, writing, positions, sharing, locks, times.
#include "Scratch.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

namespace {

class WinapiFiles : public testing::Test
{
protected:
    HANDLE Open(const std::string& name, DWORD access, DWORD disposition, DWORD share = 0)
    {
        SetLastError(0xdead);
        return CreateFileA(m_folder.Path(name).c_str(), access, share, nullptr, disposition,
                           FILE_ATTRIBUTE_NORMAL, nullptr);
    }

    std::string PathOf(const std::string& name) const { return m_folder.Path(name); }

    ScratchFolder m_folder;
};

constexpr DWORD kBoth = GENERIC_READ | GENERIC_WRITE;

TEST_F(WinapiFiles, DispositionsOnMissingAndExistingFiles)
{
    const struct {
        const char* label;
        bool exists;
        DWORD disposition, access;
        bool opens;
        DWORD error;
        const char* content;
    } rows[] = {
        {"create new", false, CREATE_NEW, kBoth, true, 0, ""},
        {"create new, taken", true, CREATE_NEW, kBoth, false, ERROR_FILE_EXISTS, "old"},
        {"create always", false, CREATE_ALWAYS, kBoth, true, 0, ""},
        {"create always, taken", true, CREATE_ALWAYS, kBoth, true, ERROR_ALREADY_EXISTS, ""},
        {"create always, reading", true, CREATE_ALWAYS, GENERIC_READ, true, ERROR_ALREADY_EXISTS, ""},
        {"open existing, missing", false, OPEN_EXISTING, kBoth, false, ERROR_FILE_NOT_FOUND, ""},
        {"open existing", true, OPEN_EXISTING, kBoth, true, 0, "old"},
        {"open always", false, OPEN_ALWAYS, kBoth, true, 0, ""},
        {"open always, taken", true, OPEN_ALWAYS, kBoth, true, ERROR_ALREADY_EXISTS, "old"},
        {"truncate, missing", false, TRUNCATE_EXISTING, GENERIC_WRITE, false, ERROR_FILE_NOT_FOUND, ""},
        {"truncate", true, TRUNCATE_EXISTING, GENERIC_WRITE, true, 0, ""},
        {"no such disposition", true, 6, kBoth, false, ERROR_INVALID_PARAMETER, "old"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        DeleteFileA(PathOf("f").c_str());
        if (row.exists)
            WriteWholeFile(PathOf("f"), "old");
        const HANDLE file = Open("f", row.access, row.disposition);
        EXPECT_EQ(GetLastError(), row.error);
        EXPECT_EQ(file != INVALID_HANDLE_VALUE, row.opens);
        if (row.opens) {
            EXPECT_TRUE(CloseHandle(file));
        }
        EXPECT_EQ(ReadWholeFile(PathOf("f")), row.content);
    }
}

TEST_F(WinapiFiles, OpeningWhatIsNoFile)
{
    CreateDirectoryA(PathOf("dir").c_str(), nullptr);
    WriteWholeFile(PathOf("plain"), "x");
    const struct {
        const char* label;
        std::string name;
        DWORD disposition, error;
    } rows[] = {
        {"folder", PathOf("dir"), OPEN_EXISTING, ERROR_ACCESS_DENIED},
        {"folder, create always", PathOf("dir"), CREATE_ALWAYS, ERROR_ACCESS_DENIED},
        {"in a missing folder", PathOf("none/f"), CREATE_ALWAYS, ERROR_PATH_NOT_FOUND},
        {"below a file", PathOf("plain/f"), CREATE_ALWAYS, ERROR_PATH_NOT_FOUND},
        {"empty name", "", OPEN_EXISTING, ERROR_PATH_NOT_FOUND},
        {"wild card", PathOf("a") + "\\" + "..\\*", OPEN_EXISTING, ERROR_INVALID_NAME},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        SetLastError(0xdead);
        EXPECT_EQ(CreateFileA(row.name.c_str(), kBoth, 0, nullptr, row.disposition, 0, nullptr),
                  INVALID_HANDLE_VALUE);
        EXPECT_EQ(GetLastError(), row.error);
    }
}

TEST_F(WinapiFiles, ReadsWhatWasWritten)
{
    const HANDLE file = Open("f", kBoth, CREATE_ALWAYS);
    DWORD done = 99;
    EXPECT_TRUE(WriteFile(file, "hello world", 11, &done, nullptr));
    EXPECT_EQ(done, 11u);
    EXPECT_TRUE(WriteFile(file, "", 0, &done, nullptr));
    EXPECT_EQ(done, 0u);
    EXPECT_EQ(SetFilePointer(file, 6, nullptr, FILE_BEGIN), 6u);
    char buffer[16];
    std::memset(buffer, '#', sizeof buffer);
    EXPECT_TRUE(ReadFile(file, buffer, 10, &done, nullptr));
    EXPECT_EQ(done, 5u);
    EXPECT_EQ(std::string(buffer, 6), "world#");
    EXPECT_TRUE(ReadFile(file, buffer, 10, &done, nullptr)) << "the end of a file is no error";
    EXPECT_EQ(done, 0u);
    EXPECT_TRUE(FlushFileBuffers(file));
    EXPECT_TRUE(CloseHandle(file));
}

TEST_F(WinapiFiles, AccessIsHeld)
{
    WriteWholeFile(PathOf("f"), "text");
    char byte = 'x';
    DWORD done = 7;
    HANDLE file = Open("f", GENERIC_READ, OPEN_EXISTING);
    EXPECT_FALSE(WriteFile(file, &byte, 1, &done, nullptr));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_ACCESS_DENIED));
    EXPECT_EQ(done, 0u);
    EXPECT_FALSE(SetEndOfFile(file));
    CloseHandle(file);
    file = Open("f", GENERIC_WRITE, OPEN_EXISTING);
    EXPECT_FALSE(ReadFile(file, &byte, 1, &done, nullptr));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_ACCESS_DENIED));
    CloseHandle(file);
    EXPECT_EQ(ReadWholeFile(PathOf("f")), "text");
}

TEST_F(WinapiFiles, PositionsAndTheirRefusals)
{
    const HANDLE file = Open("f", kBoth, CREATE_ALWAYS);
    DWORD done;
    WriteFile(file, "0123456789", 10, &done, nullptr);
    const struct {
        const char* label;
        LONG distance;
        DWORD method, answer, error;
    } rows[] = {
        {"from the start", 4, FILE_BEGIN, 4, 0},
        {"forward", 3, FILE_CURRENT, 7, 0},
        {"backward", -5, FILE_CURRENT, 2, 0},
        {"from the end", -1, FILE_END, 9, 0},
        {"beyond the end", 100, FILE_END, 110, 0},
        {"before the start", -1, FILE_BEGIN, INVALID_SET_FILE_POINTER, ERROR_NEGATIVE_SEEK},
        {"far before", -200, FILE_CURRENT, INVALID_SET_FILE_POINTER, ERROR_NEGATIVE_SEEK},
        {"where it was", 0, FILE_CURRENT, 110, 0},
        {"no such method", 0, 3, INVALID_SET_FILE_POINTER, ERROR_INVALID_PARAMETER},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        SetLastError(0);
        EXPECT_EQ(SetFilePointer(file, row.distance, nullptr, row.method), row.answer);
        EXPECT_EQ(GetLastError(), row.error);
    }
    CloseHandle(file);
}

TEST_F(WinapiFiles, PositionsBeyondFourGigabytes)
{
    const HANDLE file = Open("f", kBoth, CREATE_ALWAYS);
    LONG high = 1;
    EXPECT_EQ(SetFilePointer(file, 5, &high, FILE_BEGIN), 5u);
    EXPECT_EQ(high, 1);
    LARGE_INTEGER zero{}, position;
    EXPECT_TRUE(SetFilePointerEx(file, zero, &position, FILE_CURRENT));
    EXPECT_EQ(position.QuadPart, (LONGLONG{1} << 32) + 5);
    high = -1;
    EXPECT_EQ(SetFilePointer(file, -6, &high, FILE_CURRENT), 0xffffffffu);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(NO_ERROR)) << "a low half that looks like a failure";
    EXPECT_EQ(high, 0);
    CloseHandle(file);
}

TEST_F(WinapiFiles, EndOfFileCutsAndExtends)
{
    WriteWholeFile(PathOf("f"), "0123456789");
    const HANDLE file = Open("f", kBoth, OPEN_EXISTING);
    SetFilePointer(file, 3, nullptr, FILE_BEGIN);
    EXPECT_TRUE(SetEndOfFile(file));
    LARGE_INTEGER size;
    EXPECT_TRUE(GetFileSizeEx(file, &size));
    EXPECT_EQ(size.QuadPart, 3);
    SetFilePointer(file, 5, nullptr, FILE_BEGIN);
    EXPECT_TRUE(SetEndOfFile(file));
    DWORD high = 9;
    EXPECT_EQ(GetFileSize(file, &high), 5u);
    EXPECT_EQ(high, 0u);
    CloseHandle(file);
    EXPECT_EQ(ReadWholeFile(PathOf("f")), std::string("012\0\0", 5));
}

TEST_F(WinapiFiles, WrongHandlesAreFoundOut)
{
    const HANDLE closed = Open("f", kBoth, CREATE_ALWAYS);
    CloseHandle(closed);
    for (const HANDLE wrong : {static_cast<HANDLE>(nullptr), closed, reinterpret_cast<HANDLE>(0x7ffff4)}) {
        char byte;
        DWORD done;
        LARGE_INTEGER size;
        FILETIME time;
        const bool results[] = {ReadFile(wrong, &byte, 1, &done, nullptr) != 0,
                                WriteFile(wrong, "x", 1, &done, nullptr) != 0,
                                SetFilePointer(wrong, 0, nullptr, FILE_BEGIN) != INVALID_SET_FILE_POINTER,
                                SetEndOfFile(wrong) != 0,
                                FlushFileBuffers(wrong) != 0,
                                GetFileSizeEx(wrong, &size) != 0,
                                LockFile(wrong, 0, 0, 1, 0) != 0,
                                GetFileTime(wrong, &time, nullptr, nullptr) != 0,
                                CloseHandle(wrong) != 0};
        for (const bool result : results)
            EXPECT_FALSE(result);
        SetLastError(0);
        CloseHandle(wrong);
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_HANDLE));
    }
}

TEST_F(WinapiFiles, ShareModes)
{
    const struct {
        const char* label;
        DWORD access1, share1, access2, share2;
        bool opens;
    } rows[] = {
        {"readers share reading", GENERIC_READ, FILE_SHARE_READ, GENERIC_READ, FILE_SHARE_READ, true},
        {"first is exclusive", GENERIC_READ, 0, GENERIC_READ, FILE_SHARE_READ, false},
        {"second wants to be exclusive", GENERIC_READ, FILE_SHARE_READ, GENERIC_READ, 0, false},
        {"writer refused", GENERIC_READ, FILE_SHARE_READ, GENERIC_WRITE, FILE_SHARE_READ, false},
        {"writer allowed", GENERIC_READ, FILE_SHARE_WRITE, GENERIC_WRITE, FILE_SHARE_READ, true},
        {"reader beside a writer, not shared", GENERIC_WRITE, FILE_SHARE_READ, GENERIC_READ, FILE_SHARE_READ,
         false},
        {"reader beside a writer", GENERIC_WRITE, FILE_SHARE_READ, GENERIC_READ, FILE_SHARE_WRITE, true},
        {"attributes only", kBoth, 0, 0, 0, true},
    };
    WriteWholeFile(PathOf("f"), "x");
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        const HANDLE first = Open("f", row.access1, OPEN_EXISTING, row.share1);
        const HANDLE second = Open("f", row.access2, OPEN_EXISTING, row.share2);
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(row.opens ? 0 : ERROR_SHARING_VIOLATION));
        EXPECT_EQ(second != INVALID_HANDLE_VALUE, row.opens);
        if (second != INVALID_HANDLE_VALUE)
            CloseHandle(second);
        CloseHandle(first);
    }
}

TEST_F(WinapiFiles, ARefusedOpenLeavesTheFileAlone)
{
    WriteWholeFile(PathOf("f"), "content");
    const HANDLE first = Open("f", GENERIC_READ, OPEN_EXISTING, FILE_SHARE_READ);
    EXPECT_EQ(Open("f", kBoth, CREATE_ALWAYS), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_SHARING_VIOLATION));
    CloseHandle(first);
    EXPECT_EQ(ReadWholeFile(PathOf("f")), "content");
}

TEST_F(WinapiFiles, LocksKeepOtherHandlesOut)
{
    WriteWholeFile(PathOf("f"), "0123456789");
    constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE;
    const HANDLE owner = Open("f", kBoth, OPEN_EXISTING, kShared),
                 other = Open("f", kBoth, OPEN_EXISTING, kShared);
    EXPECT_TRUE(LockFile(owner, 4, 0, 2, 0));
    EXPECT_FALSE(LockFile(other, 5, 0, 3, 0));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_LOCK_VIOLATION));
    EXPECT_TRUE(LockFile(other, 6, 0, 3, 0)) << "next to it";
    char buffer[4];
    DWORD done;
    SetFilePointer(owner, 4, nullptr, FILE_BEGIN);
    EXPECT_TRUE(ReadFile(owner, buffer, 2, &done, nullptr)) << "the owner may";
    EXPECT_FALSE(UnlockFile(owner, 4, 0, 1, 0)) << "not the range that was locked";
    EXPECT_TRUE(UnlockFile(owner, 4, 0, 2, 0));
    EXPECT_TRUE(LockFile(other, 4, 0, 1, 0)) << "free again";
    CloseHandle(other);
    CloseHandle(owner);
}

TEST_F(WinapiFiles, ADuplicateSharesThePosition)
{
    WriteWholeFile(PathOf("f"), "0123456789");
    const HANDLE file = Open("f", GENERIC_READ, OPEN_EXISTING);
    HANDLE twin = nullptr;
    ASSERT_TRUE(DuplicateHandle(GetCurrentProcess(), file, GetCurrentProcess(), &twin, 0, FALSE,
                                DUPLICATE_SAME_ACCESS));
    SetFilePointer(file, 7, nullptr, FILE_BEGIN);
    EXPECT_TRUE(CloseHandle(file));
    char buffer[4] = "";
    DWORD done;
    EXPECT_TRUE(ReadFile(twin, buffer, 3, &done, nullptr));
    EXPECT_STREQ(buffer, "789");
    CloseHandle(twin);
    const HANDLE exclusive = Open("f", kBoth, OPEN_EXISTING);
    EXPECT_NE(exclusive, INVALID_HANDLE_VALUE) << "the last handle closed the file";
    CloseHandle(exclusive);
}

TEST_F(WinapiFiles, DeletingAndReplacingRespectOpenFiles)
{
    WriteWholeFile(PathOf("f"), "x");
    WriteWholeFile(PathOf("g"), "y");
    const HANDLE open = Open("f", GENERIC_READ, OPEN_EXISTING, FILE_SHARE_READ);
    EXPECT_FALSE(DeleteFileA(PathOf("f").c_str()));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_SHARING_VIOLATION));
    EXPECT_FALSE(MoveFileA(PathOf("f").c_str(), PathOf("h").c_str()));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_SHARING_VIOLATION));
    CloseHandle(open);

    EXPECT_TRUE(MoveFileExA(PathOf("g").c_str(), PathOf("f").c_str(), MOVEFILE_REPLACE_EXISTING));
    EXPECT_EQ(ReadWholeFile(PathOf("f")), "y");
    EXPECT_TRUE(DeleteFileA(PathOf("f").c_str()));
    EXPECT_FALSE(DeleteFileA(PathOf("f").c_str()));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
}

TEST_F(WinapiFiles, MovingAndCopying)
{
    WriteWholeFile(PathOf("a"), "first");
    WriteWholeFile(PathOf("b"), "second");
    EXPECT_FALSE(MoveFileA(PathOf("a").c_str(), PathOf("b").c_str()));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_ALREADY_EXISTS));
    EXPECT_FALSE(CopyFileA(PathOf("a").c_str(), PathOf("b").c_str(), TRUE));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_FILE_EXISTS));
    EXPECT_TRUE(CopyFileA(PathOf("a").c_str(), PathOf("b").c_str(), FALSE));
    EXPECT_EQ(ReadWholeFile(PathOf("b")), "first");
    EXPECT_FALSE(MoveFileA(PathOf("none").c_str(), PathOf("c").c_str()));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
}

TEST_F(WinapiFiles, Folders)
{
    const std::string folder = PathOf("dir");
    EXPECT_TRUE(CreateDirectoryA(folder.c_str(), nullptr));
    EXPECT_FALSE(CreateDirectoryA(folder.c_str(), nullptr));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_ALREADY_EXISTS));
    EXPECT_FALSE(CreateDirectoryA(PathOf("none/dir").c_str(), nullptr));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_PATH_NOT_FOUND));
    EXPECT_EQ(GetFileAttributesA(folder.c_str()) & FILE_ATTRIBUTE_DIRECTORY, FILE_ATTRIBUTE_DIRECTORY);
    EXPECT_EQ(GetFileAttributesA((folder + "\\").c_str()) & FILE_ATTRIBUTE_DIRECTORY,
              FILE_ATTRIBUTE_DIRECTORY);
    EXPECT_FALSE(DeleteFileA(folder.c_str()));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_ACCESS_DENIED));
    WriteWholeFile(folder + "/f", "x");
    EXPECT_FALSE(RemoveDirectoryA(folder.c_str()));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_DIR_NOT_EMPTY));
    EXPECT_FALSE(RemoveDirectoryA((folder + "\\f").c_str()));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_DIRECTORY));
    DeleteFileA((folder + "\\f").c_str());
    EXPECT_TRUE(RemoveDirectoryA(folder.c_str()));
    EXPECT_EQ(GetFileAttributesA(folder.c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
}

TEST_F(WinapiFiles, AttributesAndTimesAreKept)
{
    WriteWholeFile(PathOf("f"), "x");
    EXPECT_EQ(GetFileAttributesA(PathOf("f").c_str()), FILE_ATTRIBUTE_ARCHIVE);
    const DWORD sets[] = {FILE_ATTRIBUTE_READONLY, FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_ARCHIVE,
                          FILE_ATTRIBUTE_ARCHIVE};
    for (const DWORD set : sets) {
        SCOPED_TRACE(set);
        EXPECT_TRUE(SetFileAttributesA(PathOf("f").c_str(), set));
        EXPECT_EQ(GetFileAttributesA(PathOf("f").c_str()) & FILE_ATTRIBUTE_READONLY,
                  set & FILE_ATTRIBUTE_READONLY);
    }
    const SYSTEMTIME moment{2001, 2, 0, 3, 4, 5, 6, 0};
    FILETIME set, accessed, written;
    ASSERT_TRUE(SystemTimeToFileTime(&moment, &set));
    HANDLE file = Open("f", kBoth, OPEN_EXISTING);
    EXPECT_TRUE(SetFileTime(file, nullptr, &set, &set));
    EXPECT_TRUE(GetFileTime(file, nullptr, &accessed, &written));
    EXPECT_EQ(CompareFileTime(&set, &written), 0);
    EXPECT_EQ(CompareFileTime(&set, &accessed), 0);
    EXPECT_TRUE(SetFileTime(file, nullptr, nullptr, nullptr)) << "nothing to set";
    BY_HANDLE_FILE_INFORMATION info;
    EXPECT_TRUE(GetFileInformationByHandle(file, &info));
    EXPECT_EQ(CompareFileTime(&set, &info.ftLastWriteTime), 0);
    EXPECT_EQ(info.nFileSizeLow, 1u);
    EXPECT_EQ(info.nNumberOfLinks, 1u);
    EXPECT_EQ(GetFileType(file), static_cast<DWORD>(FILE_TYPE_DISK));
    CloseHandle(file);
}

TEST_F(WinapiFiles, SearchesMatchAsMasksDo)
{
    for (const char* name : {"alpha.TXT", "beta.txt", "gamma", "delta.txt.bak"})
        WriteWholeFile(PathOf(name), "x");
    const struct {
        const char* mask;
        std::vector<std::string> names;
    } rows[] = {
        {"*.txt", {"alpha.TXT", "beta.txt"}},
        {"*.*", {".", "..", "alpha.TXT", "beta.txt", "delta.txt.bak", "gamma"}},
        {"*", {".", "..", "alpha.TXT", "beta.txt", "delta.txt.bak", "gamma"}},
        {"GAMMA", {"gamma"}},
        {"?eta.txt", {"beta.txt"}},
        {"*a*a*", {"alpha.TXT", "delta.txt.bak", "gamma"}},
        {"*.b?k", {"delta.txt.bak"}},
        {"none*", {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.mask);
        std::vector<std::string> names;
        WIN32_FIND_DATAA data;
        const HANDLE find = FindFirstFileA((PathOf("") + "\\" + row.mask).c_str(), &data);
        if (find == INVALID_HANDLE_VALUE) {
            EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
        } else {
            do
                names.emplace_back(data.cFileName);
            while (FindNextFileA(find, &data));
            EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_NO_MORE_FILES));
            EXPECT_TRUE(FindClose(find));
        }
        std::sort(names.begin(), names.end());
        EXPECT_EQ(names, row.names);
    }
}

TEST_F(WinapiFiles, TemporaryNames)
{
    char name[MAX_PATH], again[MAX_PATH];
    const std::string folder = m_folder.Path();
    const UINT number = GetTempFileNameA(folder.c_str(), "prefix", 0, name);
    EXPECT_NE(number, 0u);
    EXPECT_EQ(GetFileAttributesA(name) & FILE_ATTRIBUTE_DIRECTORY, 0u) << "the file is made";
    EXPECT_NE(std::string(name).find("pre"), std::string::npos);
    EXPECT_NE(GetTempFileNameA(folder.c_str(), "prefix", 0, again), 0u);
    EXPECT_STRNE(name, again);
    EXPECT_EQ(GetTempFileNameA(folder.c_str(), "zz", 0x12ab, name), 0x12abu);
    EXPECT_EQ(std::string(name).substr(std::string(name).size() - 10), "zz12ab.tmp");
    EXPECT_EQ(GetFileAttributesA(name), INVALID_FILE_ATTRIBUTES) << "a given number makes no file";
    EXPECT_EQ(GetTempFileNameA(PathOf("none").c_str(), "zz", 0, name), 0u);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_DIRECTORY));
}

} // namespace
