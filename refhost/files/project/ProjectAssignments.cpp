#include "refhost/files/project/ProjectAssignments.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

#include "refhost/files/project/ProjectText.h"

namespace refhost {
namespace {

struct Resource {
    std::string name;
    std::string calendar;
    double rate = 0;  ///< of an hour's work, in whole units of the currency
};

std::map<std::string, Resource> ReadResources(const ProjectNode& project) {
    constexpr std::int64_t kWork = 1;
    std::map<std::string, Resource> resources;
    for (const ProjectNode& node : project.Items("Resources", "Resource")) {
        const bool works = node.Integer("Type").value_or(kWork) == kWork;
        resources.emplace(node.Word("UID"),
                          Resource{node.Text("Name"), works ? node.Word("CalendarUID") : "",
                                   works ? node.Number("StandardRate").value_or(0) : 0});
    }
    return resources;
}

/// Whether parts of the work that follow one another leave working time between them.
bool IsInterrupted(const ProjectNode& assignment, WorkCalendar& workingTime) {
    constexpr std::int64_t kRemainingWork = 1, kActualWork = 2;
    std::vector<std::pair<Minute, Minute>> parts;
    for (const ProjectNode& part : assignment.Children("TimephasedData")) {
        const std::int64_t type = part.Integer("Type").value_or(0);
        if ((type != kRemainingWork && type != kActualWork) || !part.Says("Value")) continue;
        const auto from = ReadProjectInstant(part.Word("Start"));
        const auto to = ReadProjectInstant(part.Word("Finish"));
        if (from && to) parts.emplace_back(from->minutes, to->minutes);
    }
    std::sort(parts.begin(), parts.end());
    for (std::size_t i = 1; i < parts.size(); ++i) {
        parts[i].second = std::max(parts[i].second, parts[i - 1].second);
        if (workingTime.WorkingMinutesUntil(parts[i].first) >
            workingTime.WorkingMinutesUntil(parts[i - 1].second))
            return true;
    }
    return false;
}

/// Counts an assignment whose cost shows in which unit the file writes money.
void WeighUnit(const ProjectNode& assignment, double rate, double cost, ProjectAssignments& all) {
    constexpr double kTolerance = 0.01;
    const auto work = ReadProjectDuration(assignment.Word("Work"), DurationUnits{});
    if (!work || work->minutes == 0 || rate <= 0) return;
    const double ratio = cost / (rate * static_cast<double>(work->minutes) / 60);
    if (std::abs(ratio - 100) < 100 * kTolerance) ++all.inHundredths;
    if (std::abs(ratio - 1) < kTolerance) ++all.inWhole;
}

}  // namespace

ProjectAssignments ReadAssignments(const ProjectNode& project, const ProjectOutline& outline,
                                   ProjectCalendars& calendars, WorkCalendar& workingTime,
                                   LeftOutList& leftOut) {
    const std::map<std::string, Resource> resources = ReadResources(project);
    ProjectAssignments all;
    all.tasks.resize(outline.rows.size());
    for (const ProjectNode& node : project.Items("Assignments", "Assignment")) {
        const auto named = resources.find(node.Word("ResourceUID"));
        const Resource resource = named == resources.end() ? Resource{} : named->second;
        const double cost = node.Number("Cost").value_or(0);
        WeighUnit(node, resource.rate, cost, all);
        const auto row = outline.byUid.find(node.Word("TaskUID"));
        if (row == outline.byUid.end()) {
            leftOut.AddMovingIf(cost != 0, "assignment costs of tasks that are left out");
            continue;
        }
        TaskAssignments& task = all.tasks[static_cast<std::size_t>(row->second)];
        if (cost != 0)
            task.costs.push_back(
                {resource.name.empty() ? "Unnamed resource" : resource.name, cost});
        task.ownCalendar |= calendars.DiffersFromPlan(resource.calendar);
        task.interrupted |= IsInterrupted(node, workingTime);
    }
    return all;
}

}  // namespace refhost
