#include <afx.h>

#include "Scratch.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

// The cause of the CFileException that `work` throws; none when it throws nothing.
template <class WORK>
int CauseOf(WORK work)
{
    try {
        work();
    } catch (CFileException* e) {
        const int cause = e->m_cause;
        e->Delete();
        return cause;
    }
    return CFileException::none;
}

std::string ReadAll(CFile& file)
{
    std::string content(static_cast<std::size_t>(file.GetLength()) + 10, '#');
    file.SeekToBegin();
    content.resize(file.Read(content.data(), static_cast<UINT>(content.size())));
    return content;
}

class CFileTest : public testing::Test
{
protected:
    std::string Path(const char* name) const { return m_folder.Path(name); }

    ScratchFolder m_folder;
};

} // namespace

TEST_F(CFileTest, OpensAsTheFlagsSay)
{
    const struct {
        const char* label;
        bool there;
        UINT flags;
        int cause;
        const char* content; // of the file afterwards
    } kRows[] = {
        {"read what is missing", false, CFile::modeRead, CFileException::fileNotFound, ""},
        {"write what is missing", false, CFile::modeWrite, CFileException::fileNotFound, ""},
        {"create", false, CFile::modeCreate | CFile::modeWrite, CFileException::none, ""},
        {"create over", true, CFile::modeCreate | CFile::modeWrite, CFileException::none, ""},
        {"create and keep", true, CFile::modeCreate | CFile::modeNoTruncate | CFile::modeReadWrite,
         CFileException::none, "old"},
        {"keep what is missing", false, CFile::modeCreate | CFile::modeNoTruncate | CFile::modeWrite,
         CFileException::none, ""},
        {"read", true, CFile::modeRead | CFile::shareDenyWrite, CFileException::none, "old"},
        {"read and write", true, CFile::modeReadWrite | CFile::shareDenyNone, CFileException::none, "old"},
        {"hints", true, CFile::modeRead | CFile::osSequentialScan | CFile::modeNoInherit,
         CFileException::none, "old"},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        const std::string path = Path(row.label);
        if (row.there)
            WriteWholeFile(path, "old");
        CFileException error(FALSE);
        CFile file;
        EXPECT_EQ(row.cause == CFileException::none, file.Open(path.c_str(), row.flags, &error) != FALSE);
        EXPECT_EQ(row.cause, error.m_cause);
        EXPECT_EQ(row.cause == CFileException::none, file.m_hFile != CFile::hFileNull);
        EXPECT_STREQ(row.cause != CFileException::none ? path.c_str() : "", error.m_strFileName);
        file.Close();
        EXPECT_EQ(row.content, ReadWholeFile(path));
        EXPECT_EQ(row.cause, CauseOf([&] { CFile again(path.c_str(), row.flags); }));
    }
}

TEST_F(CFileTest, ReadsAndWritesWhereItStands)
{
    CFile file(Path("data").c_str(), CFile::modeCreate | CFile::modeReadWrite);
    file.Write("0123456789", 10);
    EXPECT_EQ(10U, file.GetPosition());
    EXPECT_EQ(4U, file.Seek(4, CFile::begin));
    char part[4] = "###";
    EXPECT_EQ(2U, file.Read(part, 2));
    EXPECT_STREQ("45#", part);
    EXPECT_EQ(8U, file.Seek(2, CFile::current));
    EXPECT_EQ(2U, file.Read(part, 3));
    EXPECT_EQ(0U, file.Read(part, 3));
    EXPECT_EQ(0U, file.Read(part, 0));
    EXPECT_EQ(7U, file.Seek(-3, CFile::end));
    file.Write("xyz+", 4);
    file.Write(nullptr, 0);
    EXPECT_EQ(11U, file.GetLength());
    EXPECT_EQ("0123456xyz+", ReadAll(file));
    EXPECT_EQ(CFileException::badSeek, CauseOf([&] { file.Seek(-1, CFile::begin); }));
    file.SetLength(3);
    EXPECT_EQ(3U, file.GetPosition());
    file.Seek(5, CFile::begin);
    file.Write("!", 1);
    EXPECT_EQ(std::string("012\0\0!", 6), ReadAll(file));
    file.Flush();
    file.Close();
    file.Close();
}

