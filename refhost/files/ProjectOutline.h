#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "refhost/files/LeftOutList.h"
#include "refhost/files/ProjectNode.h"

namespace refhost {

/// A task row that a plan takes over.
struct OutlineRow {
    ProjectNode node;
    std::string uid;           ///< empty when the file gives none
    std::string id;            ///< of the task in the plan, unique
    std::int64_t level = 1;    ///< of the outline, from 1
    std::int32_t parent = -1;  ///< index of the enclosing row; -1 for none
    bool summary = false;      ///< has rows below it
};

/// The task rows of a project file with the outline that their levels describe. Blank rows and
/// the project's own summary are passed over; inactive tasks and tasks of other projects are left
/// out with everything below them, and counted.
struct ProjectOutline {
    std::vector<OutlineRow> rows;               ///< in plan order
    std::map<std::string, std::int32_t> byUid;  ///< indices of `rows`
    std::set<std::string> leftOutUids;
};

/// Raises kestrel::DataError, naming file and line, for a UID that is there twice, for tasks that
/// neither ID nor UID tells apart and for an outline more than 150 levels deep.
ProjectOutline ReadOutline(const ProjectNode& project, LeftOutList& leftOut);

}  // namespace refhost
