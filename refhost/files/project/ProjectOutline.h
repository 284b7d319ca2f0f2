#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "refhost/files/project/LeftOutList.h"
#include "refhost/files/project/ProjectNode.h"

namespace refhost {

/// A task row that a plan takes over.
struct OutlineRow {
    ProjectNode node;
    std::string uid;           ///< empty when the file gives none
    std::string id;            ///< of the task in the plan, unique
    std::int64_t level = 1;    ///< of the outline, from 0
    std::int32_t parent = -1;  ///< index of the enclosing row; -1 for none
    bool summary = false;      ///< has rows below it
    bool external = false;     ///< stands for a task of another project
};

/// The task rows of a project file with the outline that their levels describe. Blank rows and
/// the project's own summary are passed over (the row with the UID 0; without one, a first row
/// that alone stands at level 0 and has rows below it). Inactive tasks are left out with
/// everything below them, and counted.
struct ProjectOutline {
    std::vector<OutlineRow> rows;               ///< in plan order
    std::map<std::string, std::int32_t> byUid;  ///< indices of `rows`
    std::set<std::string> leftOutUids;
};

/// Raises kestrel::DataError, naming file and line, for a file without tasks, a UID that is there
/// twice, tasks that neither ID nor UID tells apart and an outline more than 150 levels deep.
ProjectOutline ReadOutline(const ProjectNode& project, LeftOutList& leftOut);

}  // namespace refhost
