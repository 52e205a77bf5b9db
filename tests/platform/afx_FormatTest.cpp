#include <afx.h>

#include <oleauto.h>

#include <gtest/gtest.h>

#include <climits>
#include <clocale>
#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <initializer_list>
#include <limits>
#include <random>
#include <string>

namespace {

template <class... Args>
CString Formatted(const char* format, Args... args)
{
    CString s;
    s.Format(format, args...);
    return s;
}

CString FormattedV(const char* format, ...)
{
    CString s;
    va_list args;
    va_start(args, format);
    s.FormatV(format, args);
    va_end(args);
    return s;
}

enum Colour { kRed = 3 };

} // namespace

TEST(Format, FollowsTheHomePlatform)
{
    const CString object("object");
    const char* none = nullptr;
    const struct {
        const char* label;
        CString made;
        const char* expected;
    } kRows[] = {
        {"integer", Formatted("%d|%i", 42, -42), "42|-42"},
        {"flags", Formatted("%+d|% d|%05d|%-5d|%5d", 7, 7, -7, 7, 7), "+7| 7|-0007|7    |    7"},
        {"precision", Formatted("%.3d|%5.3d|%-5.3d|%05.3d|%.0d", 7, 7, 7, 7, 0), "007|  007|007  |  007|"},
        {"star", Formatted("%*d|%-*d|%*d|%.*f", 4, 7, 4, 7, -4, 7, 2, 1.5), "   7|7   |7   |1.50"},
        {"star below zero", Formatted("%.*f|%.*s", -1, 1.5, -1, "abc"), "1.500000|abc"},
        {"unsigned", Formatted("%u|%x|%X|%o", 4294967295U, 255, 255, 8), "4294967295|ff|FF|10"},
        {"alternate", Formatted("%#x|%#X|%#o|%#x", 255, 255, 8, 0), "0xff|0XFF|010|0"},
        {"alternate zero", Formatted("%#.0x|%#.0o|%#o", 0, 0, 0), "|0|0"},
        {"zeros after the prefix", Formatted("%#06x", 255), "0x00ff"},
        {"LONG", Formatted("%ld|%lu|%lx", LONG{-3}, DWORD{4000000000U}, DWORD{16}), "-3|4000000000|10"},
        {"64 bits", Formatted("%I64d|%I64u|%I64x|%lld", -1LL, ~0ULL, 1LL << 40, 1LL << 40),
         "-1|18446744073709551615|10000000000|1099511627776"},
        {"32 bits of 64", Formatted("%d|%I32u", (1LL << 32) + 5, (1LL << 32) + 6), "5|6"},
        {"short and char", Formatted("%hd|%hhd|%hu", 65537, 257, 65535), "1|1|65535"},
        {"smallest", Formatted("%d|%I64d", INT_MIN, std::numeric_limits<LONGLONG>::min()),
         "-2147483648|-9223372036854775808"},
        {"fixed", Formatted("%f|%.0f|%5.1f|%lf|%#.0f", 1.5, 2.5, 9.96, 0.1, 3.0),
         "1.500000|2| 10.0|0.100000|3."},
        {"scientific", Formatted("%e|%.2E|%.0e", 12345.678, 0.00012, 5.0), "1.234568e+04|1.20E-04|5e+00"},
        {"three digits of exponent", Formatted("%g|%g", 1e300, 1e-300), "1e+300|1e-300"},
        {"general", Formatted("%g|%g|%g|%.9g|%#g|%G", 1e6, 1e5, 1e-5, 0.1, 1.0, 1e-7),
         "1e+06|100000|1e-05|0.1|1.00000|1E-07"},
        {"general with zeros", Formatted("%#.3g|%#.3g|%#.3g", 999.6, 0.0001, 1e-5),
         "1.00e+03|0.000100|1.00e-05"},
        {"hexadecimal", Formatted("%a|%.1A", 1.5, 1.5), "0x1.8000000000000p+0|0X1.8P+0"},
        {"no numbers",
         Formatted("%f|%F|%5.1f|%05f", std::numeric_limits<double>::infinity(),
                   -std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN(),
                   std::numeric_limits<double>::infinity()),
         "inf|-INF|  nan|  inf"},
        {"negative zero", Formatted("%g|%+.1f", -0.0, 0.0), "-0|+0.0"},
        {"text", Formatted("%s|%5s|%-5s|%.2s", "abc", "abc", "abc", "abc"), "abc|  abc|abc  |ab"},
        {"string object", Formatted("%s|%8s", object, object), "object|  object"},
        {"null text", Formatted("%s|%.3s|%s|%S|%s", none, none, nullptr, LPCWSTR{}, NULL),
         "(null)|(nu|(null)|(null)|(null)"},
        {"more arguments than placeholders", Formatted("%d", 1, "x", 2.5), "1"},
        {"wide text",
         Formatted("%S|%ls|%ws|%.2S", OLESTR("wide"), OLESTR("wide"), OLESTR("w"), OLESTR("wide")),
         "wide|wide|w|wi"},
        {"narrow text", Formatted("%hs|%hS", "a", "b"), "a|b"},
        {"character", Formatted("%c|%3c|%C|%hc", 'x', 'y', 0x7A, 'w'), "x|  y|z|w"},
        {"enumerator and truth", Formatted("%d|%d", kRed, true), "3|1"},
        {"percent", Formatted("100%%"), "100%"},
        {"no argument needed", Formatted("plain"), "plain"},
        {"empty", Formatted(""), ""},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        EXPECT_STREQ(row.expected, row.made);
    }
}

