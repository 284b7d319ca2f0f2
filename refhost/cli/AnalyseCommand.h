#pragma once

#include "refhost/cli/Session.h"
#include "refhost/cli/TraceWriter.h"
#include "refhost/results/Report.h"

namespace refhost {

struct Analysed {
    AnalysisResults results;
    Report report;
};

/// Analyses the session's plan with the add-in attached, with progress on a terminal. The trace
/// may be nullptr. Raises kestrel::DataError when the user cancels.
Analysed AnalyseSession(Session& session, const AnalysisSettings& settings, FactorTracker& factors,
                        TraceWriter* trace, bool withCriticality);

}  // namespace refhost
