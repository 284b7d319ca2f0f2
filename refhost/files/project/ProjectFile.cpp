#include <algorithm>
#include <utility>

#include "base/Errors.h"
#include "refhost/files/PlanFile.h"
#include "refhost/files/project/DateComparison.h"
#include "refhost/files/project/ProjectConstraints.h"
#include "refhost/files/project/ProjectCosts.h"
#include "refhost/files/project/ProjectDuration.h"
#include "refhost/files/project/ProjectFields.h"
#include "refhost/files/project/ProjectLosses.h"

namespace refhost {
namespace {

/// How far behind its dates an analysis may carry a plan, and how long a plan may be.
constexpr std::int64_t kRoomDays = 20 * 366;
constexpr std::int64_t kLongestSpanDays = 100 * 366;

DayRange HorizonOf(const ProjectDates& dates) {
    const std::int64_t first = dates.planStart / kMinutesPerDay;
    return {first, std::min(dates.last / kMinutesPerDay + kRoomDays, first + kLongestSpanDays)};
}

DurationUnits ReadUnits(const ProjectNode& project) {
    DurationUnits units;
    units.day = project.Number("MinutesPerDay").value_or(units.day);
    units.week = project.Number("MinutesPerWeek").value_or(units.week);
    units.month = units.day * project.Number("DaysPerMonth").value_or(20);
    return units;
}

double WorkShareOf(const Calendar& calendar) {
    double minutes = 0;
    for (const Shifts& day : calendar.week)
        for (const Shift& shift : day) minutes += shift.to - shift.from;
    return minutes / static_cast<double>(calendar.week.size() * kMinutesPerDay);
}

bool IsScheduledFromFinish(const ProjectNode& project) {
    const std::string word = project.Word("ScheduleFromStart");
    return word == "0" || word == "false";
}

WorkCalendar WorkingTimeOf(const PlanData& plan, const std::string& path) {
    try {
        return {plan.calendar.value_or(Calendar::Standard()), plan.start};
    } catch (const kestrel::DataError& error) {
        throw kestrel::DataError(path + ": " + error.what());
    }
}

/// The rows as tasks without links, dates and costs.
std::vector<TaskData> ReadTasks(const ProjectSource& source, ProjectFields& fields) {
    std::vector<TaskData> tasks;
    for (std::size_t i = 0; i < source.outline.rows.size(); ++i) {
        const OutlineRow& row = source.outline.rows[i];
        TaskData task;
        task.id = row.id;
        task.uid = row.uid;
        task.name = row.node.Text("Name");
        task.type = row.summary ? kSummary : kOrdinary;
        task.parent = row.parent;
        if (!row.summary && !row.external) task.duration = ReadDuration(source, i);
        task.userValues = fields.ValuesOf(row.node, source.leftOut);
        CountTaskLosses(row.node, row.summary, source.leftOut);
        tasks.push_back(std::move(task));
    }
    return tasks;
}

void PlaceTasks(const ProjectSource& source, const std::vector<RowLinks>& links,
                const ImportOptions& options, std::vector<TaskData>& tasks) {
    for (std::size_t i = 0; i < tasks.size(); ++i) {
        tasks[i].noEarlierThan = ReadNoEarlierThan(source, links[i], i);
        const OutlineRow& row = source.outline.rows[i];
        const auto& shown = source.dates.rows[i].start;
        if (options.keepDates && shown && !row.summary && !row.external)
            tasks[i].noEarlierThan = shown;
    }
}

}  // namespace

LoadedPlan ReadProject(const kestrel::XmlNode& root, const std::string& path,
                       const ImportOptions& options) {
    const ProjectNode project(root, path);
    LeftOutList leftOut;
    PlanData plan;
    plan.name = project.Text(project.Word("Name").empty() ? "Title" : "Name");
    const ProjectOutline outline = ReadOutline(project, leftOut);
    const ProjectDates dates = ReadDates(project, outline, leftOut);
    plan.start = dates.planStart;
    ProjectCalendars calendars(project, HorizonOf(dates), leftOut);
    plan.calendar = calendars.OfProject();

    WorkCalendar workingTime = WorkingTimeOf(plan, path);
    const ProjectAssignments assignments =
        ReadAssignments(project, outline, calendars, workingTime, leftOut);
    const ProjectSource source{outline,
                               dates,
                               assignments,
                               calendars,
                               workingTime,
                               ReadUnits(project),
                               WorkShareOf(plan.calendar.value_or(Calendar::Standard())),
                               IsScheduledFromFinish(project),
                               leftOut};
    ProjectFields fields(project);
    plan.tasks = ReadTasks(source, fields);
    const std::vector<RowLinks> links = ReadLinks(source, plan.tasks);
    PlaceTasks(source, links, options, plan.tasks);
    ImportReport report;
    report.money = ReadCosts(outline, assignments, options, plan.tasks);
    CountProjectLosses(project, leftOut);
    plan.userFields = fields.Take();
    report.dates = CompareDates(plan, outline, dates, links);
    for (const MovedTask& task : report.dates.moved)
        leftOut.AddMovingIf(task.zeroPercentLag,
                            "percentage lags of 0 on tasks that moved (the file's writer may have "
                            "lost the percentage)");
    report.leftOut = leftOut.Take();
    return {std::move(plan), std::move(report)};
}

}  // namespace refhost
