#include "package/WorkbookPackage.h"

#include "FailingCalls.h"
#include "Scratch.h"
#include "package/SaveError.h"
#include "package/ZipReader.h"
#include "spreadsheet/model/Workbook.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <limits>

using namespace zek::office;
namespace fs = std::filesystem;

namespace {

class WorkbookPackageTest : public testing::Test
{
protected:
    ScratchFolder m_folder;
    std::string m_path = m_folder.Path("book.xlsx");
    Workbook m_book;
    Sheet& m_sheet = m_book.AddSheet("Data");

    void PutText(std::uint32_t row, std::uint32_t column, const std::string& text)
    {
        m_sheet.SetText(row, column, m_book.Texts().Intern(text));
    }

    void PutFormat(std::uint32_t row, std::uint32_t column, const Format& format)
    {
        m_sheet.SetFormat(Block::Cell(row, column), m_book.Formats().Intern(format));
    }

    std::string SavedPart(const std::string& part)
    {
        SaveWorkbook(m_book, m_path);
        const std::string bytes = ReadWholeFile(m_path);
        MemoryBytes memory(bytes);
        ZipReader zip(memory);
        return zip.Has(part) ? zip.Read(part) : "";
    }

    int CodeOfSave(FileCalls& calls)
    {
        try {
            SaveWorkbook(m_book, m_path, calls);
        } catch (const SaveError& error) {
            return error.Code();
        }
        return 0;
    }

    std::size_t Files() const
    {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(m_folder.Path()), fs::directory_iterator()));
    }
};

// The text between the first `from` and the next `to` behind it.
std::string Between(const std::string& text, const std::string& from, const std::string& to)
{
    const std::size_t start = text.find(from);
    const std::size_t end = text.find(to, start);
    return start == std::string::npos || end == std::string::npos
               ? "nothing"
               : text.substr(start + from.size(), end - start - from.size());
}

TEST_F(WorkbookPackageTest, WritesValues)
{
    m_sheet.SetNumber(0, 0, 1.5);
    m_sheet.SetNumber(0, 1, std::numeric_limits<double>::quiet_NaN());
    m_sheet.SetNumber(0, 2, -std::numeric_limits<double>::infinity());
    PutText(1, 0, "b");
    PutText(1, 1, "a");
    PutText(1, 2, "b");
    m_sheet.SetBoolean(2, 0, true);
    m_sheet.SetError(2, 1, CellError::NotAvailable);
    m_sheet.SetFormula(2, 2, {"A1<2", true});
    m_sheet.SetFormula(2, 3, {"A1", {}});
    m_sheet.SetFormula(kRowCount - 1, kColumnCount - 1, {"A1/0", 1.0 / 0.0});
    const std::string sheet = SavedPart("xl/worksheets/sheet1.xml");
    EXPECT_EQ(Between(sheet, "<sheetData>", "</sheetData>"),
              "<row r=\"1\"><c r=\"A1\"><v>1.5</v></c><c r=\"B1\" t=\"e\"><v>#NUM!</v></c>"
              "<c r=\"C1\" t=\"e\"><v>#NUM!</v></c></row>"
              "<row r=\"2\"><c r=\"A2\" t=\"s\"><v>0</v></c><c r=\"B2\" t=\"s\"><v>1</v></c>"
              "<c r=\"C2\" t=\"s\"><v>0</v></c></row>"
              "<row r=\"3\"><c r=\"A3\" t=\"b\"><v>1</v></c><c r=\"B3\" t=\"e\"><v>#N/A</v></c>"
              "<c r=\"C3\" t=\"b\"><f>A1&lt;2</f><v>1</v></c><c r=\"D3\"><f>A1</f></c></row>"
              "<row r=\"1048576\"><c r=\"XFD1048576\" t=\"e\"><f>A1/0</f><v>#NUM!</v></c></row>");
    EXPECT_EQ(Between(SavedPart("xl/sharedStrings.xml"), "main\"", "</sst>"),
              " count=\"3\" uniqueCount=\"2\"><si><t>b</t></si><si><t>a</t></si>");
}

// Texts that were overwritten must not travel with the file.
TEST_F(WorkbookPackageTest, WritesOnlyWhatCellsHold)
{
    PutText(0, 0, "secret");
    m_sheet.SetNumber(0, 0, 1);
    EXPECT_EQ(SavedPart("xl/sharedStrings.xml"), "");
    EXPECT_EQ(SavedPart("[Content_Types].xml").find("sharedStrings"), std::string::npos);
    PutText(0, 1, "seen");
    EXPECT_EQ(SavedPart("xl/sharedStrings.xml").find("secret"), std::string::npos);
}

