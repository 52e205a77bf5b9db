#include <GlobalFunc.h>

#include "OsClass.h"
#include "Scratch.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kSmallest = std::numeric_limits<double>::denorm_min();
constexpr double kLargest = std::numeric_limits<double>::max();

double After(double value, int steps)
{
    for (int i = 0; i < std::abs(steps); ++i)
        value = std::nextafter(value, steps > 0 ? kInfinity : -kInfinity);
    return value;
}

TEST(SafeCompareReal, ForgivesOneUnitInTheLastPlace)
{
    const struct {
        const char* label;
        double a, b;
        int result;
    } rows[] = {
        {"equal", 1.0, 1.0, 0},
        {"neighbour", 1.0, After(1.0, 1), 0},
        {"neighbour below", 1.0, After(1.0, -1), 0},
        {"two apart", 1.0, After(1.0, 2), -1},
        {"two apart below", 1.0, After(1.0, -2), 1},
        {"zeros", 0.0, -0.0, 0},
        {"zero and smallest", 0.0, kSmallest, 0},
        {"minus zero and smallest", -0.0, kSmallest, 0},
        {"smallest of both signs", -kSmallest, kSmallest, -1},
        {"two above zero", 0.0, 2 * kSmallest, -1},
        {"largest and infinity", kLargest, kInfinity, 0},
        {"infinity and largest", kInfinity, kLargest, 0},
        {"infinities", kInfinity, kInfinity, 0},
        {"opposite infinities", kInfinity, -kInfinity, 1},
        {"far apart", -1e300, 1e-300, -1},
        {"no number first", kNoNumber, 1.0, 0},
        {"no number second", 1.0, kNoNumber, 0},
        {"no number and infinity", kNoNumber, kInfinity, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(SafeCompareReal(row.a, row.b), row.result);
        EXPECT_EQ(SafeCompareReal(row.b, row.a), -row.result);
    }
}

TEST(GetHashSizeByCount, IsTheFirstSizeWhoseBoundExceedsTheCount)
{
    const struct {
        int below, size;
    } rows[] = {{10, 11},       {50, 53},       {100, 101},     {300, 307},       {600, 601},
                {1000, 1009},   {3000, 3001},   {5000, 5003},   {7000, 7001},     {10000, 10007},
                {30000, 30011}, {50000, 50021}, {70000, 70001}, {100000, 100003}, {500000, 500009}};
    int previous = 11;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.below);
        EXPECT_EQ(GF_GetHashSizeByCount(row.below - 1), row.size);
        if (row.below > 10) {
            EXPECT_GT(row.size, previous);
        }
        previous = row.size;
    }
    EXPECT_EQ(GF_GetHashSizeByCount(10), 53);
    EXPECT_EQ(GF_GetHashSizeByCount(100000), 500009);
    EXPECT_EQ(GF_GetHashSizeByCount(500000), 1000003);
    EXPECT_EQ(GF_GetHashSizeByCount(std::numeric_limits<int>::max()), 1000003);
    EXPECT_EQ(GF_GetHashSizeByCount(-5), 11);
    EXPECT_EQ(GF_GetHashSizeByCount(std::numeric_limits<int>::min()), 11);
}

TEST(SeparateNameAndNo, CutsTheDigitsAtTheEnd)
{
    const struct {
        const char* text;
        const char* name;
        int hasNo, no;
    } rows[] = {
        {"", "", 0, 0},
        {nullptr, "", 0, 0},
        {"BEAM12", "BEAM", 1, 12},
        {"B1C", "B1C", 0, 0},
        {"007", "", 1, 7},
        {"12", "", 1, 12},
        {"0", "", 1, 0},
        {"A0", "A", 1, 0},
        {"X-3", "X-", 1, 3},
        {"12 ", "12 ", 0, 0},
        {"A 5", "A ", 1, 5},
        {"A.5", "A.", 1, 5},
        {"N2147483647", "N", 1, 2147483647},
        {"N2147483648", "N", 1, std::numeric_limits<int>::min()},
        {"N4294967297", "N", 1, 1},
        {"\xB0\xA1"
         "1",
         "\xB0\xA1", 1, 1},
        {"1\xB0\xB1", "1\xB0\xB1", 0, 0},
        {"\xB2\xB3\xB9", "\xB2\xB3\xB9", 0, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text ? row.text : "null");
        CString name("before");
        int hasNo = -1, no = -1;
        SeparateNameAndNo(row.text, name, hasNo, no);
        EXPECT_STREQ(name, row.name);
        EXPECT_EQ(hasNo, row.hasNo);
        EXPECT_EQ(no, row.no);
    }
}

