#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/modGlobals.h"
#include "host/HostModel.h"

/// The text of a task's user field "RiskFactors": up to two groups of factor IDs, the parallel
/// one first, as in (1,3(P));(2,5). Nothing else reads or writes that text. Text typed by hand,
/// such as 1,2,4, is a series group.
namespace kestrel {

inline constexpr const char* kRiskFactorsField = "RiskFactors";
inline constexpr const char* kIterationsField = "Risk Factors Iterations";

/// Factor IDs in field order, each once.
using RiskIDs = std::vector<std::int32_t>;

/// One group as a bare comma list.
std::string GetRiskList(std::string_view fieldText, bool inSeries);

/// The field text of two lists. Wraps the two arguments in place as a side effect.
std::string MakeRiskFieldText(std::string& parallelList, std::string& seriesList);

/// "20 - Drawings": how messages name a task.
std::string TaskLabel(host::Task& task);

/// IDs of a list, duplicates and blank items dropped silently, no range check.
RiskIDs ListedIDs(std::string_view list);

/// IDs of one group of the task, checked against the register (`globals.RiskFactors`): an item
/// that is no factor's ID, and a duplicate, are told to the user and left out.
void GetTaskRiskFactors(modGlobals& globals, host::Task& task, RiskIDs& ids, bool inSeries);

/// All IDs of the task, series first, without range check; duplicates are told and left out.
void GetAllTaskRiskFactors(modGlobals& globals, host::Task& task, RiskIDs& ids);

/// Whether the ID stands in the list as a whole token. A blank beside it makes it no token.
bool RiskListContains(std::string_view list, std::int32_t id);

/// The list without one whole-token occurrence of the ID (the text removed, with its comma, is
/// removed wherever it stands); empty when there is none.
std::string RemoveRiskFromList(std::string_view list, std::int32_t id);

/// Every ID above `deleted` lowered by one.
std::string RenumberRiskList(std::string_view list, std::int32_t deleted);

/// Applies the deletion of factors to every task of the active plan, in the order given.
void RenumberTaskRiskFactors(modGlobals& globals, const std::vector<std::int32_t>& deleted);

/// Makes sure that the plan defines the text field.
void EnsureTextField(host::Plan& plan, const std::string& name);

}  // namespace kestrel
