#include <TextFile.h>
#include <afxwin.h>

#include "Scratch.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace {

// Counts the boxes that would be shown.
class BoxApp : public CWinApp
{
public:
    int DoMessageBox(LPCSTR text, UINT style, UINT helpContext) override
    {
        ++m_boxes;
        m_text = text;
        m_style = style | helpContext;
        return IDOK;
    }

    int m_boxes = 0;
    UINT m_style = 0;
    CString m_text;
};

class TextFileProbe : public CTextFile
{
public:
    using CTextFile::ReadRemainingLine;
    LONG Position() const { return m_nPosition; }
};

// A file in memory whose k-th operation fails: that one alone, or all from there on.
class FaultyFile : public CMemFile
{
public:
    explicit FaultyFile(const std::string& content)
    {
        CMemFile::Write(content.data(), static_cast<UINT>(content.size()));
        CMemFile::Seek(0, begin);
    }
    void FailAt(int operation, bool sticky)
    {
        m_operations = 0;
        m_failAt = operation;
        m_sticky = sticky;
    }
    int Operations() const { return m_operations; }
    std::string Content() const
    {
        return {reinterpret_cast<const char*>(GetBufferPtr()), static_cast<std::size_t>(GetLength())};
    }

    UINT Read(void* buffer, UINT count) override
    {
        Count();
        return CMemFile::Read(buffer, count);
    }
    void Write(const void* buffer, UINT count) override
    {
        Count();
        CMemFile::Write(buffer, count);
    }
    ULONGLONG Seek(LONGLONG offset, UINT from) override
    {
        Count();
        return CMemFile::Seek(offset, from);
    }
    void SetLength(ULONGLONG length) override
    {
        Count();
        CMemFile::SetLength(length);
    }

private:
    void Count()
    {
        ++m_operations;
        if (m_operations == m_failAt || (m_sticky && m_failAt > 0 && m_operations > m_failAt))
            AfxThrowFileException(CFileException::diskFull, -1, "part of the model");
    }

    int m_operations = 0;
    int m_failAt = 0;
    bool m_sticky = false;
};

// What a text file does, written down on a string.
struct Model {
    std::string content;
    std::size_t position = 0;
    int line = 1;

    int Read(std::string& text)
    {
        if (position >= content.size())
            return -1;
        const std::string block = content.substr(position, 1023);
        const std::size_t end = content.find('\n', position);
        const bool isShort = block.find('\n') != std::string::npos;
        const std::size_t length = (end == std::string::npos ? content.size() : end) - position;
        text = content.substr(position, isShort && length > 0 ? length - 1 : length);
        text = text.c_str(); // a zero byte ends the text
        position += length + 1;
        ++line;
        return 0;
    }
    int Save(const std::string& text)
    {
        content.resize(position);
        content += text + "\r\n";
        position = content.size();
        ++line;
        return 1;
    }
    int Back()
    {
        if (position == 0)
            return -1;
        const std::size_t end = position < 2 ? std::string::npos : content.rfind('\n', position - 2);
        position = end == std::string::npos ? 0 : end + 1;
        --line;
        return 0;
    }
};

std::string RandomLine(std::mt19937& random)
{
    const std::string kPieces[] = {"", "x", "\r", "abc", std::string("z\0y", 3), "long"};
    std::string line = kPieces[random() % 6];
    if (line == "long")
        line.assign(1020 + random() % (random() % 2 ? 6 : 3100), 'L');
    return line;
}

std::string RandomContent(std::mt19937& random)
{
    std::string content;
    for (int lines = static_cast<int>(random() % 5); lines > 0; --lines)
        content += RandomLine(random) + (random() % 3 ? "\r\n" : "\n");
    if (random() % 3 == 0)
        content += RandomLine(random);
    return content;
}

std::string Plain(const CString& text)
{
    return {text.GetString(), static_cast<std::size_t>(text.GetLength())};
}

} // namespace

