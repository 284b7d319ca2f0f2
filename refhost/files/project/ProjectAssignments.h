#pragma once

#include <string>
#include <vector>

#include "refhost/engine/WorkCalendar.h"
#include "refhost/files/project/ProjectCalendar.h"
#include "refhost/files/project/ProjectOutline.h"

namespace refhost {

/// What the assignments of resources say of a task.
struct TaskAssignments {
    struct Cost {
        std::string resource;
        double amount = 0;  ///< as written: see MoneyReading
    };
    std::vector<Cost> costs;   ///< other than 0, in file order
    bool ownCalendar = false;  ///< a resource has other working time than the plan
    bool interrupted = false;  ///< the work pauses in between
};

struct ProjectAssignments {
    std::vector<TaskAssignments> tasks;  ///< as the outline's rows
    /// Assignments whose cost is rate times work: in hundredths, and in whole units.
    int inHundredths = 0, inWhole = 0;
};

/// Raises kestrel::DataError, naming file and line, for figures that cannot be read.
ProjectAssignments ReadAssignments(const ProjectNode& project, const ProjectOutline& outline,
                                   ProjectCalendars& calendars, WorkCalendar& workingTime,
                                   LeftOutList& leftOut);

}  // namespace refhost
