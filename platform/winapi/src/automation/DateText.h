// Calendar days behind automation dates.
#pragma once

#include <wtypes.h>

#include <string>
#include <string_view>

struct DateParts {
    int year = 0, month = 0, day = 0;
    int hour = 0, minute = 0, second = 0;
};

// False outside the years 100 to 9999.
bool PartsOfDate(DATE date, DateParts& parts);

// What lies beyond the end of its minute, hour, day or month counts on into the next.
DATE DateOfParts(const DateParts& parts);

bool IsDateInRange(double date);
int DaysInMonth(int year, int month);

// "1/31/2000", "1/31/2000 6:05:00 PM", or the time alone on day zero.
std::string DateToText(const DateParts& parts);

// Reads month/day/year, year-month-day, hour:minute[:second] [AM|PM], or a day and a time.
bool ParseDate(std::u16string_view text, DateParts& parts);
