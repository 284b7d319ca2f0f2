#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/Desktop.h"
#include "refhost/engine/PlanData.h"
#include "refhost/files/ImportReport.h"

namespace refhost {

/// A plan read from a file; for a project file with what became of it.
struct LoadedPlan {
    PlanData plan;
    std::optional<ImportReport> imported;
};

/// Reads a plan file or, where the root is `Project` in a namespace ending in "/project", a
/// project file as the options say. `path` names the file in messages ("crane.kplan:12: unknown
/// attribute 'Foo' of Task; remove it or correct its name"). Raises kestrel::DataError: one
/// sentence that says what, where and what to do.
LoadedPlan ReadPlan(kestrel::Desktop& desktop, const std::string& path,
                    const ImportOptions& options = {});

/// The same from bytes already read.
LoadedPlan ParsePlan(kestrel::Desktop& desktop, std::string_view bytes, const std::string& path,
                     const ImportOptions& options = {});

/// The plan as a plan file, indented; reading it gives the same plan.
std::string WritePlan(const PlanData& plan);

/// The plan of a `Project` root; ParsePlan calls it.
LoadedPlan ReadProject(const kestrel::XmlNode& root, const std::string& path,
                       const ImportOptions& options);

}  // namespace refhost
