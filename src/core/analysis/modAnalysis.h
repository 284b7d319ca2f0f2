#pragma once

#include "core/model/modGlobals.h"

/// The add-in's part in one risk analysis of the host. A failing host call ends the step and
/// travels on to the caller; nothing is rolled back.
namespace kestrel {

/// Names of the host groups that hold the factors' sampled variables.
inline constexpr const char* kDurationGroup = "RISKFACTORTASKS";
inline constexpr const char* kCostGroup = "RISKFACTORCOST";
inline constexpr const char* kFactorGroupPrefix = "RISKFACTOR";

/// Before the analysis, with `plan` and `registerText` set: reads the register, gives the host one
/// sampled variable per factor for its duration impact and one for its cost impact (percent x 100),
/// lists the tasks that carry factors and takes a snapshot of their costs. A register that cannot
/// be read raises DataError before anything is changed, and so does, naming the task, an assigned
/// ID that it lacks.
void PrepareAnalysis(modGlobals& globals, AnalysisState& state);

/// After each iteration: decides which factors occur, changes the durations and costs of the
/// tasks that carry them, recalculates, and records the plan's finish and cost.
void ApplyIteration(AnalysisState& state);

/// After the analysis: sets each factor's DurSens and CostSens, the correlation of its impacts
/// with the plan's finish and cost. The factor's history is read as it stands, one element per
/// visit of a task, against the project series at the same positions.
void CalculateSensitivities(host::Application& application, AnalysisState& state);

}  // namespace kestrel
