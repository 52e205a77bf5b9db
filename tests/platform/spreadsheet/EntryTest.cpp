// What texts mean that are entered, and what references mean.
#include "spreadsheet/Entry.h"
#include "spreadsheet/model/Reference.h"

#include <gtest/gtest.h>

using namespace zek::office;

TEST(Entry, IsReadAsTyped)
{
    const struct {
        const char* text;
        CellKind kind;
        double number;
        const char* format; // or what the text becomes
    } rows[] = {
        {"", CellKind::Empty, 0, ""},
        {"123", CellKind::Number, 123, ""},
        {" 12 ", CellKind::Number, 12, ""},
        {"-1.5e3", CellKind::Number, -1500, "0.00E+00"},
        {".5", CellKind::Number, 0.5, ""},
        {"+7", CellKind::Number, 7, ""},
        {"(7)", CellKind::Number, -7, ""},
        {"1,234", CellKind::Number, 1234, "#,##0"},
        {"1,234.5", CellKind::Number, 1234.5, "#,##0.00"},
        {"12%", CellKind::Number, 0.12, "0%"},
        {"12.5%", CellKind::Number, 0.125, "0.00%"},
        {"$5", CellKind::Number, 5, "$#,##0_);[Red]($#,##0)"},
        {"1e-400", CellKind::Number, 0, "0.00E+00"},
        {"2024-05-31", CellKind::Number, 45443, "m/d/yyyy"},
        {"5/31/2024", CellKind::Number, 45443, "m/d/yyyy"},
        {"2024-05-31 12:00", CellKind::Number, 45443.5, "m/d/yyyy h:mm"},
        {"6:00", CellKind::Number, 0.25, "h:mm"},
        {"6:00 PM", CellKind::Number, 0.75, "h:mm AM/PM"},
        {"1,23", CellKind::Text, 0, "1,23"},
        {"1e400", CellKind::Text, 0, "1e400"},
        {"1-3", CellKind::Text, 0, "1-3"},
        {"1to5", CellKind::Text, 0, "1to5"},
        {"2024-02-30", CellKind::Text, 0, "2024-02-30"},
        {"13:75", CellKind::Text, 0, "13:75"},
        {"inf", CellKind::Text, 0, "inf"},
        {"nan", CellKind::Text, 0, "nan"},
        {"0x10", CellKind::Text, 0, "0x10"},
        {"-", CellKind::Text, 0, "-"},
        {"=", CellKind::Text, 0, "="},
        {"'123", CellKind::Text, 0, "123"},
        {"=A1+1", CellKind::Formula, 0, "A1+1"},
        {"true", CellKind::Boolean, 1, ""},
        {"False", CellKind::Boolean, 0, ""},
        {"#n/a", CellKind::Error, 6, ""},
        {"#none", CellKind::Text, 0, "#none"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        const Entry entry = ParseEntry(row.text);
        ASSERT_EQ(entry.kind, row.kind);
        if (row.kind == CellKind::Text || row.kind == CellKind::Formula) {
            EXPECT_EQ(entry.text, row.format);
        } else {
            EXPECT_STREQ(entry.format ? entry.format : "", row.format);
        }
        const double number = row.kind == CellKind::Boolean ? entry.boolean
                              : row.kind == CellKind::Error ? static_cast<int>(entry.error)
                                                            : entry.number;
        EXPECT_DOUBLE_EQ(number, row.number);
    }
}

TEST(Reference, IsReadAndWritten)
{
    const struct {
        const char* text;
        const char* block; // "" when it is none
    } rows[] = {
        {"A1", "$A$1"},
        {"b3", "$B$3"},
        {"$B$3", "$B$3"},
        {"C4:A1", "$A$1:$C$4"},
        {"3:5", "$3:$5"},
        {"$B:D", "$B:$D"},
        {"XFD1048576", "$XFD$1048576"},
        {"XFE1", ""},
        {"A1048577", ""},
        {"A0", ""},
        {"1", ""},
        {"A", ""},
        {"A1:", ""},
        {"", ""},
        {"A1B", ""},
        {"A:3", ""},
        {"AAAA1", ""},
        {"A1:B", ""},
        {"$", ""},
        {"A01", ""},
        {"99999999999:1", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        AreaReference area;
        const std::string_view text = row.text;
        const char* const end = text.data() + text.size();
        const bool good = ParseArea(text.data(), end, area) == end;
        ASSERT_EQ(good, *row.block != '\0');
        if (good) {
            EXPECT_EQ(BlockText(area.ToBlock()), row.block);
        }
    }
    EXPECT_EQ(SheetPrefix("Data"), "Data!");
    EXPECT_EQ(SheetPrefix("it's"), "'it''s'!");
    EXPECT_EQ(SheetPrefix("A1"), "'A1'!");
    EXPECT_EQ(SheetPrefix("2nd"), "'2nd'!");
}
