#include <afx.h>

#include <gtest/gtest.h>

#include <ctime>

namespace {

template <class WORK>
bool Refused(WORK work)
{
    try {
        work();
    } catch (CInvalidArgException* e) {
        e->Delete();
        return true;
    }
    return false;
}

} // namespace

TEST(CTime, HasTheParts)
{
    const CTime t(2024, 2, 29, 23, 58, 7);
    EXPECT_EQ(2024, t.GetYear());
    EXPECT_EQ(2, t.GetMonth());
    EXPECT_EQ(29, t.GetDay());
    EXPECT_EQ(23, t.GetHour());
    EXPECT_EQ(58, t.GetMinute());
    EXPECT_EQ(7, t.GetSecond());
    EXPECT_EQ(5, t.GetDayOfWeek());
    SYSTEMTIME parts;
    ASSERT_TRUE(t.GetAsSystemTime(parts));
    EXPECT_EQ(4, parts.wDayOfWeek);
    EXPECT_EQ(t.GetTime(), CTime(parts).GetTime());
    EXPECT_EQ(0, CTime().GetTime());
    const auto now = static_cast<LONGLONG>(std::time(nullptr));
    EXPECT_NEAR(static_cast<double>(now), static_cast<double>(CTime::GetCurrentTime().GetTime()), 5.0);
}

TEST(CTime, ReadsFileTimes)
{
    EXPECT_EQ(0, CTime(FILETIME{0, 0}).GetTime());
    EXPECT_EQ(0, CTime(FILETIME{0xD53E8000, 0x019DB1DE}).GetTime());
    EXPECT_EQ(1, CTime(FILETIME{0xD53E8000 + 10000000, 0x019DB1DE}).GetTime());
}

TEST(CTime, RefusesWhatIsNoDate)
{
    EXPECT_TRUE(Refused([] { CTime(1899, 1, 1, 0, 0, 0); }));
    EXPECT_TRUE(Refused([] { CTime(2024, 13, 1, 0, 0, 0); }));
    EXPECT_TRUE(Refused([] { CTime(2024, 0, 1, 0, 0, 0); }));
    EXPECT_TRUE(Refused([] { CTime(2024, 1, 32, 0, 0, 0); }));
    EXPECT_TRUE(Refused([] { CTime(2024, 1, 1, 24, 0, 0); }));
    EXPECT_TRUE(Refused([] { CTime(2024, 1, 1, 0, 60, 0); }));
}

TEST(CTime, Formats)
{
    const CTime t(2024, 3, 5, 7, 8, 9);
    const struct {
        const char* format;
        const char* expected;
    } kRows[] = {
        {"%Y-%m-%d %H:%M:%S", "2024-03-05 07:08:09"},
        {"%y/%#m/%#d", "24/3/5"},
        {"%a %A %b %B", "Tue Tuesday Mar March"},
        {"%I %p %j %w", "07 AM 065 2"},
        {"%U %W", "09 10"},
        {"%c", "03/05/24 07:08:09"},
        {"%x|%X", "03/05/24|07:08:09"},
        {"100%% %q%", "100% %q%"},
        {"", ""},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.format);
        EXPECT_STREQ(row.expected, t.Format(row.format));
    }
    EXPECT_STREQ("12 AM", CTime(2024, 1, 1, 0, 0, 0).Format("%I %p"));
    EXPECT_STREQ("12 PM", CTime(2024, 1, 1, 12, 0, 0).Format("%I %p"));
    EXPECT_STREQ("1970-01-02 00:00:01", CTime(86401).FormatGmt("%Y-%m-%d %H:%M:%S"));
}

// The weeks of the year against the C library in its "C" locale.
TEST(CTime, CountsWeeksAsStrftimeDoes)
{
    for (LONGLONG day = 0; day < 3000; ++day) {
        const CTime t(day * 86400);
        tm parts;
        ASSERT_NE(nullptr, t.GetGmtTm(&parts));
        char expected[64];
        std::strftime(expected, sizeof expected, "%U %W %j %w %a", &parts);
        ASSERT_STREQ(expected, t.FormatGmt("%U %W %j %w %a"));
    }
}

TEST(CTimeSpan, CountsAndFormats)
{
    const CTimeSpan span(3, 4, 5, 6);
    EXPECT_EQ(3, span.GetDays());
    EXPECT_EQ(4, span.GetHours());
    EXPECT_EQ(5, span.GetMinutes());
    EXPECT_EQ(6, span.GetSeconds());
    EXPECT_EQ(76, span.GetTotalHours());
    EXPECT_EQ(273906, span.GetTotalSeconds());
    EXPECT_STREQ("3 days 04:05:06 100%", span.Format("%D days %H:%M:%S 100%%"));
    const CTime start(1000);
    EXPECT_EQ(274906, (start + span).GetTime());
    EXPECT_TRUE((start + span) - start == span);
    EXPECT_TRUE(start < start + span && span > CTimeSpan(0));
    CTime moved(start);
    moved += span;
    moved -= span;
    EXPECT_TRUE(moved == start);
}
