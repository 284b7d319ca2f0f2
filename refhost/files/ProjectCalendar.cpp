#include "refhost/files/ProjectCalendar.h"

#include <utility>

#include "refhost/files/ProjectText.h"
#include "refhost/files/ShiftList.h"

namespace refhost {
namespace {

/// Longer runs of exception days are taken for a mistake: each day is kept by itself.
constexpr std::int64_t kLongestExceptionDays = 36525;

/// Whether an exception comes back after gaps. Type 1 is daily, every `Period` days.
bool IsRecurring(const ProjectNode& exception) {
    return exception.Integer("Type").value_or(1) != 1 ||
           exception.Integer("Period").value_or(1) > 1;
}

}  // namespace

ProjectCalendars::ProjectCalendars(const ProjectNode& project, LeftOutList& leftOut)
    : leftOut_(leftOut), projectUid_(project.Word("CalendarUID")) {
    if (projectUid_ == "-1") projectUid_.clear();
    for (const ProjectNode& calendar : project.Items("Calendars", "Calendar"))
        calendars_.emplace(calendar.Word("UID"), calendar);
}

std::optional<Calendar> ProjectCalendars::OfProject() {
    std::optional<Calendar> calendar;
    if (calendars_.contains(projectUid_))
        calendar = Resolve(projectUid_);
    else
        leftOut_.AddIf(!projectUid_.empty(),
                       "project calendars that the file does not hold (Monday to Friday, "
                       "08:00-12:00 and 13:00-17:00 taken instead)");
    for (const auto& [uid, other] : calendars_) {
        if (used_.contains(uid)) continue;
        leftOut_.Add(other.Word("IsBaseCalendar") == "0" ? "calendars of resources"
                                                         : "calendars other than the project's");
    }
    return calendar;
}

Calendar ProjectCalendars::Resolve(const std::string& uid) {
    used_.insert(uid);
    const ProjectNode& node = calendars_.at(uid);
    const std::string base = node.Word("BaseCalendarUID");
    // A calendar that is its own base, directly or not, ends the chain.
    Calendar calendar =
        calendars_.contains(base) && !used_.contains(base) ? Resolve(base) : Calendar::Standard();
    for (const ProjectNode& day : node.Items("WeekDays", "WeekDay")) ApplyWeekDay(day, calendar);
    for (const ProjectNode& exception : node.Items("Exceptions", "Exception"))
        ApplyException(exception, calendar);
    for (const ProjectNode& week : node.Items("WorkWeeks", "WorkWeek"))
        leftOut_.AddIf(week.Child("WeekDays").has_value(),
                       "work weeks that hold for a part of the calendar");
    return calendar;
}

/// DayType 1 is Sunday, 7 Saturday; 0 is an exception in the older form.
void ProjectCalendars::ApplyWeekDay(const ProjectNode& day, Calendar& calendar) {
    const auto type = day.Integer("DayType");
    if (!type || *type < 0 || *type > 7)
        day.FailValue("DayType", "0 for an exception or 1 (Sunday) to 7 (Saturday)");
    if (*type == 0)
        ApplyDates(day, calendar);
    else
        calendar.week[static_cast<std::size_t>((*type + 5) % 7)] = ReadShifts(day);
}

void ProjectCalendars::ApplyException(const ProjectNode& exception, Calendar& calendar) {
    const auto period = exception.Child("TimePeriod");
    const bool oneDay =
        period && period->Word("FromDate").substr(0, 10) == period->Word("ToDate").substr(0, 10);
    if (IsRecurring(exception) && !oneDay)
        leftOut_.Add("recurring calendar exceptions");
    else
        ApplyDates(exception, calendar);
}

void ProjectCalendars::ApplyDates(const ProjectNode& exception, Calendar& calendar) {
    const auto period = exception.Child("TimePeriod");
    const auto from = ReadProjectInstant(period ? period->Word("FromDate") : "");
    const auto to = ReadProjectInstant(period ? period->Word("ToDate") : "");
    if (!from || !to) {
        leftOut_.Add("calendar exceptions without dates from 1900 to 9999");
        return;
    }
    const std::int64_t first = from->minutes / kMinutesPerDay;
    // The last minute may have been rounded up to the next midnight: the date is what counts.
    const std::int64_t last =
        ReadProjectInstant(period->Word("ToDate").substr(0, 10))->minutes / kMinutesPerDay;
    if (last < first || last - first > kLongestExceptionDays)
        exception.Fail("a calendar exception runs from " + period->Word("FromDate") + " to " +
                       period->Word("ToDate") +
                       "; correct its dates, it may last up to 100 years.");
    const Shifts shifts = ReadShifts(exception);
    for (std::int64_t day = first; day <= last; ++day)
        calendar.exceptions[static_cast<std::int32_t>(day)] = shifts;
}

Shifts ProjectCalendars::ReadShifts(const ProjectNode& day) {
    const auto times = day.Items("WorkingTimes", "WorkingTime");
    const bool works = day.Word("DayWorking").empty() ? !times.empty() : day.Flag("DayWorking");
    if (!works) return {};
    if (times.empty()) return Calendar::Standard().week[0];
    Shifts shifts;
    for (const ProjectNode& time : times) {
        if (time.Word("FromTime").empty() && time.Word("ToTime").empty()) continue;
        Shift shift{ReadTimeOf(time, "FromTime"), ReadTimeOf(time, "ToTime")};
        if (shift.to == 0) shift.to = static_cast<int>(kMinutesPerDay);
        if (const auto complaint = AddShift(shifts, shift)) time.Fail(*complaint);
    }
    return shifts;
}

int ProjectCalendars::ReadTimeOf(const ProjectNode& workingTime, std::string_view child) {
    const auto time = ReadProjectTime(workingTime.Word(child));
    if (!time) workingTime.FailValue(child, "a time from 00:00:00 to 24:00:00");
    leftOut_.AddIf(!time->exact, kPartsOfMinutes);
    return static_cast<int>(time->minutes);
}

}  // namespace refhost
