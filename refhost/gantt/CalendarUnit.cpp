#include "refhost/gantt/CalendarUnit.h"

#include <array>
#include <chrono>
#include <stdexcept>

namespace refhost {
namespace {

using namespace std::chrono;

constexpr sys_days kDayZero = sys_days(year{1899} / December / 30);

constexpr std::array<const char*, 12> kMonths = {"January",   "February", "March",    "April",
                                                 "May",       "June",     "July",     "August",
                                                 "September", "October",  "November", "December"};
constexpr std::array<const char*, 7> kWeekDays = {"Monday", "Tuesday",  "Wednesday", "Thursday",
                                                  "Friday", "Saturday", "Sunday"};

/// Start of the piece of `length` minutes, counted from `origin`, that holds the date.
Minute Floor(Minute date, Minute length, Minute origin = 0) {
    const Minute into = ((date - origin) % length + length) % length;
    return date - into;
}

year_month_day DateOf(Minute instant) {
    return year_month_day(kDayZero + days(Floor(instant, kMinutesPerDay) / kMinutesPerDay));
}

Minute MinuteOf(year_month_day date) {
    return (sys_days(date) - kDayZero).count() * kMinutesPerDay;
}

/// Months that the unit is long; 0 for one of fixed length.
int MonthsOf(CalendarUnit unit) {
    switch (unit) {
        case CalendarUnit::Month:
            return 1;
        case CalendarUnit::Quarter:
            return 3;
        case CalendarUnit::Year:
            return 12;
        case CalendarUnit::Decade:
            return 120;
        default:
            return 0;
    }
}

Minute MinutesOf(CalendarUnit unit) {
    switch (unit) {
        case CalendarUnit::Hour:
            return 60;
        case CalendarUnit::TwoHours:
            return 120;
        case CalendarUnit::SixHours:
            return 360;
        case CalendarUnit::Week:
            return 7 * kMinutesPerDay;
        default:
            return kMinutesPerDay;
    }
}

}  // namespace

Minute StartOfUnit(CalendarUnit unit, Minute date) {
    constexpr Minute kFirstMonday = 2 * kMinutesPerDay;  // 1900-01-01
    if (const int length = MonthsOf(unit)) {
        const year_month_day day = DateOf(date);
        const int months = static_cast<int>(day.year()) * 12 +
                           static_cast<int>(static_cast<unsigned>(day.month())) - 1;
        const int start = months - months % length;
        return MinuteOf(year{start / 12} / month{static_cast<unsigned>(start % 12 + 1)} / 1);
    }
    return Floor(date, MinutesOf(unit), unit == CalendarUnit::Week ? kFirstMonday : 0);
}

Minute NextUnit(CalendarUnit unit, Minute date) {
    const Minute start = StartOfUnit(unit, date);
    if (const int length = MonthsOf(unit)) return MinuteOf(DateOf(start) + months(length));
    return start + MinutesOf(unit);
}

std::string UnitText(UnitName name, Minute start) {
    const year_month_day date = DateOf(start);
    const std::string day = std::to_string(static_cast<unsigned>(date.day()));
    const std::string monthName = kMonths[static_cast<unsigned>(date.month()) - 1];
    const std::string yearText = std::to_string(static_cast<int>(date.year()));
    const auto weekDay = [&] {
        return std::string(kWeekDays[weekday(sys_days(date)).iso_encoding() - 1]);
    };
    switch (name) {
        case UnitName::HourOfDay: {
            const Minute hour = Floor(start, 60) - Floor(start, kMinutesPerDay);
            return (hour < 600 ? "0" : "") + std::to_string(hour / 60);
        }
        case UnitName::DayOfMonth:
            return day;
        case UnitName::WeekDay:
            return weekDay().substr(0, 3) + " " + day;
        case UnitName::DayAndMonth:
            return day + " " + monthName.substr(0, 3);
        case UnitName::FullDate:
            return day + " " + monthName + " " + yearText;
        case UnitName::WeekDayDate:
            return weekDay() + " " + day + " " + monthName + " " + yearText;
        case UnitName::Month:
            return monthName.substr(0, 3);
        case UnitName::ShortMonthYear:
            return monthName.substr(0, 3) + " " + yearText;
        case UnitName::MonthYear:
            return monthName + " " + yearText;
        case UnitName::Quarter:
            return "Q" + std::to_string((static_cast<unsigned>(date.month()) + 2) / 3);
        case UnitName::Year:
            return yearText;
        case UnitName::Decade:
            return yearText + "s";
    }
    throw std::logic_error("a unit has no such name");
}

}  // namespace refhost
