#include <afx.h>

#include <oleauto.h>

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

std::string Text(const CString& s)
{
    return {s.GetString(), static_cast<std::size_t>(s.GetLength())};
}

// Runs `work`, which must throw an EXCEPTION*.
template <class EXCEPTION, class WORK>
bool Throws(WORK work)
{
    try {
        work();
    } catch (EXCEPTION* e) {
        e->Delete();
        return true;
    }
    return false;
}

} // namespace

TEST(CString, IsMadeFromAllKindsOfText)
{
    const unsigned char bytes[] = "bytes";
    const struct {
        const char* label;
        CString made;
        std::string expected;
    } kRows[] = {
        {"default", CString(), ""},
        {"null", CString(static_cast<LPCSTR>(nullptr)), ""},
        {"text", CString("abc"), "abc"},
        {"character", CString('x'), "x"},
        {"repeated", CString('x', 3), "xxx"},
        {"repeated not at all", CString('x', 0), ""},
        {"repeated less than that", CString('x', -1), ""},
        {"with length", CString("abc", 2), "ab"},
        {"with a NUL inside", CString("a\0b", 3), std::string("a\0b", 3)},
        {"with negative length", CString("abc", -1), ""},
        {"unsigned", CString(bytes), "bytes"},
        {"wide", CString(OLESTR("wide")), "wide"},
        {"wide with length", CString(OLESTR("wide"), 2), "wi"},
        {"wide null", CString(static_cast<LPCWSTR>(nullptr)), ""},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(row.expected, Text(row.made));
        EXPECT_EQ('\0', row.made.GetString()[row.made.GetLength()]);
        EXPECT_EQ(row.expected.empty(), row.made.IsEmpty() != FALSE);
    }
}

TEST(CString, IsOnePointerThatMayBeMovedAsBytes)
{
    EXPECT_EQ(sizeof(void*), sizeof(CString));
    CString a("first"), b("second");
    unsigned char held[sizeof(CString)];
    std::memcpy(held, static_cast<void*>(&a), sizeof held);
    std::memcpy(static_cast<void*>(&a), static_cast<void*>(&b), sizeof held);
    std::memcpy(static_cast<void*>(&b), held, sizeof held);
    EXPECT_STREQ("second", a);
    EXPECT_STREQ("first", b);
}

TEST(CString, SharesItsTextUntilOneWriterChangesIt)
{
    const CString original("shared text");
    CString copy(original);
    EXPECT_EQ(original.GetString(), copy.GetString());
    copy.SetAt(0, 'S');
    EXPECT_STREQ("shared text", original);
    EXPECT_STREQ("Shared text", copy);
    CString moved(std::move(copy));
    EXPECT_STREQ("Shared text", moved);
    EXPECT_STREQ("", copy); // NOLINT(bugprone-use-after-move)
}

TEST(CString, TakesItsOwnTextAsArgument)
{
    const struct {
        const char* label;
        void (*change)(CString& s);
        const char* expected;
    } kRows[] = {
        {"itself", [](CString& s) { s = *&s; }, "abcdef"},
        {"own tail", [](CString& s) { s = s.GetString() + 3; }, "def"},
        {"adding itself", [](CString& s) { s += s; }, "abcdefabcdef"},
        {"adding own tail", [](CString& s) { s += s.GetString() + 4; }, "abcdefef"},
        {"inserting itself", [](CString& s) { s.Insert(3, s.GetString()); }, "abcabcdefdef"},
        {"formatting itself", [](CString& s) { s.Format("%s-%s", s.GetString(), s); }, "abcdef-abcdef"},
        {"own text as format", [](CString& s) { s.Format(s); }, "abcdef"},
        {"replacing by itself", [](CString& s) { s.Replace("cd", s); }, "ababcdefef"},
        {"trimming by itself", [](CString& s) { s.Trim(s); }, ""},
        {"own part by length", [](CString& s) { s.SetString(s.GetString() + 1, 2); }, "bc"},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        CString s("abcdef");
        row.change(s);
        EXPECT_STREQ(row.expected, s);
        CString shared("abcdef");
        const CString other(shared);
        row.change(shared);
        EXPECT_STREQ(row.expected, shared);
        EXPECT_STREQ("abcdef", other);
    }
}

