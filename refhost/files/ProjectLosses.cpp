#include "refhost/files/ProjectLosses.h"

#include <algorithm>
#include <array>
#include <span>

namespace refhost {
namespace {

/// A kind of loss: met once by an element when any of these children says something.
struct Loss {
    std::string_view what;
    std::array<std::string_view, 8> children;
};

constexpr Loss kProjectLosses[] = {
    {"project properties such as title and author",
     {"Title", "Subject", "Category", "Company", "Manager", "Author", "Keywords", "Comments"}},
    {"status dates", {"StatusDate"}},
};

constexpr Loss kTaskLosses[] = {
    {"deadlines", {"Deadline"}},
    {"manual scheduling (scheduled from links instead)", {"Manual"}},
    {"baselines", {"Baseline"}},
    {"task notes", {"Notes"}},
    {"hyperlinks", {"Hyperlink", "HyperlinkAddress"}},
    {"contacts", {"Contact"}},
    {"outline codes", {"OutlineCode"}},
    {"inserted projects", {"SubprojectName", "IsSubproject"}},
};

/// A summary's values of these follow from its tasks.
constexpr Loss kOrdinaryTaskLosses[] = {
    {"progress (percent complete and actual values)",
     {"PercentComplete", "PercentWorkComplete", "PhysicalPercentComplete", "ActualStart",
      "ActualFinish", "ActualDuration", "ActualWork", "ActualCost"}},
    {"marks of estimated durations", {"Estimated"}},
    {"levelling delays", {"LevelingDelay"}},
};

void Count(const ProjectNode& node, std::span<const Loss> losses, LeftOutList& leftOut) {
    for (const Loss& loss : losses)
        leftOut.AddIf(std::any_of(loss.children.begin(), loss.children.end(),
                                  [&node](std::string_view child) {
                                      return !child.empty() && node.Says(child);
                                  }),
                      loss.what);
}

}  // namespace

void CountProjectLosses(const ProjectNode& project, LeftOutList& leftOut) {
    const std::string fromStart = project.Word("ScheduleFromStart");
    leftOut.AddIf(fromStart == "0" || fromStart == "false",
                  "scheduling from the finish (scheduled from the start instead)");
    Count(project, kProjectLosses, leftOut);
    for (const ProjectNode& resource : project.Items("Resources", "Resource")) {
        // UID 0 stands for "no resource".
        if (resource.Word("UID") == "0") continue;
        leftOut.Add("resources (only the cost of their assignments is carried over)");
        leftOut.AddIf(resource.Says("ExtendedAttribute"), "custom fields of resources");
    }
    for (const ProjectNode& assignment : project.Items("Assignments", "Assignment")) {
        leftOut.Add("work, units and delays of assignments");
        leftOut.AddIf(assignment.Says("ExtendedAttribute"), "custom fields of assignments");
    }
}

void CountTaskLosses(const ProjectNode& task, bool summary, const std::string& projectCalendar,
                     LeftOutList& leftOut) {
    Count(task, kTaskLosses, leftOut);
    if (!summary) Count(task, kOrdinaryTaskLosses, leftOut);

    const std::string calendar = task.Word("CalendarUID");
    leftOut.AddIf(!calendar.empty() && calendar != "-1" && calendar != projectCalendar,
                  "calendars of tasks");
    leftOut.AddIf(task.Integer("Priority").value_or(500) != 500, "task priorities");
    const std::string wbs = task.Word("WBS");
    leftOut.AddIf(!wbs.empty() && wbs != task.Word("OutlineNumber"), "WBS codes");
}

}  // namespace refhost