TEST_F(CFileTest, DuplicatesShareThePosition)
{
    WriteWholeFile(Path("data"), "abcdef");
    CFile file(Path("data").c_str(), CFile::modeRead);
    const std::unique_ptr<CFile> copy(file.Duplicate());
    file.Seek(2, CFile::begin);
    EXPECT_EQ(2U, copy->GetPosition());
    file.Close();
    char part[3] = {};
    EXPECT_EQ(2U, copy->Read(part, 2));
    EXPECT_STREQ("cd", part);
}

TEST_F(CFileTest, ClosesWhenItGoes)
{
    const std::string path = Path("data");
    {
        const CFile file(path.c_str(), CFile::modeCreate | CFile::modeWrite | CFile::shareExclusive);
    }
    CFile file(path.c_str(), CFile::modeRead);
    file.Open(path.c_str(), CFile::modeRead);
    file.Abort();
    file.Abort();
    EXPECT_NO_THROW(CFile::Remove(path.c_str()));
}

TEST_F(CFileTest, ThrowsForAClosedFile)
{
    CFile file;
    char byte = 0;
    EXPECT_NE(CFileException::none, CauseOf([&] { file.Read(&byte, 1); }));
    EXPECT_NE(CFileException::none, CauseOf([&] { file.Write(&byte, 1); }));
    EXPECT_NE(CFileException::none, CauseOf([&] { file.Seek(0, CFile::begin); }));
    EXPECT_NE(CFileException::none, CauseOf([&] { file.GetLength(); }));
}

TEST_F(CFileTest, TellsNamesAndStatus)
{
    const std::string path = Path("model.part.inp");
    CFile file(path.c_str(), CFile::modeCreate | CFile::modeWrite);
    file.Write("12345", 5);
    EXPECT_STREQ("model.part.inp", file.GetFileName());
    EXPECT_STREQ("model.part", file.GetFileTitle());
    file.Close();
    EXPECT_STREQ("", file.GetFilePath());
    CFileStatus status;
    EXPECT_FALSE(file.GetStatus(status));
    EXPECT_FALSE(CFile::GetStatus(Path("missing").c_str(), status));
    EXPECT_FALSE(CFile::GetStatus(Path("*").c_str(), status));
    ASSERT_TRUE(CFile::GetStatus(path.c_str(), status));
    EXPECT_EQ(5U, status.m_size);
    EXPECT_EQ(0U, status.m_attribute & CFile::directory);
    status.m_mtime = CTime(2001, 2, 3, 4, 5, 6);
    status.m_ctime = status.m_atime = CTime();
    status.m_attribute = CFile::readOnly;
    CFile::SetStatus(path.c_str(), status);
    CFileStatus changed;
    ASSERT_TRUE(CFile::GetStatus(path.c_str(), changed));
    EXPECT_EQ(status.m_mtime.GetTime(), changed.m_mtime.GetTime());
    EXPECT_NE(0U, changed.m_attribute & CFile::readOnly);
    changed.m_attribute = CFile::normal;
    CFile::SetStatus(path.c_str(), changed);
    ASSERT_TRUE(CFile::GetStatus(m_folder.Path().c_str(), status));
    EXPECT_NE(0U, status.m_attribute & CFile::directory);
}

TEST_F(CFileTest, RenamesAndRemoves)
{
    const std::string from = Path("from"), to = Path("to");
    WriteWholeFile(from, "x");
    CFile::Rename(from.c_str(), to.c_str());
    EXPECT_EQ("x", ReadWholeFile(to));
    EXPECT_EQ(CFileException::fileNotFound, CauseOf([&] { CFile::Rename(from.c_str(), to.c_str()); }));
    CFile::Remove(to.c_str());
    EXPECT_EQ(CFileException::fileNotFound, CauseOf([&] { CFile::Remove(to.c_str()); }));
}

TEST_F(CFileTest, MemoryFileWorksLikeOneOnDisk)
{
    CMemFile memory;
    CFile disk(Path("disk").c_str(), CFile::modeCreate | CFile::modeReadWrite);
    for (CFile* file : {static_cast<CFile*>(&memory), &disk}) {
        file->Write("hello", 5);
        file->Seek(8, CFile::begin);
        file->Write("x", 1);
        file->Seek(-5, CFile::current);
        file->Write("LO", 2);
        EXPECT_EQ(6U, file->GetPosition());
        EXPECT_EQ(CFileException::badSeek, CauseOf([&] { file->Seek(-20, CFile::end); }));
        file->SetLength(7);
        file->SetLength(8);
        EXPECT_EQ(8U, file->GetPosition());
        EXPECT_EQ(std::string("hellLO\0\0", 8), ReadAll(*file));
    }
}

