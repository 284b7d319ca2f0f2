#include "refhost/files/project/ProjectLosses.h"

#include <algorithm>
#include <array>
#include <span>

namespace refhost {
namespace {

/// A kind of loss: met once by an element when any of these children says something.
struct Loss {
    std::string_view what;
    std::array<std::string_view, 8> children;
    bool movesFigures;
};

constexpr Loss kProjectLosses[] = {
    {"project properties such as title and author",
     {"Title", "Subject", "Category", "Company", "Manager", "Author", "Keywords", "Comments"},
     false},
    {"status dates", {"StatusDate"}, false},
};

constexpr Loss kTaskLosses[] = {
    {"deadlines", {"Deadline"}, false},
    {"baselines", {"Baseline"}, false},
    {"task notes", {"Notes"}, false},
    {"hyperlinks", {"Hyperlink", "HyperlinkAddress"}, false},
    {"contacts", {"Contact"}, false},
    {"outline codes", {"OutlineCode"}, false},
    {"inserted projects (without their tasks)", {"SubprojectName", "IsSubproject"}, true},
};

/// A summary's follows from its tasks.
constexpr Loss kOrdinaryTaskLosses[] = {
    {"marks of estimated durations", {"Estimated"}, false},
};

void Count(const ProjectNode& node, std::span<const Loss> losses, LeftOutList& leftOut) {
    for (const Loss& loss : losses) {
        const bool met = std::any_of(
            loss.children.begin(), loss.children.end(),
            [&node](std::string_view child) { return !child.empty() && node.Says(child); });
        if (loss.movesFigures)
            leftOut.AddMovingIf(met, loss.what);
        else
            leftOut.AddIf(met, loss.what);
    }
}

}  // namespace

void CountProjectLosses(const ProjectNode& project, LeftOutList& leftOut) {
    const std::string fromStart = project.Word("ScheduleFromStart");
    leftOut.AddMovingIf(fromStart == "0" || fromStart == "false",
                        "scheduling from the finish (tasks no earlier than the file's start)");
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

void CountTaskLosses(const ProjectNode& task, bool summary, LeftOutList& leftOut) {
    Count(task, kTaskLosses, leftOut);
    if (!summary) Count(task, kOrdinaryTaskLosses, leftOut);

    leftOut.AddIf(task.Integer("Priority").value_or(500) != 500, "task priorities");
    const std::string wbs = task.Word("WBS");
    leftOut.AddIf(!wbs.empty() && wbs != task.Word("OutlineNumber"), "WBS codes");
}

}  // namespace refhost
