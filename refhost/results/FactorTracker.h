#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "core/analysis/modPearsons.h"
#include "core/model/Occurrence.h"
#include "core/model/modGlobals.h"
#include "refhost/engine/ReferenceHost.h"

namespace refhost {

/// Follows the factors of the open plan through an analysis from what the host itself sees: the
/// register and fields in the plan, the numbers that it handed out and the values that it drew.
class FactorTracker {
 public:
    /// Reads register and assignments. Raises kestrel::DataError when the register cannot be
    /// read.
    FactorTracker(ReferenceHost& application, kestrel::Desktop& desktop);

    /// After each iteration: which factors occurred in it.
    void Follow();

    using Factors = std::vector<std::shared_ptr<kestrel::clsRiskFactor>>;
    const Factors& Register() const { return globals_.RiskFactors; }
    /// Per factor, whether some task carries it.
    const std::vector<bool>& Carried() const { return carried_; }
    /// Of the last iteration, per factor; a factor that no task carries never occurs.
    const std::vector<std::uint8_t>& Occurred() const { return occurred_; }
    /// Iterations in which the factor has occurred.
    const std::vector<std::int64_t>& Occurrences() const { return occurrences_; }
    /// Impacts in their place: for each iteration the multiplier where the factor occurred and 1
    /// where it did not, one element whatever number of tasks carry it. Factors stand side by
    /// side: factor i in column i % kSideBySide of table i / kSideBySide.
    using Impacts = std::vector<std::vector<kestrel::SideBySide>>;
    const Impacts& DurationImpacts() const { return durationImpacts_; }
    const Impacts& CostImpacts() const { return costImpacts_; }
    /// Positions of the ordinary tasks that carry factors, in plan order; none without a register.
    const std::vector<std::size_t>& CarryingTasks() const { return carryingTasks_; }

    /// The register as the plan holds it now, with the sensitivities of the last analysis.
    static Factors ReadRegister(ReferenceHost& application, kestrel::Desktop& desktop);

 private:
    void FindCarryingTasks();
    using Members = std::vector<std::shared_ptr<HostMember>>;
    Members MembersOf(const char* group) const;
    void NoteImpacts(const Members& members, Impacts& impacts) const;

    ReferenceHost& application_;
    kestrel::modGlobals globals_;
    std::optional<kestrel::NumberSharing> sharing_;
    Members durationMembers_, costMembers_;  ///< of the running analysis
    std::vector<bool> carried_;
    std::vector<std::uint8_t> occurred_;
    std::vector<std::int64_t> occurrences_;
    Impacts durationImpacts_, costImpacts_;
    std::vector<std::size_t> carryingTasks_;
};

}  // namespace refhost
