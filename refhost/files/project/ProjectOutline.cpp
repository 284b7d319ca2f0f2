#include "refhost/files/project/ProjectOutline.h"

#include <algorithm>
#include <limits>
#include <unordered_set>
#include <utility>

#include "refhost/files/StrictElement.h"

namespace refhost {
namespace {

/// A plan file nests its tasks, and documents have a bounded depth (kXmlMaximumDepth).
constexpr std::size_t kDeepestOutline = 150;

constexpr const char* kOwnSummaryUid = "0";

/// Without a level the number tells it: "2.1.3" is level 3, "0" level 0.
std::int64_t LevelOf(const ProjectNode& row) {
    if (const auto level = row.Integer("OutlineLevel")) return *level;
    const std::string number = row.Word("OutlineNumber");
    if (!number.empty())
        return number == "0" ? 0 : 1 + std::count(number.begin(), number.end(), '.');
    return row.Word("UID") == kOwnSummaryUid ? 0 : 1;
}

std::vector<ProjectNode> FilledRows(const ProjectNode& project) {
    std::vector<ProjectNode> rows = project.Items("Tasks", "Task");
    std::erase_if(rows, [](const ProjectNode& row) { return row.Flag("IsNull"); });
    return rows;
}

/// Whether the first row stands for the project as a whole although its UID is not 0.
bool FirstIsOwnSummary(const std::vector<ProjectNode>& rows) {
    if (rows.size() < 2 || LevelOf(rows[0]) > 0 || LevelOf(rows[1]) <= 0) return false;
    return std::none_of(rows.begin() + 1, rows.end(), [](const ProjectNode& row) {
        return LevelOf(row) <= 0 || row.Word("UID") == kOwnSummaryUid;
    });
}

bool IsInactive(const ProjectNode& row) {
    const std::string active = row.Word("Active");
    return active == "0" || active == "false";
}

void CollectRows(const std::vector<ProjectNode>& rows, ProjectOutline& outline,
                 LeftOutList& leftOut) {
    bool ownSummary = FirstIsOwnSummary(rows);
    std::int64_t inactiveLevel = std::numeric_limits<std::int64_t>::max();
    for (const ProjectNode& row : rows) {
        const std::int64_t level = LevelOf(row);
        const std::string uid = row.Word("UID");
        if (std::exchange(ownSummary, false) || uid == kOwnSummaryUid) {
            leftOut.AddMovingIf(row.Says("FixedCost"), "fixed costs of the project as a whole");
            leftOut.AddMovingIf(level > 0, "tasks with the UID 0, which is the project's own");
            outline.leftOutUids.insert(uid);
            continue;
        }
        if (level <= inactiveLevel)
            inactiveLevel = IsInactive(row) ? level : std::numeric_limits<std::int64_t>::max();
        if (level >= inactiveLevel) {
            leftOut.AddMoving("inactive tasks");
            outline.leftOutUids.insert(uid);
            continue;
        }
        const auto index = static_cast<std::int32_t>(outline.rows.size());
        if (!uid.empty() && !outline.byUid.emplace(uid, index).second)
            row.Fail("second Task with the UID " + Quoted(uid) +
                     "; give each task a UID of its own.");
        outline.rows.push_back(
            {row, uid, row.Word("ID"), level, -1, false, row.Flag("ExternalTask")});
    }
}

void FindParents(std::vector<OutlineRow>& rows) {
    std::vector<std::int32_t> enclosing;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        OutlineRow& row = rows[i];
        while (!enclosing.empty() &&
               rows[static_cast<std::size_t>(enclosing.back())].level >= row.level)
            enclosing.pop_back();
        if (!enclosing.empty()) {
            row.parent = enclosing.back();
            rows[static_cast<std::size_t>(row.parent)].summary = true;
        }
        if (enclosing.size() == kDeepestOutline)
            row.node.Fail("the outline is more than " + std::to_string(kDeepestOutline) +
                          " levels deep; flatten it.");
        enclosing.push_back(static_cast<std::int32_t>(i));
    }
}

bool IdsAreUnique(const std::vector<OutlineRow>& rows) {
    std::unordered_set<std::string> ids;
    for (const OutlineRow& row : rows)
        if (row.id.empty() || !ids.insert(row.id).second) return false;
    return true;
}

/// The ID is what planners see. Where it cannot tell all tasks apart every task goes by its UID:
/// a mixture could name two tasks alike.
void ChooseIds(std::vector<OutlineRow>& rows) {
    if (IdsAreUnique(rows)) return;
    for (OutlineRow& row : rows) {
        if (row.uid.empty())
            row.node.Fail("a Task has neither an ID of its own nor a UID; give it one.");
        row.id = row.uid;
    }
}

}  // namespace

ProjectOutline ReadOutline(const ProjectNode& project, LeftOutList& leftOut) {
    ProjectOutline outline;
    CollectRows(FilledRows(project), outline, leftOut);
    if (outline.rows.empty())
        project.Fail("the project has no task that a plan could take; choose a file with tasks.");
    FindParents(outline.rows);
    ChooseIds(outline.rows);
    return outline;
}

}  // namespace refhost
