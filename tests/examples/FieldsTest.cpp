#include <ElementType.h>
#include <Fields.h>
#include <NumberFormat.h>
#include <Paths.h>
#include <TextLines.h>

#include <gtest/gtest.h>

TEST(Fields, NumbersAsFortranWritesThem)
{
    struct Row {
        const char* text;
        bool accepted;
        double value;
    };
    const Row rows[] = {
        {"1", true, 1},        {"-1.5", true, -1.5}, {"+2.", true, 2},        {".5", true, .5},
        {"1.D-3", true, 1e-3}, {"1d+2", true, 100},  {"2.5-3", true, 2.5e-3}, {"-2.5+3", true, -2500},
        {"1E5", true, 1e5},    {" 3 ", true, 3},     {"", true, 0},           {"  ", true, 0},
        {"1e-400", true, 0},   {"1.D-400", true, 0}, {"1e400", false, 0},     {"x", false, 0},
        {"1,5", false, 0},     {"1 5", false, 0},    {"0x10", false, 0},      {"nan", false, 0},
        {"inf", false, 0},     {"-", false, 0},      {"+-1", false, 0},       {"1..2", false, 0},
        {"1e", false, 0},      {"1.5.", false, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        double value = 77;
        EXPECT_EQ(ParseNumber(row.text, value), row.accepted);
        EXPECT_DOUBLE_EQ(value, row.accepted ? row.value : 77);
    }
}

TEST(Fields, IntegersOf31Bits)
{
    struct Row {
        const char* text;
        bool accepted;
        LONG value;
    };
    const Row rows[] = {
        {"12", true, 12},         {" +7 ", true, 7}, {"-3", true, -3},
        {"007", true, 7},         {"", false, 0},    {"2147483647", true, 2147483647},
        {"2147483648", false, 0}, {"1.0", false, 0}, {"1e3", false, 0},
        {"12a", false, 0},        {"1 2", false, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        LONG value = 77;
        EXPECT_EQ(ParseInteger(row.text, value), row.accepted);
        EXPECT_EQ(value, row.accepted ? row.value : 77);
    }
}

TEST(Fields, SplitAtCommasAndTrimmed)
{
    CStringArray fields;
    SplitFields(" 1 ,, a b ,", fields);
    ASSERT_EQ(fields.GetSize(), 3);
    EXPECT_STREQ(fields[0], "1");
    EXPECT_STREQ(fields[1], "");
    EXPECT_STREQ(fields[2], "a b");
    SplitFields("", fields);
    EXPECT_EQ(fields.GetSize(), 0);
    EXPECT_STREQ(Folded(" solid\tSec tion "), "SOLIDSECTION");
    EXPECT_STREQ(Unquoted(" \"a b\" "), "a b");
    EXPECT_STREQ(Unquoted("\""), "\"");
}

TEST(ElementType, FamiliesWithAnySuffix)
{
    struct Row {
        const char* type;
        MeasureKind measure;
        int nodes;
        int corners;
        int step;
    };
    const Row rows[] = {
        {"C3D8", kVolume, 8, 8, 1},     {"C3D8R", kVolume, 8, 8, 1},      {"C3D20RH", kVolume, 20, 8, 1},
        {"F3D8", kVolume, 8, 8, 1},     {"DC3D8", kVolume, 8, 8, 1},      {"DC3D20", kVolume, 20, 8, 1},
        {"C3D6", kVolume, 6, 6, 1},     {"C3D15", kVolume, 15, 6, 1},     {"C3D4", kVolume, 4, 4, 1},
        {"C3D10MT", kVolume, 10, 4, 1}, {"S3", kArea, 3, 3, 1},           {"S4R5", kArea, 4, 4, 1},
        {"S6", kArea, 6, 3, 1},         {"S8R", kArea, 8, 4, 1},          {"CPS4", kArea, 4, 4, 1},
        {"CPE8R", kArea, 8, 4, 1},      {"CAX6", kArea, 6, 3, 1},         {"M3D3", kArea, 3, 3, 1},
        {"B21", kLength, 2, 2, 1},      {"B31", kLength, 2, 2, 1},        {"B32R", kLength, 3, 2, 2},
        {"T2D2", kLength, 2, 2, 1},     {"T3D2", kLength, 2, 2, 1},       {"T3D3", kLength, 3, 2, 2},
        {"C3D5", kNoMeasure, 0, 0, 0},  {"C3D80", kNoMeasure, 0, 0, 0},   {"C3D", kNoMeasure, 0, 0, 0},
        {"S5", kNoMeasure, 0, 0, 0},    {"SPRINGA", kNoMeasure, 0, 0, 0}, {"D", kNoMeasure, 0, 0, 0},
        {"B22", kNoMeasure, 0, 0, 0},   {"B310", kNoMeasure, 0, 0, 0},    {"M3D9", kNoMeasure, 0, 0, 0},
        {"SC8R", kNoMeasure, 0, 0, 0},  {"DCOUP3D", kNoMeasure, 0, 0, 0}, {"", kNoMeasure, 0, 0, 0},
        {"S8-R", kNoMeasure, 0, 0, 0},  {"C3D+8", kNoMeasure, 0, 0, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.type);
        const ElementShape shape = ShapeOf(row.type);
        EXPECT_EQ(shape.measure, row.measure);
        EXPECT_EQ(shape.nodes, row.nodes);
        EXPECT_EQ(shape.corners, row.corners);
        EXPECT_EQ(shape.cornerStep, row.step);
    }
}

TEST(Paths, PartsWithEitherSeparator)
{
    struct Row {
        const char* path;
        const char* folder;
        const char* name;
        const char* withoutEnding;
    };
    const Row rows[] = {
        {"a/b.inp", "a/", "b.inp", "b"}, {"a\\b.c.inp", "a\\", "b.c.inp", "b.c"}, {"b", "", "b", "b"},
        {"C:b.inp", "C:", "b.inp", "b"}, {"/.inp", "/", ".inp", ".inp"},          {"a.d/b", "a.d/", "b", "b"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.path);
        EXPECT_STREQ(FolderPart(row.path), row.folder);
        EXPECT_STREQ(NamePart(row.path), row.name);
        EXPECT_STREQ(WithoutEnding(NamePart(row.path)), row.withoutEnding);
    }
    EXPECT_STREQ(PathBeside("x/y.inp", "z.inp"), "x/z.inp");
    EXPECT_STREQ(PathBeside("x/y.inp", "/z.inp"), "/z.inp");
    EXPECT_STREQ(PathBeside("x/y.inp", "C:\\z.inp"), "C:\\z.inp");
    EXPECT_STREQ(Joined("", "n"), "n");
    EXPECT_STREQ(Joined("a", "n"), "a/n");
    EXPECT_STREQ(Joined("a/", "n"), "a/n");
    EXPECT_STREQ(Joined("C:\\a", "n"), "C:\\a\\n");
}

// The number of digits behind the point, then whether there is an exponent.
TEST(NumberFormat, ShowsTheDigitsThatMatter)
{
    struct Row {
        double low;
        double high;
        const char* format;
    };
    const Row rows[] = {
        {0, 0, "0"},
        {2e-7, 2e-7, "0.000000E+00"},
        {1, 1, "0.000000"},
        {-123.4, 123.4, "0.0000"},
        {1234567, 1234567, "0"},
        {1e7, 1e7, "0.000000E+00"},
        {0.002, 0.002, "0.000000000"},
        {1e-8, 1, "0.000000E+00"},
        {1e-10, 1, "0.000000"},
        {0.01, 10, "0.00000"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.low << " to " << row.high);
        CMagnitudes magnitudes;
        magnitudes.Add(row.low);
        magnitudes.Add(row.high);
        magnitudes.Add(0);
        EXPECT_STREQ(magnitudes.Format(), row.format);
    }
}

TEST(TextLines, BreakAtBlanks)
{
    // Of the width 2 is margin.
    struct Row {
        const char* text;
        double width;
        int lines;
    };
    const Row rows[] = {
        {"", 8, 1},          {"01234", 7.2, 1},
        {"012345", 7.2, 2}, // one word that is too long
        {"012 45", 7.2, 2},  {"01 34 67", 7.2, 2},
        {"01234 ", 7.2, 1},                        // a blank at the end of a line takes no room
        {"0 1 2 3", 4, 4}, {"tttttttt", 7.2, 1}, // narrow letters
        {"WWW", 7.2, 2},                           // wide ones
        {"0", 1, 1},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(LinesOf(row.text, row.width), row.lines);
    }
}

TEST(TextLines, PiecesMakeUpTheTextAndFitARow)
{
    constexpr double kWidth = 12;
    CString text;
    for (int i = 0; i < 200; ++i)
        text.AppendFormat(i == 0 ? "%d" : " %d", i * i);
    CStringArray pieces;
    SplitForRows(text, kWidth, pieces);
    ASSERT_GT(pieces.GetSize(), 1);
    CString joined = pieces[0];
    for (int i = 0; i < pieces.GetSize(); ++i) {
        EXPECT_LE(LinesOf(pieces[i], kWidth), 31);
        EXPECT_LE(HeightOfLines(LinesOf(pieces[i], kWidth)), 409);
        joined += i == 0 ? "" : " " + pieces[i];
    }
    EXPECT_STREQ(joined, text);
    SplitForRows("", kWidth, pieces);
    EXPECT_EQ(pieces.GetSize(), 1);
}
