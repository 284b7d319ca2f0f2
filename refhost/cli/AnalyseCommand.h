#pragma once

#include "refhost/cli/Arguments.h"
#include "refhost/cli/Session.h"
#include "refhost/cli/TraceWriter.h"
#include "refhost/results/Report.h"

namespace refhost {

/// What --iterations and --seed ask; by default what the plan says. Raises UsageError.
AnalysisSettings SettingsOf(const Arguments& arguments, const PlanData& plan);

struct Analysed {
    AnalysisResults results;
    Report report;
};

/// Analyses the session's plan with the add-in attached, with progress on a terminal. The trace
/// may be nullptr. Raises kestrel::DataError when the user cancels.
Analysed AnalyseSession(Session& session, const AnalysisSettings& settings, FactorTracker& factors,
                        TraceWriter* trace, bool withCriticality);

}  // namespace refhost
