#pragma once

#include <string>

#include "refhost/engine/PlanData.h"
#include "refhost/files/StrictElement.h"

/// The parts of a plan file's reader; callers outside this folder use PlanFile.h. All raise
/// kestrel::DataError, naming file and line.
namespace refhost {

/// The plan of a `Plan` root.
PlanData ReadPlanElement(const kestrel::XmlNode& root, const std::string& path);

/// A `Calendar` element of a plan file.
Calendar ReadCalendar(const StrictElement& element);

}  // namespace refhost