TEST(Format, TakesAPointerAsAllItsDigits)
{
    const auto* place = reinterpret_cast<const int*>(static_cast<ULONG_PTR>(0xABC));
    EXPECT_STREQ(sizeof(void*) == 8 ? "0000000000000ABC" : "00000ABC", Formatted("%p", place));
}

TEST(Format, WritesWhatItCannotFollowAsItStands)
{
    int untouched = 5;
    const struct {
        const char* label;
        CString made;
        const char* expected;
    } kRows[] = {
        {"missing arguments", Formatted("%d %s %f %c %p"), "%d %s %f %c %p"},
        {"one missing", Formatted("%d %-5s|", 1), "1 %-5s|"},
        {"missing width", Formatted("%*d"), "%*d"},
        {"n", Formatted("a%nb%d", &untouched, 7), "a%nb7"},
        {"unknown letter", Formatted("%y%d", 7), "%y7"},
        {"positions", Formatted("%1$s", "x"), "%1$s"},
        {"percent at the end", Formatted("50%"), "50%"},
        {"flags at the end", Formatted("50%-05.2"), "50%-05.2"},
        {"too wide", Formatted("%999999999d|%d", 1, 2), "%999999999d|2"},
        {"too precise", Formatted("%.99999999999f|%d", 1.0, 2), "%.99999999999f|2"},
        {"too wide by argument", Formatted("%*d|%d", 2000000, 1, 2), "%*d|2"},
        {"too wide below zero", Formatted("%*d|%.*f|%d", INT_MIN, 1, INT_MIN, 2.5, 3), "%*d|2.500000|3"},
        {"text as width", Formatted("%*d|%.*f|%d", "x", 1, 2.5, 3.5, 4), "%*d|%.*f|4"},
        {"digits behind the star", Formatted("%*99999999999999999999d|%d", -5, 1),
         "%*99999999999999999999d|1"},
        {"minus as precision", Formatted("%.-5d|", 7), "%.-5d|"},
        {"number as text", Formatted("%s|%s|%ls|%s|%d", 7, 2.5, 7, 0, 8), "%s|%s|%ls|%s|8"},
        {"pointer as text", Formatted("%s|%S|%d", &untouched, &untouched, 8), "%s|%S|8"},
        {"wide text as text", Formatted("%s|%S|%hs|%ls|%d", OLESTR("w"), "n", OLESTR("w"), "n", 8),
         "%s|%S|%hs|%ls|8"},
        {"not a whole number", Formatted("%d|%x|%I64u|%5c|%d", "x", &untouched, 7.9, 1.5, 8),
         "%d|%x|%I64u|%5c|8"},
        {"null as whole number", Formatted("%d|%d", nullptr, 8), "%d|8"},
        {"not a fraction", Formatted("%f|%.1f|%G|%a|%d", "x", 7, &untouched, 'c', 8), "%f|%.1f|%G|%a|8"},
        {"not a pointer", Formatted("%p|%p|%d", 7, 1.5, 8), "%p|%p|8"},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        EXPECT_STREQ(row.expected, row.made);
    }
    EXPECT_EQ(5, untouched);
}

TEST(Format, TakesACArgumentList)
{
    EXPECT_STREQ("1 -2 1099511627776 x wide 2.50 c", FormattedV("%d %ld %I64d %s %S %.2f %c", 1, LONG{-2},
                                                                1LL << 40, "x", OLESTR("wide"), 2.5, 'c'));
    int untouched = 5;
    EXPECT_STREQ("%n|7", FormattedV("%n|%d", &untouched, 7));
    EXPECT_EQ(5, untouched);
}

