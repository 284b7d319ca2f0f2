#include "refhost/files/ProjectOutline.h"

#include <limits>
#include <unordered_set>

#include "refhost/files/StrictElement.h"

namespace refhost {
namespace {

/// A plan file nests its tasks, and documents have a bounded depth (kXmlMaximumDepth).
constexpr std::size_t kDeepestOutline = 150;

std::int64_t LevelOf(const ProjectNode& row) {
    // Level 0 is the project's own summary, which has the UID 0.
    return row.Integer("OutlineLevel").value_or(row.Word("UID") == "0" ? 0 : 1);
}

/// Why a plan does not take the row over; empty when it does.
std::string_view ReasonToLeaveOut(const ProjectNode& row) {
    const std::string active = row.Word("Active");
    if (active == "0" || active == "false") return "inactive tasks";
    if (row.Flag("ExternalTask")) return "tasks of other projects";
    return {};
}

void CollectRows(const ProjectNode& project, ProjectOutline& outline, LeftOutList& leftOut) {
    std::int64_t levelLeftOut = std::numeric_limits<std::int64_t>::max();
    std::string_view reason;
    for (const ProjectNode& row : project.Items("Tasks", "Task")) {
        if (row.Flag("IsNull")) continue;
        const std::int64_t level = LevelOf(row);
        const std::string uid = row.Word("UID");
        if (level <= 0) {
            leftOut.AddIf(row.Says("FixedCost"), "fixed costs of the project as a whole");
            continue;
        }
        if (level <= levelLeftOut) {
            reason = ReasonToLeaveOut(row);
            levelLeftOut = reason.empty() ? std::numeric_limits<std::int64_t>::max() : level;
        }
        if (!reason.empty()) {
            leftOut.Add(reason);
            outline.leftOutUids.insert(uid);
            continue;
        }
        const auto index = static_cast<std::int32_t>(outline.rows.size());
        if (!uid.empty() && !outline.byUid.emplace(uid, index).second)
            row.Fail("second Task with the UID " + Quoted(uid) +
                     "; give each task a UID of its own.");
        outline.rows.push_back({row, uid, row.Word("ID"), level, -1, false});
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
    CollectRows(project, outline, leftOut);
    FindParents(outline.rows);
    ChooseIds(outline.rows);
    return outline;
}

}  // namespace refhost
