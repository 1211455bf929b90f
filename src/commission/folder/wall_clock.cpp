// SPDX-License-Identifier: MIT
#include "commission/folder/wall_clock.h"

#include <chrono>
#include <cstdlib>
#include <ctime>

namespace zorvane::commission {

namespace {

constexpr std::int64_t msPerMinute = 60000;

/// A date of the proleptic Gregorian calendar with a time of day.
struct Date_Time {
    int year = 1970;
    unsigned month = 1;
    unsigned day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int ms = 0;
};

Date_Time dateTimeOf(std::int64_t ms) {
    using namespace std::chrono;
    const sys_time<milliseconds> moment{milliseconds{ms}};
    const auto midnight = floor<days>(moment);
    const year_month_day date{midnight};
    const hh_mm_ss<milliseconds> time{moment - midnight};
    return {int{date.year()},
            unsigned{date.month()},
            unsigned{date.day()},
            static_cast<int>(time.hours().count()),
            static_cast<int>(time.minutes().count()),
            static_cast<int>(time.seconds().count()),
            static_cast<int>(time.subseconds().count())};
}

/// A number from 0 with that many digits at least.
template <class Number> std::string digits(Number number, std::size_t width) {
    std::string text = std::to_string(number);
    return text.size() < width ? std::string(width - text.size(), '0') + text : text;
}

std::string dateText(const Date_Time& at, const char* separator) {
    return digits(at.year, 4) + separator + digits(at.month, 2) + separator + digits(at.day, 2);
}

std::string timeText(const Date_Time& at, const char* separator) {
    return digits(at.hour, 2) + separator + digits(at.minute, 2) + separator + digits(at.second, 2);
}

Date_Time localOf(const Wall_Time& time) { return dateTimeOf(time.utcMs + time.offsetMinutes * msPerMinute); }

} // namespace

Wall_Time System_Wall_Clock::now() const {
    const auto now = std::chrono::system_clock::now();
    Wall_Time time;
    time.utcMs = std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count();
    const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
    std::tm local{};
    if (::localtime_r(&seconds, &local) != nullptr)
        time.offsetMinutes = static_cast<std::int32_t>(local.tm_gmtoff / 60);
    return time;
}

std::string utcText(const Wall_Time& time) {
    const Date_Time at = dateTimeOf(time.utcMs);
    return dateText(at, "-") + "T" + timeText(at, ":") + "." + digits(at.ms, 3) + "Z";
}

std::string localText(const Wall_Time& time) {
    const Date_Time at = localOf(time);
    const int offset = std::abs(time.offsetMinutes);
    return dateText(at, "-") + "T" + timeText(at, ":") + (time.offsetMinutes < 0 ? "-" : "+") +
           digits(offset / 60, 2) + ":" + digits(offset % 60, 2);
}

std::string nameText(const Wall_Time& time) {
    const Date_Time at = localOf(time);
    return dateText(at, "") + "-" + timeText(at, "");
}

} // namespace zorvane::commission
