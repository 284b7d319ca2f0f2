#pragma once

#include <memory>
#include <string>

#include "core/AnalysisFixture.h"
#include "windows/support/Interception.h"
#include "windows/support/OfferedHost.h"

namespace kestrel::test {

/// The reference host behind an interception, with a plan in which a task carries a factor.
class ListenedHost {
 public:
    ListenedHost() {
        SaveRegisterToPlan({Factor("Rain", 100)}, offered.Plan());
        offered.Plan().TaskAt(1)->UserValues()->PutItem("RiskFactors", "1");
    }

    /// An analysis with one iteration; answers the sentence of its failure.
    std::string Analyse() {
        refhost::AnalysisSettings settings;
        settings.iterations = 1;
        try {
            RunAnalysis(offered.host, settings);
            return {};
        } catch (const HostError& error) {
            return error.what();
        }
    }

    refhost::test::OfferedHost offered;
    std::shared_ptr<Interception> between = std::make_shared<Interception>();
    ComPtr<IDispatch> application = between->Over(offered.application.Get());
};

}  // namespace kestrel::test
