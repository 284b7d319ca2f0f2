#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "refhost/engine/PlanData.h"
#include "refhost/files/project/LeftOutList.h"
#include "refhost/files/project/ProjectNode.h"

namespace refhost {

/// The custom text fields of a project file (Text1 to Text30), which become user fields named by
/// their alias. A task may give the text itself or name an entry of the field's list.
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
    void ReadLists(const ProjectNode& project);
    /// The text of an entry that the attribute names; empty for none that the file holds.
    std::string Looked(const ProjectNode& attribute, std::int64_t number) const;

    std::vector<UserField> fields_;
    std::map<std::int64_t, std::string> names_;  ///< by number, 1 to 30
    /// Texts of the entries, by the field's number and the entry's ValueID.
    std::map<std::pair<std::int64_t, std::string>, std::string> byField_;
    /// The same of the lists of outline codes, by the entry's FieldGUID, and by its ValueID
    /// where no other list uses that.
    std::map<std::string, std::string> byGuid_, byId_;
};

}  // namespace refhost