// ---- text files

TEST_F(CFileTest, TextFileHasCrLfOnDisk)
{
    const std::string path = Path("text");
    CStdioFile file(path.c_str(), CFile::modeCreate | CFile::modeWrite);
    file.WriteString("one\n");
    file.WriteString("two\r\nthree");
    file.Write("\n\n", 2);
    EXPECT_EQ(20U, file.GetPosition());
    EXPECT_EQ(20U, file.GetLength());
    file.Close();
    EXPECT_EQ("one\r\ntwo\r\r\nthree\r\n\r\n", ReadWholeFile(path));
    CStdioFile binary(path.c_str(), CFile::modeCreate | CFile::modeWrite | CFile::typeBinary);
    binary.WriteString("one\n");
    binary.Close();
    EXPECT_EQ("one\n", ReadWholeFile(path));
}

TEST_F(CFileTest, TextFileReadsLines)
{
    const struct {
        const char* label;
        UINT type;
        std::string content;
        std::vector<std::string> lines;
    } kRows[] = {
        {"CR LF", CFile::typeText, "a\r\nb\r\n", {"a", "b"}},
        {"LF", CFile::typeText, "a\nb\n", {"a", "b"}},
        {"no end", CFile::typeText, "a\r\nb", {"a", "b"}},
        {"empty lines", CFile::typeText, "\r\n\r\n", {"", ""}},
        {"CR alone", CFile::typeText, "a\rb\r\n", {"a\rb"}},
        {"CR at the end", CFile::typeText, "a\r", {"a\r"}},
        {"Ctrl-Z",
         CFile::typeText,
         "a\r\nb\x1A"
         "c\r\n",
         {"a", "b"}},
        {"nothing", CFile::typeText, "", {}},
        {"binary", CFile::typeBinary, "a\r\nb\x1A\n", {"a\r", "b\x1A"}},
        {"CR LF across two blocks",
         CFile::typeText,
         std::string(8191, 'x') + "\r\ny",
         {std::string(8191, 'x'), "y"}},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        const std::string path = Path(row.label);
        WriteWholeFile(path, row.content);
        CStdioFile file(path.c_str(), CFile::modeRead | row.type);
        std::vector<std::string> lines;
        CString line;
        while (file.ReadString(line))
            lines.emplace_back(line.GetString());
        EXPECT_EQ(row.lines, lines);
        EXPECT_STREQ("", line);
    }
}

TEST_F(CFileTest, TextFileReadsIntoABuffer)
{
    WriteWholeFile(Path("text"), "abcdef\r\ng");
    CStdioFile file(Path("text").c_str(), CFile::modeRead);
    char part[6] = "#####";
    EXPECT_STREQ("abc", file.ReadString(part, 4));
    EXPECT_EQ('#', part[4]);
    EXPECT_STREQ("def\n", file.ReadString(part, 6));
    EXPECT_STREQ("g", file.ReadString(part, 6));
    EXPECT_EQ(nullptr, file.ReadString(part, 6));
    EXPECT_EQ(nullptr, file.ReadString(part, 0));
}

TEST_F(CFileTest, TextFileSeeksAmongReadsAndWrites)
{
    CStdioFile file(Path("text").c_str(), CFile::modeCreate | CFile::modeReadWrite | CFile::shareDenyNone);
    file.WriteString("first\nsecond\nthird\n");
    file.SeekToBegin();
    CString line;
    file.ReadString(line);
    const ULONGLONG second = file.GetPosition();
    EXPECT_EQ(7U, second);
    file.ReadString(line);
    file.WriteString("THIRD");
    file.Seek(static_cast<LONGLONG>(second), CFile::begin);
    file.ReadString(line);
    EXPECT_STREQ("second", line);
    file.ReadString(line);
    EXPECT_STREQ("THIRD", line);
    file.Flush();
    EXPECT_EQ("first\r\nsecond\r\nTHIRD\r\n", ReadWholeFile(Path("text")));
    file.SetLength(5);
    EXPECT_FALSE(file.ReadString(line));
    EXPECT_EQ(5U, file.GetLength());
}
