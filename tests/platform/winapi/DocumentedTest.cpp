// What Windows documents and the Wine that runs the other tests does not hold to.
#include "Scratch.h"

#include <gtest/gtest.h>
#include <mbctype.h>
#include <mbstring.h>
#include <windows.h>

#include <string>

namespace {

constexpr DWORD kBoth = GENERIC_READ | GENERIC_WRITE;

class DocumentedFiles : public testing::Test
{
protected:
    HANDLE Open(DWORD access, DWORD disposition, DWORD share = FILE_SHARE_READ | FILE_SHARE_WRITE)
    {
        SetLastError(0xdead);
        return CreateFileA(m_path.c_str(), access, share, nullptr, disposition, 0, nullptr);
    }

    void ExpectError(long code) const { EXPECT_EQ(GetLastError(), static_cast<DWORD>(code)); }

    ScratchFolder m_folder;
    std::string m_path = m_folder.Path("f");
};

TEST_F(DocumentedFiles, ReadOnlyFilesAreNotWrittenEvenByTheSuperuser)
{
    WriteWholeFile(m_path, "kept");
    ASSERT_TRUE(SetFileAttributesA(m_path.c_str(), FILE_ATTRIBUTE_READONLY));
    for (const DWORD disposition : {CREATE_ALWAYS, OPEN_EXISTING, OPEN_ALWAYS, TRUNCATE_EXISTING}) {
        SCOPED_TRACE(disposition);
        EXPECT_EQ(Open(kBoth, disposition), INVALID_HANDLE_VALUE);
        ExpectError(ERROR_ACCESS_DENIED);
    }
    EXPECT_FALSE(DeleteFileA(m_path.c_str()));
    ExpectError(ERROR_ACCESS_DENIED);
    const std::string other = m_folder.Path("g");
    WriteWholeFile(other, "new");
    EXPECT_FALSE(MoveFileExA(other.c_str(), m_path.c_str(), MOVEFILE_REPLACE_EXISTING));
    ExpectError(ERROR_ACCESS_DENIED);
    EXPECT_FALSE(CopyFileA(other.c_str(), m_path.c_str(), FALSE));
    ExpectError(ERROR_ACCESS_DENIED);
    EXPECT_EQ(ReadWholeFile(m_path), "kept");
    EXPECT_TRUE(SetFileAttributesA(m_path.c_str(), FILE_ATTRIBUTE_NORMAL));
    EXPECT_TRUE(DeleteFileA(m_path.c_str()));
}

TEST_F(DocumentedFiles, TruncatingAsksForWriting)
{
    WriteWholeFile(m_path, "kept");
    EXPECT_EQ(Open(GENERIC_READ, TRUNCATE_EXISTING), INVALID_HANDLE_VALUE);
    ExpectError(ERROR_INVALID_PARAMETER);
    const HANDLE file = Open(GENERIC_READ, OPEN_EXISTING);
    EXPECT_FALSE(SetEndOfFile(file));
    ExpectError(ERROR_ACCESS_DENIED);
    CloseHandle(file);
    EXPECT_EQ(ReadWholeFile(m_path), "kept");
}

TEST_F(DocumentedFiles, APositionThatDoesNotFitTheAnswerFails)
{
    const HANDLE file = Open(kBoth, CREATE_ALWAYS);
    LONG high = 1;
    SetFilePointer(file, 5, &high, FILE_BEGIN);
    EXPECT_EQ(SetFilePointer(file, 0, nullptr, FILE_CURRENT), INVALID_SET_FILE_POINTER);
    ExpectError(ERROR_INVALID_PARAMETER);
    LARGE_INTEGER zero{}, position;
    SetFilePointerEx(file, zero, &position, FILE_CURRENT);
    EXPECT_EQ(position.QuadPart, (LONGLONG{1} << 32) + 5) << "nothing has moved";
    CloseHandle(file);
}

TEST_F(DocumentedFiles, LocksStopOtherHandlesFromReadingAndWriting)
{
    WriteWholeFile(m_path, "0123456789");
    const HANDLE owner = Open(kBoth, OPEN_EXISTING), other = Open(kBoth, OPEN_EXISTING);
    ASSERT_TRUE(LockFile(owner, 4, 0, 2, 0));
    char buffer[4];
    DWORD done;
    SetFilePointer(other, 3, nullptr, FILE_BEGIN);
    EXPECT_TRUE(ReadFile(other, buffer, 1, &done, nullptr)) << "before it";
    EXPECT_FALSE(ReadFile(other, buffer, 1, &done, nullptr));
    ExpectError(ERROR_LOCK_VIOLATION);
    EXPECT_FALSE(WriteFile(other, "x", 1, &done, nullptr));
    ExpectError(ERROR_LOCK_VIOLATION);
    SetFilePointer(other, 6, nullptr, FILE_BEGIN);
    EXPECT_TRUE(WriteFile(other, "x", 1, &done, nullptr)) << "behind it";
    EXPECT_FALSE(UnlockFile(owner, 4, 0, 1, 0));
    ExpectError(ERROR_NOT_LOCKED);
    CloseHandle(owner);
    SetFilePointer(other, 4, nullptr, FILE_BEGIN);
    EXPECT_TRUE(WriteFile(other, "x", 1, &done, nullptr)) << "closing unlocks";
    CloseHandle(other);
}

TEST_F(DocumentedFiles, ARenameMayChangeNothingButCase)
{
    WriteWholeFile(m_path, "x");
    ASSERT_TRUE(MoveFileA(m_path.c_str(), m_folder.Path("F").c_str()));
    WIN32_FIND_DATAA data;
    const HANDLE find = FindFirstFileA(m_path.c_str(), &data);
    ASSERT_NE(find, INVALID_HANDLE_VALUE);
    EXPECT_STREQ(data.cFileName, "F");
    FindClose(find);
}

TEST_F(DocumentedFiles, HiddenAndCreationTimeAreKeptWhereTheFileSystemCan)
{
    WriteWholeFile(m_path, "x");
    if (!SetFileAttributesA(m_path.c_str(), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM)) {
        ExpectError(ERROR_NOT_SUPPORTED);
        return;
    }
    EXPECT_EQ(GetFileAttributesA(m_path.c_str()), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
    EXPECT_TRUE(SetFileAttributesA(m_path.c_str(), FILE_ATTRIBUTE_NORMAL));
    EXPECT_EQ(GetFileAttributesA(m_path.c_str()), FILE_ATTRIBUTE_NORMAL);
    const FILETIME set{1234, 30000000};
    FILETIME created;
    const HANDLE file = Open(kBoth, OPEN_EXISTING);
    EXPECT_TRUE(SetFileTime(file, &set, nullptr, nullptr));
    EXPECT_TRUE(GetFileTime(file, &created, nullptr, nullptr));
    EXPECT_EQ(CompareFileTime(&created, &set), 0);
    CloseHandle(file);
}

TEST(DocumentedTime, LeapDaysOfOtherYearsAreRefused)
{
    for (const WORD year : {WORD{2001}, WORD{1900}, WORD{2100}}) {
        const SYSTEMTIME date{year, 2, 0, 29, 0, 0, 0, 0};
        FILETIME time;
        EXPECT_FALSE(SystemTimeToFileTime(&date, &time)) << year;
    }
}

TEST(DocumentedText, Utf8TakesFewFlagsAndNoDefault)
{
    WCHAR wide[8];
    char bytes[8];
    BOOL used;
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, MB_PRECOMPOSED, "a", 1, wide, 8), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_FLAGS));
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, u"a", 1, bytes, 8, "?", nullptr), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, u"a", 1, bytes, 8, nullptr, &used), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
}

TEST(DocumentedText, SearchesStepByCharacters)
{
    const int before = _getmbcp();
    ASSERT_EQ(_setmbcp(932), 0);
    const auto* text = reinterpret_cast<const unsigned char*>("x\x83\x5c\\z");
    EXPECT_EQ(_mbsstr(text, reinterpret_cast<const unsigned char*>("\\")), text + 3);
    EXPECT_EQ(_mbscspn(text, reinterpret_cast<const unsigned char*>("\\z")), 3u);
    _setmbcp(before);
}

} // namespace