TEST(SeparateNameAndNo, MayCutItsOwnSource)
{
    CString name("BEAM12");
    int hasNo = 0, no = 0;
    SeparateNameAndNo(name, name, hasNo, no);
    EXPECT_EQ(name, "BEAM");
    EXPECT_EQ(no, 12);
}

TEST(GetOS, ClassesWhatTheSystemTells)
{
    const struct {
        const char* label;
        BOOL known;
        DWORD platform, major, minor;
        int result;
    } rows[] = {
        {"unknown", FALSE, 2, 4, 0, 7}, {"Win32s", TRUE, 0, 3, 1, 1}, {"95", TRUE, 1, 4, 0, 2},
        {"98", TRUE, 1, 4, 10, 3},      {"Me", TRUE, 1, 4, 90, 3},    {"NT 3", TRUE, 2, 3, 51, 6},
        {"NT 4", TRUE, 2, 4, 0, 4},     {"2000", TRUE, 2, 5, 0, 5},   {"XP", TRUE, 2, 5, 1, 5},
        {"NT 6", TRUE, 2, 6, 1, 6},     {"NT 10", TRUE, 2, 10, 0, 6}, {"CE", TRUE, 3, 4, 0, 7},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        OSVERSIONINFOA version{};
        version.dwPlatformId = row.platform;
        version.dwMajorVersion = row.major;
        version.dwMinorVersion = row.minor;
        EXPECT_EQ(OsClass(row.known, version), row.result);
    }
    OSVERSIONINFOA here{};
    here.dwOSVersionInfoSize = 148;
    const BOOL known = GetVersionExA(&here);
    EXPECT_EQ(GetOS(), OsClass(known, here));
    EXPECT_EQ(GetOS(), 6) << "no system of today is of another class";
}

TEST(GetProgramPath, IsTheProgramsFolderWithItsBackslash)
{
    char program[1024];
    GetModuleFileNameA(nullptr, program, sizeof program);
    const CString path = GetProgramPath();
    ASSERT_FALSE(path.IsEmpty());
    EXPECT_EQ(path[path.GetLength() - 1], '\\');
    const CString name = CString(program).Mid(path.GetLength());
    EXPECT_EQ(path + name, program);
    EXPECT_EQ(name.Left(10), "frame_test") << "the program, not the library";
    EXPECT_EQ(name.Find('\\'), -1);
}

TEST(ExistFile, KnowsFilesAndFolders)
{
    const ScratchFolder folder;
    WriteWholeFile(folder.Path("here.txt"), "x");
    EXPECT_NE(ExistFile(folder.Path("here.txt").c_str()), 0);
    EXPECT_NE(ExistFile(folder.Path().c_str()), 0);
    EXPECT_EQ(ExistFile(folder.Path("there.txt").c_str()), 0);
    EXPECT_EQ(ExistFile(folder.Path("none/here.txt").c_str()), 0);
    EXPECT_EQ(ExistFile(""), 0);
    EXPECT_EQ(ExistFile(nullptr), 0);
    EXPECT_EQ(ExistFile(std::string(5000, 'x').c_str()), 0);
    EXPECT_EQ(ExistFile("*.*"), 0);
}

} // namespace
