#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "refhost/engine/PlanData.h"
#include "refhost/files/project/ExceptionDays.h"
#include "refhost/files/project/LeftOutList.h"
#include "refhost/files/project/ProjectNode.h"

namespace refhost {

/// The calendars of a project file, of which a plan has one.
///
/// A calendar is its own week days over those of its base calendar (without one, those of the
/// standard calendar); work weeks go before week days, exceptions before both. What recurs or
/// lasts long is expanded within `horizon`, the days that matter to the plan.
class ProjectCalendars {
 public:
    /// Raises kestrel::DataError, naming file and line, for a chain of more than 100 base
    /// calendars.
    ProjectCalendars(const ProjectNode& project, const DayRange& horizon, LeftOutList& leftOut);

    /// The project's calendar; where the file names none that it holds, its only base calendar
    /// or the one called "Standard". Nothing when there is no such either. Raises
    /// kestrel::DataError, naming file and line, for unreadable days and for exceptions of more
    /// than 4,000,000 days together.
    const std::optional<Calendar>& OfProject() const { return plan_; }

    /// Whether the calendar, of a task or a resource, has other working time than the project's.
    /// Not for an empty UID, "-1" or one that the file does not hold.
    bool DiffersFromPlan(const std::string& uid);

 private:
    /// What a calendar says by itself.
    struct Own {
        std::array<std::optional<Shifts>, 7> week;
        std::map<std::int32_t, Shifts> weeks;  ///< the days of its work weeks
        std::map<std::int32_t, Shifts> exceptions;
    };

    void CheckChains() const;
    std::string BaseOf(const std::string& uid) const;
    /// From the root of its bases to the calendar itself. One that is its own base, directly or
    /// not, ends the chain.
    std::vector<std::string> ChainTo(const std::string& uid) const;
    std::string ChooseProjectUid(const ProjectNode& project);
    Calendar Resolve(const std::string& uid);
    bool Compare(const std::string& uid);
    const Own& OwnOf(const std::string& uid);
    void ReadDay(const ProjectNode& day, Own& own);
    void ReadWorkWeek(const ProjectNode& week, Own& own);
    void ReadException(const ProjectNode& exception, Own& own);
    void Spend(std::int64_t days, const ProjectNode& node);
    Shifts ReadShifts(const ProjectNode& day);
    int ReadTimeOf(const ProjectNode& workingTime, std::string_view child);

    DayRange horizon_;
    LeftOutList& leftOut_;
    std::map<std::string, ProjectNode> calendars_;  ///< by UID
    std::map<std::string, Own> own_;                ///< of those read so far
    std::map<std::string, bool> differs_;
    std::string projectUid_;
    std::optional<Calendar> plan_;
    std::int64_t daysSpent_ = 0;
};

}  // namespace refhost
