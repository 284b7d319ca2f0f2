#include <algorithm>
#include <string>

#include "refhost/files/PlanReader.h"
#include "refhost/files/ShiftList.h"
#include "refhost/files/ValueText.h"

namespace refhost {
namespace {

constexpr std::string_view kTimeWanted = "a time from 00:00 to 24:00";

/// The `Shift` children of a day.
Shifts ReadShifts(const StrictElement& element) {
    Shifts shifts;
    for (const StrictElement& child : element.Children("Shift")) {
        child.Allow({"From", "To"}, {});
        const Shift shift{child.Value("From", ReadTime, kTimeWanted),
                          child.Value("To", ReadTime, kTimeWanted)};
        if (const auto complaint = AddShift(shifts, shift)) child.Fail(*complaint);
    }
    return shifts;
}

std::optional<std::size_t> ReadWeekDay(std::string_view text) {
    const auto found = std::find(kWeekDayNames.begin(), kWeekDayNames.end(), text);
    if (found == kWeekDayNames.end()) return std::nullopt;
    return static_cast<std::size_t>(found - kWeekDayNames.begin());
}

void ReadWeek(const StrictElement& element, Calendar& calendar) {
    std::array<bool, 7> seen{};
    for (const StrictElement& child : element.Children("Day")) {
        child.Allow({"Name"}, {"Shift"});
        const std::size_t day = child.Value("Name", ReadWeekDay, "Monday, Tuesday, ... or Sunday");
        if (seen[day])
            child.Fail("second Day named " + Quoted(kWeekDayNames[day]) +
                       "; keep only one of them.");
        seen[day] = true;
        calendar.week[day] = ReadShifts(child);
    }
}

void ReadException(const StrictElement& element, Calendar& calendar) {
    const bool works = element.Name() == "WorkingDay";
    if (works)
        element.Allow({"Date"}, {"Shift"});
    else
        element.Allow({"Date"}, {});
    const std::int32_t day =
        element.Value("Date", ReadDate, "a date from 1900 to 9999, like 2026-12-25");
    const Shifts shifts = ReadShifts(element);
    if (!calendar.exceptions.emplace(day, shifts).second)
        element.Fail("the date " + DateText(day) +
                     " is a Holiday or WorkingDay already; keep only one of them.");
}

}  // namespace

Calendar ReadCalendar(const StrictElement& element) {
    element.Allow({}, {"Day", "Holiday", "WorkingDay"});
    Calendar calendar;
    ReadWeek(element, calendar);
    for (const StrictElement& child : element.Children())
        if (child.Name() != "Day") ReadException(child, calendar);
    return calendar;
}

}  // namespace refhost
