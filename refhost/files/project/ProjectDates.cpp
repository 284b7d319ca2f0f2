#include "refhost/files/project/ProjectDates.h"

#include <algorithm>

#include "refhost/files/project/ProjectText.h"

namespace refhost {
namespace {

/// A figure that the plan works out by itself: unreadable, it is no reason to refuse the file.
std::optional<Minute> ReadShownDate(const ProjectNode& node, std::string_view child,
                                    LeftOutList& leftOut) {
    const std::string word = node.Word(child);
    if (word.empty()) return std::nullopt;
    const auto date = ReadProjectInstant(word);
    leftOut.AddMovingIf(!date, "starts and finishes that are no dates from 1900 to 9999");
    if (!date) return std::nullopt;
    return date->minutes;
}

std::optional<Minute> ReadStartDate(const ProjectNode& project, LeftOutList& leftOut) {
    const std::string word = project.Word("StartDate");
    if (word.empty()) return std::nullopt;
    const auto start = ReadProjectInstant(word);
    if (!start)
        project.FailValue("StartDate", "a date from 1900 to 9999, like 2026-01-05T08:00:00");
    leftOut.AddMovingIf(!start->exact, kPartsOfMinutes);
    return start->minutes;
}

}  // namespace

ProjectDates ReadDates(const ProjectNode& project, const ProjectOutline& outline,
                       LeftOutList& leftOut) {
    ProjectDates dates;
    std::optional<Minute> earliest = ReadStartDate(project, leftOut);
    const std::optional<Minute> projectStart = earliest;
    std::optional<Minute> latest = ReadShownDate(project, "FinishDate", leftOut);
    for (const OutlineRow& row : outline.rows) {
        dates.rows.push_back({ReadShownDate(row.node, "Start", leftOut),
                              ReadShownDate(row.node, "Finish", leftOut)});
        const RowDates& shown = dates.rows.back();
        if (shown.start) earliest = std::min(earliest.value_or(*shown.start), *shown.start);
        for (const auto& date : {shown.start, shown.finish})
            if (date) latest = std::max(latest.value_or(*date), *date);
    }
    if (!earliest) project.Fail("the project has no StartDate; add one, like 2026-01-05T08:00:00.");
    dates.planStart = *earliest;
    dates.projectStart = projectStart.value_or(*earliest);
    dates.last = std::max(latest.value_or(*earliest), dates.projectStart);
    return dates;
}

}  // namespace refhost
