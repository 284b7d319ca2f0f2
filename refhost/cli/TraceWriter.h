#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "refhost/cli/Json.h"
#include "refhost/cli/Outputs.h"
#include "refhost/results/FactorTracker.h"

namespace refhost {

/// Writes one JSON object a line for each iteration: per factor the number drawn, whether it
/// occurs and the two multipliers drawn; per ordinary task that carries factors its duration as
/// sampled and as applied; the plan's finish (day serial) and cost.
class TraceWriter {
 public:
    TraceWriter(ReferenceHost& application, const FactorTracker& factors, Outputs::File& output)
        : application_(application), factors_(factors), output_(output) {}

    void Write(std::int32_t iteration, std::span<const std::int32_t> drawn, double finish,
               double cost);

 private:
    void WriteFactors();
    void WriteMultipliers(std::string_view key, const char* group);

    ReferenceHost& application_;
    const FactorTracker& factors_;
    Outputs::File& output_;
    JsonWriter json_;
};

}  // namespace refhost
