#pragma once

#include <optional>
#include <vector>

#include "refhost/engine/PlanData.h"
#include "refhost/files/project/LeftOutList.h"
#include "refhost/files/project/ProjectOutline.h"

namespace refhost {

/// When a row starts and finishes as the file's own program shows it.
struct RowDates {
    std::optional<Minute> start, finish;

    bool Both() const { return start && finish && *finish >= *start; }
};

/// The dates of a project file.
struct ProjectDates {
    Minute planStart = 0;        ///< the earliest start of a task, or StartDate if that is earlier
    Minute projectStart = 0;     ///< StartDate; without one, as planStart
    Minute last = 0;             ///< the latest date of the project or a task
    std::vector<RowDates> rows;  ///< as the outline's rows
};

/// Raises kestrel::DataError, naming file and line, for an unreadable StartDate and for a file in
/// which nothing has a start.
ProjectDates ReadDates(const ProjectNode& project, const ProjectOutline& outline,
                       LeftOutList& leftOut);

}  // namespace refhost
