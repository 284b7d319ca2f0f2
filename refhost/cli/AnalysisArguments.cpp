#include "refhost/cli/AnalysisArguments.h"

#include <limits>

#include "base/Errors.h"
#include "base/NumberText.h"
#include "refhost/engine/Analysis.h"
#include "refhost/system/System.h"

namespace refhost {
namespace {

void RequireMemory(std::uint64_t iterations, std::size_t factors) {
    // Finish and cost here, in the add-in and sorted; each factor's two impacts here and there.
    const double bytes = static_cast<double>(iterations) *
                         (6 * sizeof(double) + static_cast<double>(factors) * 4 * sizeof(double));
    const bool tooMany = iterations > static_cast<std::uint64_t>(kMostIterations);
    if (!tooMany && bytes <= static_cast<double>(MemoryOfProgram())) return;
    throw kestrel::DataError(std::to_string(iterations) + " iterations would need about " +
                             kestrel::FixedText(bytes / 1e9, 1) + " GB of memory; " +
                             (tooMany ? "give --iterations a whole number from 1 to " +
                                            std::to_string(kMostIterations) + "."
                                      : "this machine does not grant so much, take fewer."));
}

}  // namespace

AnalysisSettings SettingsOf(const Arguments& arguments, const PlanData& plan, std::size_t factors) {
    constexpr std::uint64_t kAnyNumber = std::numeric_limits<std::uint64_t>::max();
    AnalysisSettings settings = plan.analysis;
    const std::uint64_t iterations = arguments.Number("--iterations", 1, kAnyNumber)
                                         .value_or(static_cast<std::uint64_t>(settings.iterations));
    RequireMemory(iterations, factors);
    settings.iterations = static_cast<std::int32_t>(iterations);
    settings.seed = arguments.Number("--seed", 0, kAnyNumber).value_or(settings.seed);
    return settings;
}

}  // namespace refhost
