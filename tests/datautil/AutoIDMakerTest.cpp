#include <AutoIDMaker.h>

#include <oleauto.h>

#include <Boxes.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

// The members that only classes made of it see.
class OpenMaker : public CAutoIDMaker
{
public:
    using CAutoIDMaker::GetCharacterType;
    using CAutoIDMaker::GetLastChar;
    using CAutoIDMaker::IsValidID;
    using CAutoIDMaker::m_nCounterType;
    using CAutoIDMaker::m_strCounter;
    using CAutoIDMaker::m_strFixed;
    using CAutoIDMaker::MakeNextID;
};

void Start(CAutoIDMaker& maker, const char* first)
{
    CString text(first);
    maker.SetStartID(text);
    EXPECT_STREQ(text, first);
}

TEST(AutoIDMaker, CountsOnFromTheStart)
{
    const struct {
        const char* start;
        std::vector<const char*> next;
    } rows[] = {
        {"B1", {"B2", "B3"}},
        {"COL009", {"COL10", "COL11"}},
        {"B007", {"B8", "B9", "B10"}},
        {"B99", {"B100", "B101"}},
        {"9", {"10"}},
        {"Z", {"AA", "AB"}},
        {"ZZ", {"AAA"}},
        {"RZ", {"SA"}},
        {"RA", {"RB", "RC"}},
        {"az", {"ba"}},
        {"Azz", {"Aaaa", "Aaab"}},
        {"1Y", {"1Z", "1AA", "1AB"}},
        {"A1b", {"A1c"}},
        {"b2147483646", {"b2147483647", "b-2147483648", "b-2147483647"}},
        {"c4294967295", {"c0"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.start);
        CAutoIDMaker maker;
        Start(maker, row.start);
        for (const char* next : row.next)
            EXPECT_STREQ(maker.GetNextID(), next);
    }
}

TEST(AutoIDMaker, TakesTheStartApart)
{
    const struct {
        const char *start, *fixed, *counter;
        int type;
    } rows[] = {{"B01", "B", "01", 0},
                {"COL", "", "COL", 1},
                {"A1b", "A1", "b", 2},
                {"7", "", "7", 0},
                {"xY", "x", "Y", 1}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.start);
        OpenMaker maker;
        Start(maker, row.start);
        EXPECT_STREQ(maker.m_strFixed, row.fixed);
        EXPECT_STREQ(maker.m_strCounter, row.counter);
        EXPECT_EQ(maker.m_nCounterType, row.type);
    }
}

TEST(AutoIDMaker, RefusesWhatIsNoIdentifierWithABox)
{
    const CString said(OLESTR("[Error] 유효하지 않은 문자열 입니다. 다시 지정하여 주십시오."));
    for (const char* start : {"", "B-1", " B1", "B1 ", "B\xB0\xA1", "a_b"}) {
        SCOPED_TRACE(start);
        OpenMaker maker;
        Start(maker, "B1");
        BoxCatcher boxes;
        Start(maker, start);
        EXPECT_EQ(boxes.Texts(), std::vector<std::string>({static_cast<LPCSTR>(said)}));
        EXPECT_EQ(maker.m_nCounterType, -1);
        EXPECT_STREQ(maker.m_strFixed + "/" + maker.m_strCounter, "/");
        EXPECT_STREQ(maker.GetNextID(), "");
    }
}

TEST(AutoIDMaker, HasNoStartAtFirst)
{
    OpenMaker maker;
    EXPECT_EQ(maker.MakeNextID(), 0);
    EXPECT_STREQ(maker.GetNextID(), "");
}

TEST(AutoIDMaker, CopiesCountByThemselves)
{
    CAutoIDMaker first;
    Start(first, "B1");
    CAutoIDMaker second(first);
    EXPECT_STREQ(first.GetNextID(), "B2");
    EXPECT_STREQ(first.GetNextID(), "B3");
    EXPECT_STREQ(second.GetNextID(), "B2");
    second = first;
    EXPECT_STREQ(second.GetNextID(), "B4");
}

TEST(AutoIDMaker, TellsCharactersApart)
{
    OpenMaker maker;
    for (int c = -128; c < 128; ++c) {
        const int expected = c >= '0' && c <= '9'   ? 0
                             : c >= 'A' && c <= 'Z' ? 1
                             : c >= 'a' && c <= 'z' ? 2
                                                    : -1;
        EXPECT_EQ(maker.GetCharacterType(static_cast<char>(c)), expected) << c;
    }
    CString empty, text("xyZ");
    EXPECT_EQ(maker.GetLastChar(empty), ' ');
    EXPECT_EQ(maker.GetLastChar(text), 'Z');
    EXPECT_EQ(maker.IsValidID(empty), 0);
    EXPECT_EQ(maker.IsValidID(text), 1);
}

} // namespace
