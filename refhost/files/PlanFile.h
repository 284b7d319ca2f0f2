#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Desktop.h"
#include "refhost/engine/PlanData.h"

namespace refhost {

/// What a project file held that a plan does not, each kind once with its count:
/// {"deadlines", 3}.
struct LeftOut {
    std::string what;
    int count = 0;
};

/// A plan read from a file, with what was left out of a project file (empty for a plan file).
struct LoadedPlan {
    PlanData plan;
    std::vector<LeftOut> leftOut;
};

/// Reads a plan file or, where the root is `Project` in a namespace ending in "/project", a
/// project file. `path` names the file in messages ("crane.kplan:12: unknown attribute 'Foo' of
/// Task; remove it or correct its name"). Raises kestrel::DataError: one sentence that says
/// what, where and what to do.
LoadedPlan ReadPlan(kestrel::Desktop& desktop, const std::string& path);

/// The same from bytes already read.
LoadedPlan ParsePlan(kestrel::Desktop& desktop, std::string_view bytes, const std::string& path);

/// The plan as a plan file, indented; reading it gives the same plan.
std::string WritePlan(const PlanData& plan);

/// The plan of a `Project` root; ParsePlan calls it.
LoadedPlan ReadProject(const kestrel::XmlNode& root, const std::string& path);

}  // namespace refhost
