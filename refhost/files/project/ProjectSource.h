#pragma once

#include "refhost/engine/WorkCalendar.h"
#include "refhost/files/project/LeftOutList.h"
#include "refhost/files/project/ProjectAssignments.h"
#include "refhost/files/project/ProjectCalendar.h"
#include "refhost/files/project/ProjectDates.h"
#include "refhost/files/project/ProjectOutline.h"
#include "refhost/files/project/ProjectText.h"

namespace refhost {

/// What the tasks of a project file are read from; all must outlive it.
struct ProjectSource {
    const ProjectOutline& outline;
    const ProjectDates& dates;
    const ProjectAssignments& assignments;
    ProjectCalendars& calendars;
    WorkCalendar& workingTime;  ///< of the plan, from its start
    DurationUnits units;
    double workShare = 0;     ///< of a week that is working time
    bool fromFinish = false;  ///< scheduled backwards from the project's finish
    LeftOutList& leftOut;
};

/// Working minutes between two dates; at most what a duration can hold.
std::int32_t WorkingMinutesBetween(WorkCalendar& workingTime, Minute from, Minute to);

/// Formats of durations and lags are a code a unit; from 35 on the same units, estimated.
constexpr bool IsPercentage(std::int64_t format) {
    return format == 19 || format == 20 || format == 51 || format == 52;
}
/// Passing day and night, on working days and others.
constexpr bool IsElapsed(std::int64_t format) {
    return format % 2 == 0 && ((format >= 4 && format <= 12) || (format >= 36 && format <= 44));
}

}  // namespace refhost
