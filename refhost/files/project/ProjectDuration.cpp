#include "refhost/files/project/ProjectDuration.h"

#include <limits>

#include "base/NumberText.h"

namespace refhost {
namespace {

/// Whether working time passes between the parts of a started task.
bool IsSplitAtStop(const ProjectSource& source, const ProjectNode& node) {
    const auto stop = ReadProjectInstant(node.Word("Stop"));
    const auto resume = ReadProjectInstant(node.Word("Resume"));
    return stop && resume &&
           WorkingMinutesBetween(source.workingTime, stop->minutes, resume->minutes) > 0;
}

/// Why the duration is not simply the working time that the file states; empty when it is.
std::string_view Peculiarity(const ProjectSource& source, std::size_t index) {
    const ProjectNode& node = source.outline.rows[index].node;
    const TaskAssignments& assigned = source.assignments.tasks[index];
    if (node.Word("Duration").empty())
        return "missing durations (the working time between the file's dates; 0 without them)";
    if (IsElapsed(node.Integer("DurationFormat").value_or(0)))
        return "elapsed durations (the working time between the file's dates; without them that "
               "share of it which is working time)";
    if (assigned.interrupted || IsSplitAtStop(source, node))
        return "split tasks (the working time between the file's dates)";
    if (assigned.ownCalendar && !node.Flag("IgnoreResourceCalendar"))
        return "tasks whose resources have calendars of their own (the working time between the "
               "file's dates)";
    if (source.calendars.DiffersFromPlan(node.Word("CalendarUID")))
        return "tasks with calendars of their own (the working time between the file's dates)";
    return {};
}

RoundedMinutes ReadStated(const ProjectSource& source, const ProjectNode& node) {
    const std::string word = node.Word("Duration");
    if (word.empty()) return {};
    const auto stated = ReadProjectDuration(word, source.units);
    if (!stated)
        node.FailValue("Duration", "a duration from PT0H0M0S to 2147483647 minutes, like PT8H0M0S");
    return *stated;
}

}  // namespace

std::int32_t WorkingMinutesBetween(WorkCalendar& workingTime, Minute from, Minute to) {
    const std::int64_t minutes =
        workingTime.WorkingMinutesUntil(to) - workingTime.WorkingMinutesUntil(from);
    return static_cast<std::int32_t>(
        std::min<std::int64_t>(minutes, std::numeric_limits<std::int32_t>::max()));
}

std::int32_t ReadDuration(const ProjectSource& source, std::size_t index) {
    const ProjectNode& node = source.outline.rows[index].node;
    const RowDates& dates = source.dates.rows[index];
    const RoundedMinutes stated = ReadStated(source, node);
    source.leftOut.AddMovingIf(!stated.exact, kPartsOfMinutes);
    const std::string_view peculiarity = Peculiarity(source, index);
    const auto minutes = static_cast<std::int32_t>(stated.minutes);
    if (peculiarity.empty()) return minutes;
    source.leftOut.AddMoving(peculiarity);
    if (dates.Both()) return WorkingMinutesBetween(source.workingTime, *dates.start, *dates.finish);
    if (!IsElapsed(node.Integer("DurationFormat").value_or(0))) return minutes;
    return kestrel::ToInt32(minutes * source.workShare).value_or(minutes);
}

std::int32_t StatedDuration(const ProjectSource& source, std::size_t index) {
    const OutlineRow& row = source.outline.rows[index];
    const RowDates& dates = source.dates.rows[index];
    if (row.summary && dates.Both())
        return WorkingMinutesBetween(source.workingTime, *dates.start, *dates.finish);
    return static_cast<std::int32_t>(ReadStated(source, row.node).minutes);
}

}  // namespace refhost