TEST(Format, NeverFollowsTheLocale)
{
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char* name : {"de_DE.UTF-8", "German_Germany.1252", "de_DE"})
        if (std::setlocale(LC_ALL, name))
            break;
    EXPECT_STREQ("1.5|1.500000", Formatted("%g|%f", 1.5, 1.5));
    std::setlocale(LC_ALL, before.c_str());
}

// Every finite double is written as the C library writes it in the "C" locale.
TEST(Format, WritesNumbersAsPrintfDoes)
{
    constexpr unsigned kSeed = 7;
    SCOPED_TRACE(kSeed);
    std::mt19937_64 random(kSeed);
    const char* const kFormats[] = {"%.17g", "%g", "%e", "%.3f", "%#.4g", "%+12.4e", "%-12.3g|", "%012.2f"};
    for (int i = 0; i < 4000; ++i) {
        const double value = std::ldexp(static_cast<double>(static_cast<LONGLONG>(random())),
                                        static_cast<int>(random() % 200) - 130);
        for (const char* format : kFormats) {
            char expected[400];
            std::snprintf(expected, sizeof expected, format, value);
            ASSERT_STREQ(expected, Formatted(format, value)) << format;
        }
    }
}

// A placeholder of every kind, flag, width and precision that the C library words in the same way.
TEST(Format, WritesWellFormedPlaceholdersAsPrintfDoes)
{
    constexpr unsigned kSeed = 11;
    SCOPED_TRACE(kSeed);
    std::mt19937_64 random(kSeed);
    const auto one = [&random](std::initializer_list<const char*> of) {
        return std::string(of.begin()[random() % of.size()]);
    };
    for (int i = 0; i < 20000; ++i) {
        const std::string shape = "<%" + one({"", "-", "0", "+", " ", "#", "-+", "+0", "# ", "-0"}) +
                                  one({"", "1", "7", "23"}) + one({"", ".", ".0", ".3", ".19"});
        const auto integer = static_cast<LONGLONG>(random()) >> (random() % 64);
        const int star = static_cast<int>(random() % 40) - 20;
        const std::string text(random() % 9, 'x');
        const auto check = [](const std::string& format, auto... args) {
            char expected[600];
            std::snprintf(expected, sizeof expected, format.c_str(), args...);
            ASSERT_STREQ(expected, Formatted(format.c_str(), args...)) << format;
        };
        const bool hasSign = shape.find_first_of("+ ") != std::string::npos;
        check(shape + one({"d", "i", "hd", "hhd"}) + ">", static_cast<int>(integer));
        check(shape + "ld>", static_cast<long>(integer));
        check(shape + "lld>", integer);
        check(shape + one({"e", "f", "g", "E", "G", "lf"}) + ">",
              std::ldexp(static_cast<double>(integer), -20));
        check("<%" + one({"", "-"}) + "*" + one({"d", "x", "u"}) + ">", star, static_cast<int>(integer));
        check("<%.*" + one({"d", "x", "u"}) + ">", star, static_cast<int>(integer));
        if (!hasSign) { // which unsigned numbers have none of
            check(shape + one({"u", "x", "X", "hhu", "hx"}) + ">", static_cast<unsigned>(integer));
            check(shape + one({"lu", "lx"}) + ">", static_cast<unsigned long>(integer));
            check(shape + one({"llu", "llx"}) + ">", static_cast<ULONGLONG>(integer));
            check(shape + one({"zu", "zx"}) + ">", static_cast<std::size_t>(integer));
        }
        if (!hasSign && shape.find_first_of("#0") == std::string::npos) {
            check(shape + "s|%%>", text.c_str());
            check(shape + "o>", static_cast<unsigned>(integer));
            check("<%" + one({"", "-"}) + one({"", "3"}) + "c>", 'a' + star + 20);
        }
    }
}

TEST(Format, AddsToTheText)
{
    CString s("a");
    s.AppendFormat("%d", 1);
    s.AppendFormat("%s", s);
    EXPECT_STREQ("a1a1", s);
}

TEST(FormatMessage, PutsArgumentsIntoNumberedPlaces)
{
    const struct {
        const char* label;
        const char* format;
        const char* expected;
    } kRows[] = {
        {"in order", "%1-%2", "one-two"},        {"in another order", "%2-%1-%2", "two-one-two"},
        {"with a format", "%3!05d!|", "00042|"}, {"ends", "%1%0%2", "one"},
        {"line end", "a%nb", "a\r\nb"},          {"percent", "5%%", "5%"},
        {"other signs", "%!%.", "!."},           {"no such argument", "<%9>", "<>"},
        {"alone at the end", "a%", "a"},         {"format without end", "%1!s", "one!s"},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        CString s;
        s.FormatMessage(row.format, "one", CString("two"), 42);
        EXPECT_STREQ(row.expected, s);
    }
}