TEST(CString, CutsPartsToTheText)
{
    const CString s("abcdef");
    const struct {
        const char* label;
        CString part;
        const char* expected;
    } kRows[] = {
        {"middle", s.Mid(2, 3), "cde"},
        {"to the end", s.Mid(4), "ef"},
        {"too long", s.Mid(4, 9), "ef"},
        {"from before", s.Mid(-2, 2), "ab"},
        {"from behind", s.Mid(9, 2), ""},
        {"negative count", s.Mid(2, -1), ""},
        {"at the end", s.Mid(6), ""},
        {"largest", s.Mid(1, 0x7FFFFFFF), "bcdef"},
        {"left", s.Left(2), "ab"},
        {"left of all", s.Left(99), "abcdef"},
        {"left of nothing", s.Left(-1), ""},
        {"right", s.Right(2), "ef"},
        {"right of all", s.Right(99), "abcdef"},
        {"right of nothing", s.Right(-5), ""},
        {"span", s.SpanIncluding("abxc"), "abc"},
        {"no span", s.SpanIncluding("xyz"), ""},
        {"span to", s.SpanExcluding("dc"), "ab"},
        {"span to nothing", s.SpanExcluding("xyz"), "abcdef"},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        EXPECT_STREQ(row.expected, row.part);
    }
    const CString zero("a\0bc", 4);
    EXPECT_EQ(std::string("\0b", 2), Text(zero.Mid(1, 2)));
}

TEST(CString, FindsCharactersAndTexts)
{
    const CString s("a-bc-a");
    const struct {
        const char* label;
        int found;
        int expected;
    } kRows[] = {
        {"character", s.Find('-'), 1},
        {"later character", s.Find('-', 2), 4},
        {"no character", s.Find('x'), -1},
        {"start at the end", s.Find('a', 6), -1},
        {"start beyond", s.Find('a', 9), -1},
        {"start before", s.Find('a', -1), -1},
        {"NUL", s.Find('\0'), -1},
        {"text", s.Find("bc"), 2},
        {"later text", s.Find("a", 1), 5},
        {"no text", s.Find("cb"), -1},
        {"empty text", s.Find("", 3), 3},
        {"empty text at the end", s.Find("", 6), 6},
        {"text beyond", s.Find("", 7), -1},
        {"null", s.Find(static_cast<LPCSTR>(nullptr)), -1},
        {"from behind", s.ReverseFind('-'), 4},
        {"not from behind", s.ReverseFind('x'), -1},
        {"one of", s.FindOneOf("cb"), 2},
        {"none of", s.FindOneOf("xyz"), -1},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(row.expected, row.found);
    }
}

TEST(CString, Changes)
{
    const struct {
        const char* label;
        int (*change)(CString& s);
        const char* text;
        int result;
        const char* expected;
    } kRows[] = {
        {"replace characters", [](CString& s) { return s.Replace('a', 'x'); }, "banana", 3, "bxnxnx"},
        {"replace by the same", [](CString& s) { return s.Replace('a', 'a'); }, "banana", 0, "banana"},
        {"replace by longer", [](CString& s) { return s.Replace("an", "ANN"); }, "banana", 2, "bANNANNa"},
        {"replace by shorter", [](CString& s) { return s.Replace("an", ""); }, "banana", 2, "ba"},
        {"replace by null", [](CString& s) { return s.Replace("an", nullptr); }, "banana", 2, "ba"},
        {"replace nothing", [](CString& s) { return s.Replace("", "x"); }, "banana", 0, "banana"},
        {"replace overlapping", [](CString& s) { return s.Replace("aa", "a"); }, "aaaaa", 2, "aaa"},
        {"remove", [](CString& s) { return s.Remove('a'); }, "banana", 3, "bnn"},
        {"remove nothing", [](CString& s) { return s.Remove('x'); }, "banana", 0, "banana"},
        {"insert", [](CString& s) { return s.Insert(1, "__"); }, "abc", 5, "a__bc"},
        {"insert before", [](CString& s) { return s.Insert(-4, 'x'); }, "abc", 4, "xabc"},
        {"insert behind", [](CString& s) { return s.Insert(99, "x"); }, "abc", 4, "abcx"},
        {"insert null", [](CString& s) { return s.Insert(1, static_cast<LPCSTR>(nullptr)); }, "abc", 3,
         "abc"},
        {"delete", [](CString& s) { return s.Delete(1); }, "abc", 2, "ac"},
        {"delete too much", [](CString& s) { return s.Delete(1, 0x7FFFFFFF); }, "abc", 1, "a"},
        {"delete behind", [](CString& s) { return s.Delete(3, 1); }, "abc", 3, "abc"},
        {"delete before", [](CString& s) { return s.Delete(-1, 1); }, "abc", 2, "bc"},
        {"delete nothing", [](CString& s) { return s.Delete(0, -1); }, "abc", 3, "abc"},
        {"trim left", [](CString& s) { return s.TrimLeft().GetLength(); }, " \t\r\n\f\vab ", 3, "ab "},
        {"trim right", [](CString& s) { return s.TrimRight().GetLength(); }, " a b \t\r\n", 4, " a b"},
        {"trim", [](CString& s) { return s.Trim().GetLength(); }, "  a b  ", 3, "a b"},
        {"trim all", [](CString& s) { return s.Trim().GetLength(); }, "   ", 0, ""},
        {"trim a character", [](CString& s) { return s.Trim('x').GetLength(); }, "xxaxbxx", 3, "axb"},
        {"trim a set", [](CString& s) { return s.Trim("xy").GetLength(); }, "xyaxbyx", 3, "axb"},
        {"trim by nothing", [](CString& s) { return s.TrimRight("").GetLength(); }, "a ", 2, "a "},
        {"upper", [](CString& s) { return s.MakeUpper().GetLength(); }, "aZ1", 3, "AZ1"},
        {"lower", [](CString& s) { return s.MakeLower().GetLength(); }, "aZ1", 3, "az1"},
        {"reverse", [](CString& s) { return s.MakeReverse().GetLength(); }, "abc", 3, "cba"},
        {"truncate", [](CString& s) { return s.Truncate(2), s.GetLength(); }, "abc", 2, "ab"},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        CString s(row.text);
        const CString other(s);
        EXPECT_EQ(row.result, row.change(s));
        EXPECT_STREQ(row.expected, s);
        EXPECT_STREQ(row.text, other);
    }
}

