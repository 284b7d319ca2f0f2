#include <map>
#include <utility>

#include "refhost/files/LeftOutList.h"
#include "refhost/files/PlanFile.h"
#include "refhost/files/ProjectCalendar.h"
#include "refhost/files/ProjectFields.h"
#include "refhost/files/ProjectLosses.h"
#include "refhost/files/ProjectOutline.h"
#include "refhost/files/ProjectTask.h"
#include "refhost/files/ProjectText.h"

namespace refhost {
namespace {

Minute ReadStart(const ProjectNode& project, LeftOutList& leftOut) {
    if (project.Word("StartDate").empty())
        project.Fail("the project has no StartDate; add one, like 2026-01-05T08:00:00.");
    const auto start = ReadProjectInstant(project.Word("StartDate"));
    if (!start)
        project.FailValue("StartDate", "a date from 1900 to 9999, like 2026-01-05T08:00:00");
    leftOut.AddIf(!start->exact, kPartsOfMinutes);
    return start->minutes;
}

DurationUnits ReadUnits(const ProjectNode& project) {
    DurationUnits units;
    units.day = project.Number("MinutesPerDay").value_or(units.day);
    units.week = project.Number("MinutesPerWeek").value_or(units.week);
    units.month = units.day * project.Number("DaysPerMonth").value_or(20);
    return units;
}

/// Appends the cost of each assignment to its task, named after the resource.
void ReadAssignmentCosts(const ProjectNode& project, const ProjectOutline& outline,
                         std::vector<TaskData>& tasks, LeftOutList& leftOut) {
    std::map<std::string, std::string> resources;
    for (const ProjectNode& resource : project.Items("Resources", "Resource"))
        resources.emplace(resource.Word("UID"), resource.Text("Name"));

    for (const ProjectNode& assignment : project.Items("Assignments", "Assignment")) {
        const double cost = assignment.Number("Cost").value_or(0);
        if (cost == 0) continue;
        const auto task = outline.byUid.find(assignment.Word("TaskUID"));
        if (task == outline.byUid.end()) {
            leftOut.Add("assignment costs of tasks that are left out");
            continue;
        }
        const auto resource = resources.find(assignment.Word("ResourceUID"));
        const bool named = resource != resources.end() && !resource->second.empty();
        tasks[static_cast<std::size_t>(task->second)].costItems.push_back(
            {named ? resource->second : "Unnamed resource", cost});
    }
}

}  // namespace

LoadedPlan ReadProject(const kestrel::XmlNode& root, const std::string& path) {
    const ProjectNode project(root, path);
    LeftOutList leftOut;
    PlanData plan;
    plan.name = project.Text(project.Word("Name").empty() ? "Title" : "Name");
    plan.start = ReadStart(project, leftOut);
    ProjectCalendars calendars(project, leftOut);
    plan.calendar = calendars.OfProject();

    const DurationUnits units = ReadUnits(project);
    const ProjectOutline outline = ReadOutline(project, leftOut);
    ProjectFields fields(project);
    for (const OutlineRow& row : outline.rows) {
        TaskData task = ReadProjectTask(row, outline, units, leftOut);
        task.userValues = fields.ValuesOf(row.node, leftOut);
        CountTaskLosses(row.node, row.summary, calendars.ProjectUid(), leftOut);
        plan.tasks.push_back(std::move(task));
    }
    ReadAssignmentCosts(project, outline, plan.tasks, leftOut);
    CountProjectLosses(project, leftOut);
    plan.userFields = fields.Take();
    return {std::move(plan), leftOut.Take()};
}

}  // namespace refhost
