#pragma once

#include "core/model/modGlobals.h"

/// The "save" and "load" commands: the register and the assignments of the active plan against
/// an assignments file (`RiskFactors` with `RiskFactor` and `Task` children). Both ask for the
/// file; a dialog that is cancelled ends them. Failures (HostError, DataError) travel to the
/// caller, who traps them.
namespace kestrel {

/// Writes the register as last stored in the plan and every task's assignments. A plan without a
/// register raises DataError.
void SaveRiskFactorsToFile(modGlobals& globals);

/// Replaces the plan's register text and every task's assignments by the file's, after asking.
/// A file that is no risk factors document is refused before anything is asked or changed. A
/// task that the plan lacks is skipped. The register in memory is left alone.
void LoadRiskFactorsFromFile(modGlobals& globals);

}  // namespace kestrel