TEST(CString, ComparesByBytesUpToTheFirstNul)
{
    const struct {
        const char* a;
        const char* b;
        int order;
        int orderNoCase;
    } kRows[] = {
        {"a", "a", 0, 0},  {"a", "b", -1, -1}, {"b", "a", 1, 1},  {"a", "ab", -1, -1},
        {"", "a", -1, -1}, {"A", "a", -1, 0},  {"a", "B", 1, -1}, {"Z", "a", -1, 1},
    };
    const auto sign = [](int value) { return (value > 0) - (value < 0); };
    for (const auto& row : kRows) {
        SCOPED_TRACE(std::string(row.a) + " and " + row.b);
        const CString a(row.a), b(row.b);
        EXPECT_EQ(row.order, sign(a.Compare(b)));
        EXPECT_EQ(row.order, sign(a.Collate(b)));
        EXPECT_EQ(row.orderNoCase, sign(a.CompareNoCase(b)));
        EXPECT_EQ(row.orderNoCase, sign(a.CollateNoCase(b)));
        EXPECT_EQ(row.order == 0, a == b && a == row.b && row.a == b);
        EXPECT_EQ(row.order != 0, a != b && a != row.b && row.a != b);
        EXPECT_EQ(row.order < 0, a < b && a < row.b && row.a < b);
        EXPECT_EQ(row.order > 0, a > b && a > row.b && row.a > b);
        EXPECT_EQ(row.order <= 0, a <= b && a <= row.b && row.a <= b);
        EXPECT_EQ(row.order >= 0, a >= b && a >= row.b && row.a >= b);
    }
    EXPECT_TRUE(CString("a\0b", 3) == CString("a\0c", 3));
    EXPECT_TRUE(CString("a") == "a" && CString() == static_cast<LPCSTR>(nullptr));
}

TEST(CString, Joins)
{
    const CString a("ab"), b("cd");
    EXPECT_STREQ("abcd", a + b);
    EXPECT_STREQ("abxy", a + "xy");
    EXPECT_STREQ("xyab", "xy" + a);
    EXPECT_STREQ("ab!", a + '!');
    EXPECT_STREQ("!ab", '!' + a);
    EXPECT_STREQ("ab", a + static_cast<LPCSTR>(nullptr));
    EXPECT_EQ(std::string("\0x", 2), Text(CString("\0", 1) + 'x'));
}

TEST(CString, SplitsIntoTokens)
{
    const CString s("--a-+b++");
    std::vector<std::string> tokens;
    int start = 0;
    for (CString token = s.Tokenize("+-", start); start >= 0; token = s.Tokenize("+-", start))
        tokens.push_back(token.GetString());
    EXPECT_EQ((std::vector<std::string>{"a", "b"}), tokens);
    start = 2;
    EXPECT_STREQ("a-+b++", s.Tokenize("", start));
    start = -1;
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { s.Tokenize("-", start); }));
}

