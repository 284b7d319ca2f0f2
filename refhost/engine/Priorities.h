#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "refhost/engine/PlanData.h"

/// What each risk factor costs, as an analysis of it found.
namespace refhost {

enum class Outcome { Finish, Cost };

struct PriorityQuestion {
    AnalysisSettings settings;
    Outcome outcome = Outcome::Finish;
    double percentile = 80;  ///< 0 to 100
    unsigned threads = 1;
};

/// Figures are day serials for the finish and plan currency for the cost; what is saved is the
/// difference of two, calendar days or money, below 0 for an opportunity.
struct FactorCost {
    std::int32_t id = 0;
    std::string name;
    double without = 0;  ///< the percentile when this factor alone never occurs
    double saved = 0;
};
struct PriorityStep {
    std::int32_t id = 0;
    double after = 0;  ///< the percentile when this factor and those of earlier steps never occur
    double saved = 0;  ///< by this step
};

struct Priorities {
    std::string planName;
    PriorityQuestion question;
    double planned = 0;               ///< without any uncertainty
    double all = 0;                   ///< the percentile with every factor
    double none = 0;                  ///< and without any
    std::vector<FactorCost> factors;  ///< those that some task carries, in register order
    /// Each step takes away the factor that saves most of those left (the lowest ID of equals),
    /// until none saves anything.
    std::vector<PriorityStep> sequence;
    bool cancelled = false;  ///< then nothing else holds
};

}  // namespace refhost
