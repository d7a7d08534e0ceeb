#include "base/TimeStamp.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace TLGateway {

namespace {

constexpr std::int64_t SecondsPerDay = 86400;

bool IsLeapYear(int year) noexcept
{
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

int DaysOfMonth(int year, int month) noexcept
{
    constexpr std::array<int, 12> days = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && IsLeapYear(year) ? 29 : days[static_cast<std::size_t>(month - 1)];
}

// Days from 1970-01-01 to the given day of the Gregorian calendar. Years count from March, so that the
// leap day is the last of its year.
std::int64_t DaysFromDate(std::int64_t year, int month, int day) noexcept
{
    const std::int64_t y = month <= 2 ? year - 1 : year;
    const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
    const std::int64_t yearOfEra = y - era * 400;
    const std::int64_t dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    const std::int64_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * 146097 + dayOfEra - 719468;
}

struct Date
{
    std::int64_t year;
    int month;
    int day;
};

Date DateFromDays(std::int64_t days) noexcept
{
    days += 719468;
    const std::int64_t era = (days >= 0 ? days : days - 146096) / 146097;
    const std::int64_t dayOfEra = days - era * 146097;
    const std::int64_t yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const std::int64_t shifted = (5 * dayOfYear + 2) / 153;
    const int day = static_cast<int>(dayOfYear - (153 * shifted + 2) / 5 + 1);
    const int month = static_cast<int>(shifted < 10 ? shifted + 3 : shifted - 9);
    return {yearOfEra + era * 400 + (month <= 2 ? 1 : 0), month, day};
}

std::optional<int> Digits(std::string_view text, std::size_t from, std::size_t count) noexcept
{
    int value = 0;
    for (std::size_t i = from; i < from + count; ++i) {
        if (text[i] < '0' || text[i] > '9') {
            return std::nullopt;
        }
        value = value * 10 + (text[i] - '0');
    }
    return value;
}

} // namespace

std::optional<UnixTime> ParseTimeStamp(std::string_view text) noexcept
{
    if (text.size() != 19 || text[4] != '-' || text[7] != '-' || text[10] != ' ' || text[13] != ':' ||
        text[16] != ':') {
        return std::nullopt;
    }
    const auto year = Digits(text, 0, 4);
    const auto month = Digits(text, 5, 2);
    const auto day = Digits(text, 8, 2);
    const auto hour = Digits(text, 11, 2);
    const auto minute = Digits(text, 14, 2);
    const auto second = Digits(text, 17, 2);
    if (!year || !month || !day || !hour || !minute || !second) {
        return std::nullopt;
    }
    if (*month < 1 || *month > 12 || *day < 1 || *day > DaysOfMonth(*year, *month) || *hour > 23 ||
        *minute > 59 || *second > 59) {
        return std::nullopt;
    }
    return DaysFromDate(*year, *month, *day) * SecondsPerDay + UnixTime{*hour} * 3600 +
           UnixTime{*minute} * 60 + *second;
}

std::string FormatTimeStamp(UnixTime time)
{
    const UnixTime first = DaysFromDate(0, 1, 1) * SecondsPerDay;
    const UnixTime last = DaysFromDate(10000, 1, 1) * SecondsPerDay - 1;
    time = std::clamp(time, first, last);
    const std::int64_t days = (time >= 0 ? time : time - (SecondsPerDay - 1)) / SecondsPerDay;
    const int rest = static_cast<int>(time - days * SecondsPerDay);
    const Date date = DateFromDays(days);
    std::array<char, 64> text{};
    static_cast<void>(std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d:%02d",
                                    static_cast<int>(date.year), date.month, date.day, rest / 3600,
                                    rest / 60 % 60, rest % 60));
    return text.data();
}

} // namespace TLGateway
