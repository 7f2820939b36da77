#include "platform/system/strings.h"

#include <chrono>
#include <cmath>
#include <ctime>

namespace vorn {

namespace {

using namespace std::chrono;

constexpr sys_days dayZero{year{1899} / 12 / 30};
constexpr int secondsPerDay = 86400;

struct DateParts {
    year_month_day day;
    int seconds; // since midnight
};

/// None for a number that is no date of the years 1 to 9999.
std::optional<DateParts> Split(TDateTime value)
{
    if (!(value > -700'000 && value < 3'000'000))
        return std::nullopt;
    // Before day 0 the fraction still counts forwards: -1.25 is six in the morning of day -1.
    double day = std::trunc(value);
    int seconds = static_cast<int>(std::lround(std::fabs(value - day) * secondsPerDay));
    if (seconds == secondsPerDay) {
        seconds = 0;
        day += 1;
    }
    const year_month_day date{dayZero + days{static_cast<int>(day)}};
    const int theYear = static_cast<int>(date.year());
    if (theYear < 1 || theYear > 9999)
        return std::nullopt;
    return DateParts{date, seconds};
}

/// Hints hold dates by the thousand: the general formatting routines take several times as long.
void AppendDigits(String& text, int value, int count)
{
    const std::size_t start = text.size();
    text.append(static_cast<std::size_t>(count), u'0');
    for (std::size_t at = text.size(); value != 0 && at-- > start; value /= 10)
        text[at] = static_cast<char16_t>(u'0' + value % 10);
}

String Print(TDateTime value, bool iso)
{
    const auto parts = value == 0 ? std::nullopt : Split(value);
    if (!parts)
        return {};
    const int y = static_cast<int>(parts->day.year());
    const int m = static_cast<int>(static_cast<unsigned>(parts->day.month()));
    const int d = static_cast<int>(static_cast<unsigned>(parts->day.day()));
    String text;
    text.reserve(19);
    if (iso) {
        AppendDigits(text, y, 4);
        AppendDigits(text += u'-', m, 2);
        AppendDigits(text += u'-', d, 2);
    } else {
        AppendDigits(text, d, 2);
        AppendDigits(text += u'/', m, 2);
        AppendDigits(text += u'/', y, 4);
    }
    if (const int s = parts->seconds; s != 0) {
        AppendDigits(text += u' ', s / 3600, 2);
        AppendDigits(text += u':', s / 60 % 60, 2);
        AppendDigits(text += u':', s % 60, 2);
    }
    return text;
}

/// Reads exactly `count` digits off the front; -1 if they aren't there.
int TakeDigits(StringView& text, std::size_t count)
{
    if (text.size() < count)
        return -1;
    int value = 0;
    for (char16_t c : text.substr(0, count)) {
        if (c < u'0' || c > u'9')
            return -1;
        value = value * 10 + (c - u'0');
    }
    text.remove_prefix(count);
    return value;
}

bool Take(StringView& text, char16_t c)
{
    if (text.empty() || text.front() != c)
        return false;
    text.remove_prefix(1);
    return true;
}

/// "hh:nn", "hh:nn:ss" or "hh:nn:ss.fraction" as a part of a day; `text` is left with what follows.
std::optional<double> TakeTime(StringView& text)
{
    const int hours = TakeDigits(text, 2);
    if (hours < 0 || hours > 23 || !Take(text, u':'))
        return std::nullopt;
    const int minutes = TakeDigits(text, 2);
    if (minutes < 0 || minutes > 59)
        return std::nullopt;
    double seconds = 0;
    if (Take(text, u':')) {
        const int whole = TakeDigits(text, 2);
        if (whole < 0 || whole > 59)
            return std::nullopt;
        seconds = whole;
        if (Take(text, u'.')) {
            const std::size_t before = text.size();
            double unit = 0.1;
            for (int digit; (digit = TakeDigits(text, 1)) >= 0; unit /= 10)
                seconds += digit * unit;
            if (text.size() == before)
                return std::nullopt;
        }
    }
    return (hours * 3600 + minutes * 60 + seconds) / secondsPerDay;
}

} // namespace

TDate Date()
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return *EncodeDate(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
}

std::optional<TDate> EncodeDate(int y, int m, int d)
{
    if (y < 1 || y > 9999 || m < 1 || m > 12 || d < 1 || d > 31)
        return std::nullopt;
    const year_month_day date{year{y}, month{static_cast<unsigned>(m)}, day{static_cast<unsigned>(d)}};
    if (!date.ok())
        return std::nullopt;
    return static_cast<TDate>((sys_days{date} - dayZero).count());
}

String DateToIso(TDateTime value)
{
    return Print(value, true);
}

std::optional<TDateTime> IsoToDate(StringView text)
{
    const int y = TakeDigits(text, 4);
    if (y < 0 || !Take(text, u'-'))
        return std::nullopt;
    const int m = TakeDigits(text, 2);
    if (m < 0 || !Take(text, u'-'))
        return std::nullopt;
    const auto date = EncodeDate(y, m, TakeDigits(text, 2));
    if (!date || text.empty())
        return date;
    if (!Take(text, u' ') && !Take(text, u'T'))
        return std::nullopt;
    const auto time = TakeTime(text);
    if (!time || !text.empty())
        return std::nullopt;
    return *date < 0 ? *date - *time : *date + *time;
}

String DateToStr(TDateTime value)
{
    return Print(value, false);
}

} // namespace vorn