TEST(CTextFile, ReadsLines)
{
    const std::string longest(1022, 'a'), longer(1023, 'a'), distant(3000, 'b');
    const struct {
        const char* label;
        std::string content;
        std::vector<std::string> lines;
    } kRows[] = {
        {"CR LF", "A\r\nB\r\n", {"A", "B"}},
        {"bare LF loses a character", "A\nB\n", {"", ""}},
        {"bare LF, longer lines", "Abc\nDef\n", {"Ab", "De"}},
        {"LF first in the block", "\nA\r\n", {"", "A"}},
        {"empty lines", "\r\n\r\n", {"", ""}},
        {"last line open", "A\r\nBC", {"A", "BC"}},
        {"last line open after CR", "A\r\nB\r", {"A", "B\r"}},
        {"nothing", "", {}},
        {"zero byte", std::string("A\0B\r\nC\r\n", 8), {"A", "C"}},
        {"zero byte in a long line", std::string("A\0B", 3) + distant + "\r\nC\r\n", {"A", "C"}},
        {"zero byte far in a long line", distant + std::string("\0B\r\nC\r\n", 7), {distant, "C"}},
        {"newline last in the block", longest.substr(1) + "\r\nB\r\n", {longest.substr(1), "B"}},
        {"newline first behind the block", longest + "\r\nB\r\n", {longest + "\r", "B"}},
        {"block full of text", longer + "\r\nB\r\n", {longer + "\r", "B"}},
        {"long line keeps its CR", distant + "\r\nB\r\n", {distant + "\r", "B"}},
        {"long open line", distant, {distant}},
        {"several blocks", distant + distant + distant + "\n", {distant + distant + distant}},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        FaultyFile file(row.content);
        CTextFile text;
        EXPECT_EQ(1, text.GetLineNo());
        text.AttachFile(&file);
        CString line;
        LONG number = 1;
        for (const std::string& expected : row.lines) {
            EXPECT_EQ(number++, text.GetLineNo());
            EXPECT_EQ(0, text.ReadString(line));
            EXPECT_EQ(expected, Plain(line));
        }
        line = "untouched";
        EXPECT_EQ(-1, text.ReadString(line));
        EXPECT_EQ(-1, text.SkipLine());
        EXPECT_STREQ("untouched", line);
        EXPECT_EQ(number, text.GetLineNo());
    }
}

TEST(CTextFile, WorksOnAFileOnDisk)
{
    const ScratchFolder folder;
    const std::string path = folder.Path("lines.txt");
    {
        CFile file(path.c_str(), CFile::modeCreate | CFile::modeReadWrite);
        CTextFile text;
        text.AttachFile(&file);
        CString line("first");
        EXPECT_EQ(1, text.SaveString(line));
        EXPECT_STREQ("first", line);
        line = "second";
        text.SaveString(line);
        line = "third";
        text.SaveString(line);
        EXPECT_EQ(4, text.GetLineNo());
        EXPECT_EQ(1, text.Rewind());
        EXPECT_EQ(0, text.SkipLine());
        EXPECT_EQ(0, text.SkipLine());
        EXPECT_EQ(0, text.Backspace());
        EXPECT_EQ(2, text.GetLineNo());
        EXPECT_EQ(0, text.ReadString(line));
        EXPECT_STREQ("second", line);
        EXPECT_EQ(0, text.Backspace());
        line = "2";
        text.SaveString(line);
        text.DetachFile();
        EXPECT_EQ(10U, file.GetLength());
    }
    EXPECT_EQ("first\r\n2\r\n", ReadWholeFile(path));
}

TEST(CTextFile, StepsBackToTheBeginningAndNoFurther)
{
    FaultyFile file("A\r\nB");
    TextFileProbe text;
    text.AttachFile(&file);
    EXPECT_EQ(-1, text.Backspace());
    text.SkipLine();
    text.SkipLine();
    EXPECT_EQ(5, text.Position()); // the open line counts the end that it does not have
    EXPECT_EQ(0, text.Backspace());
    EXPECT_EQ(3, text.Position());
    EXPECT_EQ(0, text.Backspace());
    EXPECT_EQ(0, text.Position());
    EXPECT_EQ(1, text.GetLineNo());
    EXPECT_EQ(-1, text.Backspace());
    text.SkipLine();
    EXPECT_EQ(1, text.Clear());
    EXPECT_EQ(1, text.GetLineNo());
    EXPECT_EQ("", file.Content());
}

TEST(CTextFile, CopiesShareTheFile)
{
    FaultyFile file("A\r\nB\r\n");
    CTextFile text;
    text.AttachFile(&file);
    text.SkipLine();
    CTextFile copy(text), assigned;
    assigned = text;
    CString line;
    EXPECT_EQ(0, copy.ReadString(line));
    EXPECT_STREQ("B", line);
    EXPECT_EQ(3, copy.GetLineNo());
    EXPECT_EQ(2, assigned.GetLineNo());
    EXPECT_EQ(0, assigned.Backspace());
    EXPECT_EQ(0, assigned.ReadString(line));
    EXPECT_STREQ("A", line);
}

TEST(CTextFile, WithoutAFileDoesNothing)
{
    CTextFile text;
    CString line("untouched");
    EXPECT_EQ(-1, text.ReadString(line));
    EXPECT_EQ(-1, text.SkipLine());
    EXPECT_EQ(-1, text.Backspace());
    EXPECT_EQ(1, text.SaveString(line));
    EXPECT_EQ(1, text.Rewind());
    EXPECT_EQ(1, text.Clear());
    EXPECT_STREQ("untouched", line);
}

TEST(CTextFile, ReadsTheRestOfALine)
{
    const std::string distant(5000, 'b');
    FaultyFile file(distant + "\r\nC");
    TextFileProbe text;
    text.AttachFile(&file);
    CString rest("old");
    EXPECT_EQ(5002, text.ReadRemainingLine(rest));
    EXPECT_EQ(distant + "\r", Plain(rest));
    file.CMemFile::Seek(5002, CFile::begin);
    EXPECT_EQ(2, text.ReadRemainingLine(rest));
    EXPECT_STREQ("C", rest);
    EXPECT_EQ(1, text.ReadRemainingLine(rest));
    EXPECT_STREQ("", rest);
}

