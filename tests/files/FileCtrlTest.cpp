#include "FileCtrl.h"
#include "MultibytePage.h"
#include "Scratch.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>

namespace {

TEST(FileCtrl, TakesAPathApartAndTogether)
{
    const struct {
        int page;
        const char *path, *folder, *name, *extension, *whole;
    } rows[] = {
        {0, "C:\\A\\b.tar.gz", "C:\\A\\", "b.tar", "gz", "C:\\A\\b.tar.gz"},
        {0, "readme", "", "readme", "", "readme"},
        {0, "C:\\A\\", "C:\\A\\", "", "", "C:\\A\\"},
        {0, "C:\\A.b\\c", "C:\\A.b\\", "c", "", "C:\\A.b\\c"},
        {0, ".profile", "", "", "profile", ".profile"},
        {0, "C:\\x.", "C:\\", "x", "", "C:\\x"},
        {0, "a/b.c/d", "", "a/b", "c/d", "a/b.c/d"},
        {0, "\\\\server\\share\\f.txt", "\\\\server\\share\\", "f", "txt", "\\\\server\\share\\f.txt"},
        {0, "\\", "\\", "", "", "\\"},
        {0, ".", "", "", "", ""},
        {0, "", "", "", "", ""},
        {0, nullptr, "", "", "", ""},
        // A double-byte character whose second byte is a backslash: the folder's last letter, the name's
        // first.
        {932, "C:\\\x83\x5C\\\x95\x5C.txt", "C:\\\x83\x5C\\", "\x95\x5C", "txt",
         "C:\\\x83\x5C\\\x95\x5C.txt"},
        {949, "C:\\\xB0\xA1.\xB3\xAA", "C:\\", "\xB0\xA1", "\xB3\xAA", "C:\\\xB0\xA1.\xB3\xAA"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.path ? row.path : "null");
        const MultibytePage page(row.page);
        CFileCtrl file(row.path);
        const std::string name = row.name, dotted = *row.extension ? std::string(".") + row.extension : "";
        EXPECT_EQ(file.GetFilePath(), row.folder);
        EXPECT_EQ(file.GetFileName(), row.name);
        EXPECT_EQ(file.GetFileExt(), row.extension);
        EXPECT_EQ(file.GetFilePathName(), (row.folder + name).c_str());
        EXPECT_EQ(file.GetFileNameExt(), (name + dotted).c_str());
        EXPECT_EQ(file.GetFilePathNameExt(), row.whole);
    }
}

TEST(FileCtrl, ANewPathLeavesNothingOfTheLastOne)
{
    CFileCtrl file("C:\\A\\b.txt"), copy(file), assigned;
    assigned = file;
    file.SetFilePathNameExt("c");
    EXPECT_EQ(file.GetFilePathNameExt(), "c");
    EXPECT_EQ(copy.GetFilePathNameExt(), "C:\\A\\b.txt");
    EXPECT_EQ(assigned.GetFilePathNameExt(), "C:\\A\\b.txt");
}

TEST(FileCtrl, ShortensToAnumberOfCharacters)
{
    static constexpr char kPath[] = "C:\\A\\B\\C\\file.txt"; // 17
    const struct {
        const char* path;
        int length;
        const char* form;
    } rows[] = {
        {kPath, 100, kPath},
        {kPath, 17, kPath},
        {kPath, 16, "C:\\...\\file.txt"},
        {"C:\\Alpha\\B\\C\\file.txt", 20, "C:\\...\\B\\C\\file.txt"},
        {"C:\\Alpha\\B\\C\\file.txt", 19, "C:\\...\\B\\C\\file.txt"},
        {"C:\\Alpha\\B\\C\\file.txt", 18, "C:\\...\\C\\file.txt"},
        {"C:\\Alpha\\B\\C\\file.txt", 16, "C:\\...\\file.txt"},
        {"C:\\Alpha\\B\\C\\file.txt", 15, "C:\\...\\file.txt"},
        {"C:\\Alpha\\B\\C\\file.txt", 14, "file.txt"},
        {"C:\\Alpha\\B\\C\\file.txt", 0, "file.txt"},
        {"C:\\Alpha\\B\\C\\file.txt", -1, "file.txt"},
        {"C:\\file.txt", 11, "C:\\file.txt"},
        {"C:\\file.txt", 10, "file.txt"},
        {"file.txt", 3, "file.txt"},
        {"C:\\A\\Beta\\", 9, "C:\\...\\"},
        {"C:\\A\\", 4, ""},
        {"\\\\server\\share\\f", 15, "\\...\\share\\f"},
        {"", 0, ""},
        {"", -1, ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.path << ' ' << row.length);
        EXPECT_EQ(CFileCtrl(row.path).GetAbbPathNameExt(row.length), row.form);
    }
}

TEST(FileCtrl, ShorteningCutsNoCharacterApart)
{
    const MultibytePage page(932);
    CFileCtrl file("C:\\\x83\x5C\x83\x5C\x83\x5C\\\x95\x5C\\f.txt");
    EXPECT_EQ(file.GetAbbPathNameExt(17), "C:\\...\\\x95\x5C\\f.txt");
    EXPECT_EQ(file.GetAbbPathNameExt(14), "C:\\...\\f.txt");
    EXPECT_EQ(file.GetAbbPathNameExt(11), "f.txt");
}

TEST(FileCtrl, AsksTheDisk)
{
    const ScratchFolder folder;
    WriteWholeFile(folder.Path("deck.inp"), "12345");
    std::string path = folder.Path("deck.inp");
    std::replace(path.begin(), path.end(), '/', '\\');
    CFileCtrl file(path.c_str());
    CFileStatus status;
    EXPECT_NE(file.FileExists(), 0);
    ASSERT_NE(file.GetFileStatus(status), 0);
    EXPECT_EQ(status.m_size, 5);
    for (const std::string& missing : {std::string(), path + "x", folder.Path("no\\deck.inp")}) {
        SCOPED_TRACE(missing);
        file.SetFilePathNameExt(missing.c_str());
        EXPECT_EQ(file.FileExists(), 0);
        EXPECT_EQ(file.GetFileStatus(status), 0);
    }
    EXPECT_EQ(CFileCtrl().FileExists(), 0);
}

} // namespace
