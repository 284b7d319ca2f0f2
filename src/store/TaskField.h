#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/model/modGlobals.h"
#include "host/HostModel.h"
#include "store/RiskList.h"

/// The text of a task's user field "RiskFactors" (RiskList.h gives the format), read and written
/// on tasks. Nothing else reads or writes that field.
namespace kestrel {

inline constexpr const char* kRiskFactorsField = "RiskFactors";
inline constexpr const char* kIterationsField = "Risk Factors Iterations";

/// "20 - Drawings": how messages name a task.
std::string TaskLabel(host::Task& task);

/// IDs of one group of the task, checked against the register (`globals.RiskFactors`): an item
/// that is no factor's ID, and a duplicate, are told to the user and left out.
void GetTaskRiskFactors(modGlobals& globals, host::Task& task, RiskIDs& ids, bool inSeries);

/// All IDs of the task, series first, without range check; duplicates are told and left out.
void GetAllTaskRiskFactors(modGlobals& globals, host::Task& task, RiskIDs& ids);
/// The same of a field text that has been read.
RiskIDs AllListedIDs(Desktop& desktop, host::Task& task, std::string_view fieldText);

/// Applies the deletion of factors to every task of the active plan, in the order given.
void RenumberTaskRiskFactors(modGlobals& globals, const std::vector<std::int32_t>& deleted);

/// Makes sure that the plan defines the text field.
void EnsureTextField(host::Plan& plan, const std::string& name);

}  // namespace kestrel