// Random sequences of operations against the model.
TEST(CTextFile, DoesWhatTheModelDoes)
{
    constexpr unsigned kSeed = 20250917;
    constexpr int kSequences = 20000;
    SCOPED_TRACE(kSeed);
    std::mt19937 random(kSeed);
    for (int sequence = 0; sequence < kSequences; ++sequence) {
        Model model{RandomContent(random)};
        FaultyFile file(model.content);
        TextFileProbe text;
        text.AttachFile(&file);
        for (int step = 0; step < 12; ++step) {
            CString line;
            std::string expected, saved;
            switch (random() % 8) {
            case 0:
                saved = RandomLine(random);
                line = CString(saved.data(), static_cast<int>(saved.size()));
                ASSERT_EQ(model.Save(saved), text.SaveString(line));
                break;
            case 1:
            case 2:
                ASSERT_EQ(model.Back(), text.Backspace());
                break;
            case 3:
                text.Rewind();
                model.position = 0;
                model.line = 1;
                break;
            case 4:
                ASSERT_EQ(model.Read(expected), text.SkipLine());
                break;
            default:
                ASSERT_EQ(model.Read(expected), text.ReadString(line));
                ASSERT_EQ(expected, Plain(line));
            }
            ASSERT_EQ(static_cast<LONG>(model.position), text.Position()) << "sequence " << sequence;
            ASSERT_EQ(model.line, text.GetLineNo());
            ASSERT_EQ(model.content, file.Content());
        }
    }
}

// Each operation of the file fails in turn, once and for good.
TEST(CTextFile, AnswersFileErrorsWithOneBox)
{
    const std::string distant(5000, 'b');
    const struct {
        const char* label;
        std::string content;
        int skipped; // lines read before
        int (*call)(CTextFile& text);
    } kRows[] = {
        {"short line", "A\r\nBC\r\n", 1, [](CTextFile& t) { return t.SkipLine(); }},
        {"long line", "A\r\n" + distant + "\r\n", 1, [](CTextFile& t) { return t.SkipLine(); }},
        {"back over a short line", "A\r\nBC\r\n", 2, [](CTextFile& t) { return t.Backspace(); }},
        {"back over a long line", "A\r\n" + distant + "\r\n", 2, [](CTextFile& t) { return t.Backspace(); }},
        {"back to the beginning", distant + "\r\n", 1, [](CTextFile& t) { return t.Backspace(); }},
        {"saving", "A\r\nBC\r\n", 1,
         [](CTextFile& t) {
             CString line("saved");
             return t.SaveString(line) == 1 ? 0 : 2;
         }},
    };
    for (const auto& row : kRows) {
        FaultyFile whole(row.content);
        TextFileProbe success;
        success.AttachFile(&whole);
        for (int i = 0; i < row.skipped; ++i)
            success.SkipLine();
        const LONG before = success.Position();
        whole.FailAt(0, false);
        ASSERT_EQ(0, row.call(success));
        const int operations = whole.Operations();
        ASSERT_GE(operations, 2);
        for (int k = 1; k <= 2 * operations; ++k) {
            const int failing = (k + 1) / 2;
            SCOPED_TRACE(std::string(row.label) + ", operation " + std::to_string(failing));
            BoxApp app;
            FaultyFile file(row.content);
            TextFileProbe text;
            text.AttachFile(&file);
            for (int i = 0; i < row.skipped; ++i)
                text.SkipLine();
            const LONG line = text.GetLineNo();
            file.FailAt(failing, k % 2 == 0);
            EXPECT_EQ(std::string(row.label) == "saving" ? 0 : 1, row.call(text));
            EXPECT_EQ(1, app.m_boxes);
            EXPECT_EQ(0U, app.m_style);
            EXPECT_NE(-1, app.m_text.Find("part of the model"));
            EXPECT_EQ(line, text.GetLineNo());
            EXPECT_EQ(failing == operations ? success.Position() : before, text.Position());
        }
    }
}

TEST(CTextFile, AnswersAPositionBeyondItsRangeWithABox)
{
    // Says that it holds zero bytes only, distant more than a position can count.
    class Endless : public CMemFile
    {
    public:
        UINT Read(void* buffer, UINT count) override
        {
            std::memset(buffer, 0, count);
            m_total += count;
            return count;
        }
        LONGLONG m_total = 0;
    };
    BoxApp app;
    Endless file;
    TextFileProbe text;
    text.AttachFile(&file);
    EXPECT_EQ(1, text.SkipLine());
    EXPECT_EQ(1, app.m_boxes);
    EXPECT_EQ(0, text.Position());
    EXPECT_LT(file.m_total, LONGLONG{std::numeric_limits<LONG>::max()} + 10000);
}