TEST_F(WorkbookPackageTest, EqualFormatsAreOne)
{
    Format bold;
    bold.font = m_book.Formats().At(kDefaultFormat).font;
    bold.font.bold = true;
    for (std::uint32_t row = 0; row < 3; ++row)
        PutFormat(row, 0, bold);
    bold.font.italic = true; // only passed through, no cell keeps it
    PutFormat(3, 0, bold);
    PutFormat(3, 0, m_book.Formats().At(kDefaultFormat));
    const std::string styles = SavedPart("xl/styles.xml");
    EXPECT_EQ(Between(styles, "<cellXfs ", "</cellXfs>"),
              "count=\"2\"><xf numFmtId=\"0\" fontId=\"0\" fillId=\"0\" borderId=\"0\" xfId=\"0\"/>"
              "<xf numFmtId=\"0\" fontId=\"1\" fillId=\"0\" borderId=\"0\" xfId=\"0\" applyFont=\"1\"/>");
    EXPECT_EQ(styles.find("<i/>"), std::string::npos);
}

TEST_F(WorkbookPackageTest, StyleIsTheBaseOfItsFormats)
{
    Format format = m_book.Styles()[kNormalStyle].format;
    format.font.bold = true;
    const StyleId style = m_book.AddStyle("<Head>", format);
    m_sheet.SetFormat(Block::Cell(0, 0), m_book.StyleFormat(style));
    const std::string styles = SavedPart("xl/styles.xml");
    EXPECT_EQ(Between(styles, "<cellStyles ", "</cellStyles>"),
              "count=\"2\"><cellStyle name=\"Normal\" xfId=\"0\" builtinId=\"0\"/>"
              "<cellStyle name=\"&lt;Head&gt;\" xfId=\"1\"/>");
    EXPECT_NE(styles.find("borderId=\"0\" xfId=\"1\"/>"), std::string::npos);
}

TEST_F(WorkbookPackageTest, EndingTellsTheKindOfWorkbook)
{
    const struct {
        const char *ending, *type;
    } rows[] = {{".xlsx", "spreadsheetml.sheet.main+xml"},
                {".XLSM", "ms-excel.sheet.macroEnabled.main+xml"},
                {".xltx", "spreadsheetml.template.main+xml"},
                {".xls", "spreadsheetml.sheet.main+xml"}};
    for (const auto& row : rows) {
        m_path = m_folder.Path(std::string("book") + row.ending);
        EXPECT_NE(SavedPart("[Content_Types].xml").find(row.type), std::string::npos) << row.ending;
    }
}

TEST_F(WorkbookPackageTest, TheLongestTextIsStoredALongerOneRefused)
{
    const std::string longest(kMaxCellText - 1, 'x');
    PutText(0, 0, longest + "\xEB\xB3\xB4");
    EXPECT_NE(SavedPart("xl/sharedStrings.xml").find(longest + "\xEB\xB3\xB4<"), std::string::npos);
    const std::string before = ReadWholeFile(m_path);
    PutText(0, 0, longest + "\xF0\x9F\x98\x80");
    EXPECT_EQ(CodeOfSave(SystemFileCalls()), EINVAL);
    EXPECT_EQ(ReadWholeFile(m_path), before);
    EXPECT_EQ(Files(), 1u);
}

TEST_F(WorkbookPackageTest, EveryFailingCallIsReported)
{
    PutText(0, 0, "text");
    SaveWorkbook(m_book, m_path);
    const std::string old = ReadWholeFile(m_path);
    PutText(1, 0, "more");
    for (int at = 1;; ++at) {
        FailingCalls calls;
        calls.at = at;
        calls.longestWrite = 100;
        const int code = CodeOfSave(calls);
        SCOPED_TRACE(testing::Message() << "call " << at << ", " << calls.failedName);
        if (calls.failedName.empty()) {
            EXPECT_GT(at, 60);
            break;
        }
        EXPECT_TRUE(calls.open.empty());
        EXPECT_EQ(Files(), 1u);
        // A failing close of what is already safe, or of a file that was only looked at, is no failure.
        EXPECT_TRUE(code == ENOSPC || calls.failedName == "close") << code;
        EXPECT_EQ(ReadWholeFile(m_path) == old, code != 0);
        if (code == 0)
            WriteWholeFile(m_path, old);
    }
}

// A disk that keeps something else than it was given.
class ForgetfulCalls : public FileCalls
{
public:
    int changed = 0; // number of the write whose middle byte is changed
    int writes = 0;

    ssize_t WriteAt(int file, const void* data, std::size_t size, off_t offset) override
    {
        std::string bytes(static_cast<const char*>(data), size);
        if (++writes == changed)
            bytes[size / 2] = static_cast<char>(bytes[size / 2] ^ 0x55);
        return FileCalls::WriteAt(file, bytes.data(), size, offset);
    }
};

TEST_F(WorkbookPackageTest, WhatDoesNotReadBackIsNotSaved)
{
    WriteWholeFile(m_path, "old");
    ForgetfulCalls counting;
    ASSERT_EQ(CodeOfSave(counting), 0);
    const std::string good = ReadWholeFile(m_path);
    int refused = 0;
    for (int changed = 1; changed <= counting.writes; ++changed) {
        WriteWholeFile(m_path, "old");
        ForgetfulCalls calls;
        calls.changed = changed;
        const int code = CodeOfSave(calls);
        EXPECT_EQ(ReadWholeFile(m_path), code == 0 ? good : "old") << changed;
        refused += code == EIO;
    }
    // Headers that are written a second time heal the first one.
    EXPECT_GE(refused, counting.writes / 2);
}

} // namespace
