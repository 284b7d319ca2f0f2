#pragma once

#include <string>

#include "refhost/engine/PlanData.h"

/// The units that a time scale is ruled in.
namespace refhost {

enum class CalendarUnit { Hour, TwoHours, SixHours, Day, Week, Month, Quarter, Year, Decade };

/// The start of the unit that holds the date. Weeks begin on Mondays.
Minute StartOfUnit(CalendarUnit unit, Minute date);

/// The start of the unit after the one that holds the date.
Minute NextUnit(CalendarUnit unit, Minute date);

/// How a unit is named.
enum class UnitName {
    HourOfDay,       ///< "08"
    DayOfMonth,      ///< "9"; of a week its Monday's
    WeekDay,         ///< "Mon 9"
    DayAndMonth,     ///< "9 Feb"
    FullDate,        ///< "9 February 2026"
    WeekDayDate,     ///< "Monday 9 February 2026"
    Month,           ///< "Feb"
    ShortMonthYear,  ///< "Feb 2026"
    MonthYear,       ///< "February 2026"
    Quarter,         ///< "Q1"
    Year,            ///< "2026"
    Decade,          ///< "2020s"
};

/// The name of the unit that starts at the date.
std::string UnitText(UnitName name, Minute start);

}  // namespace refhost
