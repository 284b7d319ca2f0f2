#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>

#include "refhost/engine/PlanData.h"
#include "refhost/files/LeftOutList.h"
#include "refhost/files/ProjectNode.h"

namespace refhost {

/// The calendars of a project file, of which a plan has one.
class ProjectCalendars {
 public:
    ProjectCalendars(const ProjectNode& project, LeftOutList& leftOut);

    /// The project's calendar: its own days, for days that it does not define those of its base
    /// calendar, and without one those of the standard calendar. Nothing when the project names
    /// no calendar or one that the file lacks. Counts what is left out of it, and the other
    /// calendars. Raises kestrel::DataError, naming file and line, for unreadable days.
    std::optional<Calendar> OfProject();

    /// The project's CalendarUID; empty for none.
    const std::string& ProjectUid() const { return projectUid_; }

 private:
    Calendar Resolve(const std::string& uid);
    void ApplyWeekDay(const ProjectNode& day, Calendar& calendar);
    void ApplyException(const ProjectNode& exception, Calendar& calendar);
    void ApplyDates(const ProjectNode& exception, Calendar& calendar);
    Shifts ReadShifts(const ProjectNode& day);
    int ReadTimeOf(const ProjectNode& workingTime, std::string_view child);

    LeftOutList& leftOut_;
    std::string projectUid_;
    std::map<std::string, ProjectNode> calendars_;  ///< by UID
    std::set<std::string> used_;  ///< UIDs of the project's calendar and its bases
};

}  // namespace refhost