TEST(CString, LendsItsBuffer)
{
    CString s("abc");
    const CString other(s);
    LPSTR buffer = s.GetBuffer(100);
    EXPECT_STREQ("abc", buffer);
    std::strcpy(buffer, "0123456789");
    s.ReleaseBuffer();
    EXPECT_EQ(10, s.GetLength());
    EXPECT_STREQ("abc", other);
    s.GetBufferSetLength(4);
    EXPECT_STREQ("0123", s);
    s.GetBuffer(8)[2] = '\0';
    s.ReleaseBuffer(4);
    EXPECT_EQ(std::string("01\0003", 4), Text(s));
    s.FreeExtra();
    EXPECT_EQ(4, s.GetLength());
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { s.ReleaseBuffer(s.GetAllocLength() + 1); }));
    CString empty;
    empty.GetBuffer(0);
    empty.ReleaseBuffer();
    EXPECT_STREQ("", empty);
}

TEST(CString, LockedTextIsNeverShared)
{
    CString s("locked");
    LPCSTR buffer = s.LockBuffer();
    const CString copy(s);
    EXPECT_NE(buffer, copy.GetString());
    s = copy;
    EXPECT_EQ(buffer, s.GetString());
    EXPECT_STREQ("locked", s);
    s.UnlockBuffer();
    const CString shared(s);
    EXPECT_EQ(s.GetString(), shared.GetString());
}

TEST(CString, RefusesWhatIsOutside)
{
    CString s("abc");
    EXPECT_EQ('\0', s[3]);
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { s.GetAt(4); }));
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { s.GetAt(-1); }));
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { s.SetAt(3, 'x'); }));
    EXPECT_TRUE(Throws<CMemoryException>([&] { s.Preallocate(0x7FFFFFFF); }));
    EXPECT_TRUE(Throws<CMemoryException>([&] { CString('x', 0x7FFFFFFF); }));
    EXPECT_STREQ("abc", s);
}

TEST(CString, ConvertsToAutomationTexts)
{
    CString s("a\0b", 3);
    LPWSTR text = s.AllocSysString();
    EXPECT_TRUE(text[0] == u'a' && text[1] == 0 && text[2] == u'b' && text[3] == 0);
    CString("xy").SetSysString(&text);
    EXPECT_STREQ("xy", CString(text));
    CString().SetSysString(&text);
    EXPECT_TRUE(text && text[0] == 0);
    ::SysFreeString(text);
}

// Random changes to a few texts, each checked against std::string.
TEST(CString, DoesWhatAPlainStringDoes)
{
    constexpr unsigned kSeed = 20250917;
    constexpr int kSteps = 20000;
    SCOPED_TRACE(kSeed);
    std::mt19937 random(kSeed);
    const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    std::vector<CString> texts(4);
    std::vector<std::string> oracle(4);
    for (int step = 0; step < kSteps; ++step) {
        const auto i = static_cast<std::size_t>(below(4));
        const auto j = static_cast<std::size_t>(below(4));
        std::string& expected = oracle[i];
        const int at = expected.empty() ? 0 : below(static_cast<int>(expected.size()));
        const auto place = static_cast<std::size_t>(at);
        switch (below(8)) {
        case 0:
            texts[i] = texts[j];
            expected = std::string(oracle[j]);
            break;
        case 1:
            texts[i] += texts[j];
            expected += std::string(oracle[j]);
            break;
        case 2:
            texts[i] += static_cast<char>('a' + step % 26);
            expected += static_cast<char>('a' + step % 26);
            break;
        case 3:
            texts[i].Insert(at, texts[j]);
            expected.insert(place, std::string(oracle[j]));
            break;
        case 4:
            texts[i].Delete(at, 3);
            expected.erase(place, 3);
            break;
        case 5:
            texts[i] = texts[j].Mid(at, 5);
            expected = place <= oracle[j].size() ? std::string(oracle[j].substr(place, 5)) : "";
            break;
        case 6:
            if (!expected.empty()) {
                texts[i].SetAt(at, '#');
                expected[place] = '#';
            }
            break;
        default:
            texts[i].MakeReverse();
            expected.assign(std::string(expected.rbegin(), expected.rend()));
        }
        if (expected.size() > 300) {
            texts[i].Empty();
            expected.clear();
        }
        for (std::size_t k = 0; k < 4; ++k)
            ASSERT_EQ(oracle[k], Text(texts[k])) << "step " << step;
    }
}
