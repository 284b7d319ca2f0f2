#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "refhost/engine/PlanData.h"
#include "refhost/files/LeftOutList.h"
#include "refhost/files/ProjectNode.h"

namespace refhost {

/// The custom text fields of a project file (Text1 to Text30), which become user fields named by
/// their alias.
class ProjectFields {
 public:
    /// Takes the definitions that give an alias.
    explicit ProjectFields(const ProjectNode& project);

    /// The task's values. A field without a definition is added as "Text1" and so on; fields of
    /// other kinds are counted as left out. Raises kestrel::DataError for an unreadable number.
    NamedTexts ValuesOf(const ProjectNode& task, LeftOutList& leftOut);

    std::vector<UserField> Take() { return std::move(fields_); }

 private:
    void Define(std::int64_t number, const std::string& alias);

    std::vector<UserField> fields_;
    std::map<std::int64_t, std::string> names_;  ///< by number, 1 to 30
};

}  // namespace refhost
