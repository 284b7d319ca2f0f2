#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "core/model/ImpactHistory.h"
#include "host/HostModel.h"
#include "platform/XmlDom.h"

namespace kestrel {

/// One risk factor: a named cause of uncertainty that, when it occurs, stretches or shrinks the
/// durations and costs of the tasks that carry it.
///
/// Impacts are percentages of the unchanged value (100 = no change); the editor keeps minimum <=
/// most likely <= maximum, this object does not check it.
class clsRiskFactor {
 public:
    /// @name What the user sees and files hold
    ///@{
    double dblMin = 100;      ///< duration impact, percent
    double dblML = 100;       ///< duration impact, percent
    double dblMax = 100;      ///< duration impact, percent
    double dblCostMin = 100;  ///< cost impact, percent
    double dblCostML = 100;   ///< cost impact, percent
    double dblCostMax = 100;  ///< cost impact, percent
    double dblProb = 100;     ///< chance of occurring in an iteration, 0 to 100
    std::string strDescription = "unknown";
    std::string strID;              ///< position in the register, from 1, in decimal
    double m_dCostSens = 100;       ///< cost sensitivity of the last analysis, -1 to 1
    double dblDurSens = 100;        ///< duration sensitivity, -1 to 1; 100: never analysed
    std::int32_t CorrelatedTo = 0;  ///< ID of the factor that this one follows; 0 none
    ///@}

    /// The uniform number in [0, 1) that decides occurrence in the current iteration; 0 until
    /// one has been drawn.
    double m_dCorRandom = 0;

    /// @name Working state of an analysis, never stored
    ///@{
    /// Every task that carries the factor, each once. The tasks below a summary are not listed:
    /// all that is asked is whether there is a task.
    std::vector<host::TaskPtr> m_colTasks;
    ImpactHistory m_colValues;   ///< duration multipliers drawn; 1 where it did not occur
    ImpactHistory m_colValuesC;  ///< cost multipliers drawn; 1 where it did not occur
    host::MemberPtr durationMember;
    host::MemberPtr costMember;
    ///@}

    /// Empties histories and task list; called once per factor before an analysis.
    void PrepObjForAnalysis();

    /// Start of an iteration: no random number, not applied.
    void ResetRisk();

    /// Reads this iteration's multipliers from the host (percent x 100, so divided by 10000),
    /// decides occurrence (m_dCorRandom x 100 <= dblProb, and some task to work on) and appends
    /// to the histories, once for each of the `visits` that tasks make in an iteration.
    void ApplyRiskData(std::int32_t visits);

    /// Whether the factor occurs in the current iteration.
    bool GetApplied() const { return applied_; }

    /// This iteration's multipliers: 1 and 1 unless the factor is applied.
    void GetRiskImpact(double& duration, double& cost) const {
        duration = durationMultiplier_;
        cost = costMultiplier_;
    }

    /// Resets every stored field to its default, then reads the children of a `RiskFactor`
    /// element. Name, Minimum, MostLikely, Maximum and Probability must be there (DataError);
    /// the others keep their defaults when missing or unreadable. "%" in numbers is ignored.
    void LoadRiskFromXML(const XmlNode& element);

    /// Appends the eleven children that the register document holds.
    void SaveRiskToXML(XmlNode& element) const;

    /// Replaces the two sensitivities in an element that SaveRiskToXML or a user has written.
    void SaveSensitivitiesToXML(XmlNode& element) const;

    /// Whether the other factor is the same but for its sensitivities and its place.
    bool IsDefinedAs(const clsRiskFactor& other) const;

 private:
    bool applied_ = false;
    double durationMultiplier_ = 1.0;  ///< 1 unless applied, as the cost's
    double costMultiplier_ = 1.0;
};

/// Factors in their order: the one with ID n stands at index n - 1.
using RiskRegister = std::vector<std::shared_ptr<clsRiskFactor>>;

}  // namespace kestrel
