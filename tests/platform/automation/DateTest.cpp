#include <gtest/gtest.h>

#include <windows.h>
#include <oleauto.h>

#include <string>

namespace {

SYSTEMTIME Time(int year, int month, int day, int hour = 0, int minute = 0, int second = 0)
{
    const auto word = [](int number) { return static_cast<WORD>(number); };
    return {word(year), word(month), 0, word(day), word(hour), word(minute), word(second), 0};
}

struct Row {
    const char* label;
    SYSTEMTIME time;
    double date;
    int weekday;
};

TEST(Date, DaysAndTimesBothWays)
{
    const Row rows[] = {
        {"day zero", Time(1899, 12, 30), 0, 6},
        {"the day after", Time(1899, 12, 31), 1, 0},
        {"noon", Time(1899, 12, 30, 12), 0.5, 6},
        {"before day zero", Time(1899, 12, 29, 6), -1.25, 5},
        {"epoch", Time(1970, 1, 1), 25569, 4},
        {"leap day", Time(2000, 2, 29), 36585, 2},
        {"no leap day in 1900", Time(1900, 3, 1), 61, 4},
        {"last", Time(9999, 12, 31), 2958465, 5},
        {"first", Time(100, 1, 1), -657434, 5},
        {"evening", Time(2024, 5, 17, 18, 30, 15), 45429.771006944444, 5},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.label);
        SYSTEMTIME time = row.time;
        double date = -1;
        EXPECT_EQ(SystemTimeToVariantTime(&time, &date), TRUE);
        EXPECT_NEAR(date, row.date, 1e-9);
        SYSTEMTIME back = {};
        EXPECT_EQ(VariantTimeToSystemTime(row.date, &back), TRUE);
        EXPECT_EQ(back.wYear, row.time.wYear);
        EXPECT_EQ(back.wMonth, row.time.wMonth);
        EXPECT_EQ(back.wDay, row.time.wDay);
        EXPECT_EQ(back.wDayOfWeek, row.weekday);
        EXPECT_EQ(back.wHour, row.time.wHour);
        EXPECT_EQ(back.wMinute, row.time.wMinute);
        EXPECT_EQ(back.wSecond, row.time.wSecond);
    }
}

TEST(Date, RefusesWhatIsNoDate)
{
    double date = 0;
    for (SYSTEMTIME time : {Time(2000, 13, 1), Time(2000, 1, 32)})
        EXPECT_EQ(SystemTimeToVariantTime(&time, &date), FALSE);
    SYSTEMTIME time = {};
    EXPECT_EQ(VariantTimeToSystemTime(2958466, &time), FALSE);
    EXPECT_EQ(VariantTimeToSystemTime(-657435, &time), FALSE);
}

TEST(Date, CountsOnBeyondTheEndOfAMonthOrDay)
{
    const struct {
        SYSTEMTIME time;
        double date;
    } rows[] = {
        {Time(2001, 2, 31), 36953}, {Time(2000, 1, 1, 24), 36527}, {Time(2000, 1, 1, 0, 90), 36526.0625}};
    for (const auto& row : rows) {
        SYSTEMTIME time = row.time;
        double date = 0;
        EXPECT_EQ(SystemTimeToVariantTime(&time, &date), TRUE);
        EXPECT_NEAR(date, row.date, 1e-9);
    }
}

// Every day between two dates, counted one by one.
TEST(Date, CountsEveryDay)
{
    constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    double expected = 2; // 1900-01-01
    for (int year = 1900; year < 2105; ++year)
        for (int month = 1; month <= 12; ++month) {
            const bool leap = month == 2 && (year % 4 == 0 && (year % 100 != 0 || year % 400 == 0));
            for (int day = 1; day <= kDays[month - 1] + (leap ? 1 : 0); ++day, ++expected) {
                SYSTEMTIME time = Time(year, month, day);
                double date = 0;
                ASSERT_EQ(SystemTimeToVariantTime(&time, &date), TRUE);
                ASSERT_EQ(date, expected) << year << '-' << month << '-' << day;
            }
        }
}

TEST(Date, TextsBothWays)
{
    const struct {
        const OLECHAR* text;
        HRESULT result;
        double date;
        const OLECHAR* back;
    } rows[] = {
        {OLESTR("5/17/2024"), S_OK, 45429, OLESTR("5/17/2024")},
        {OLESTR("2024-05-17"), S_OK, 45429, OLESTR("5/17/2024")},
        {OLESTR("5/17/2024 6:30:15 PM"), S_OK, 45429.771006944444, OLESTR("5/17/2024 6:30:15 PM")},
        {OLESTR("18:30"), S_OK, 0.77083333333333337, OLESTR("6:30:00 PM")},
        {OLESTR("12:00:00 AM"), S_OK, 0, OLESTR("12:00:00 AM")},
        {OLESTR("2/30/2024"), DISP_E_TYPEMISMATCH, 0, OLESTR("")},
        {OLESTR("nonsense"), DISP_E_TYPEMISMATCH, 0, OLESTR("")},
        {OLESTR(""), DISP_E_TYPEMISMATCH, 0, OLESTR("")},
    };
    for (const auto& row : rows) {
        VARIANT value = {};
        V_VT(&value) = VT_BSTR;
        V_BSTR(&value) = SysAllocString(row.text);
        SCOPED_TRACE(std::string(row.text, row.text + SysStringLen(V_BSTR(&value))));
        EXPECT_EQ(VariantChangeTypeEx(&value, &value, 0x409, VARIANT_NOUSEROVERRIDE, VT_DATE), row.result);
        if (SUCCEEDED(row.result)) {
            EXPECT_NEAR(V_DATE(&value), row.date, 1e-9);
            EXPECT_EQ(VariantChangeTypeEx(&value, &value, 0x409, VARIANT_NOUSEROVERRIDE, VT_BSTR), S_OK);
            EXPECT_EQ(std::basic_string<OLECHAR>(V_BSTR(&value)), row.back);
        }
        VariantClear(&value);
    }
}

} // namespace
