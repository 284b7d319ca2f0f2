#include "refhost/results/RegisterExchange.h"

#include "base/Errors.h"
#include "refhost/files/RegisterTable.h"
#include "refhost/results/FactorTracker.h"
#include "store/RegisterDocument.h"
#include "store/TaskField.h"

namespace refhost {
namespace {

/// The register with the sensitivities of those factors that stay as they are called, so that a
/// table that says what the plan says changes nothing. Tasks name factors by number: a number that
/// some task carries must go on meaning the same factor.
void KeepMeaning(ReferenceHost& host, kestrel::Desktop& desktop, const FactorList& factors) {
    const FactorTracker before(host, desktop);
    for (std::size_t i = 0; i < before.Register().size(); ++i) {
        const kestrel::clsRiskFactor& old = *before.Register()[i];
        if (i < factors.size() && factors[i]->strDescription == old.strDescription) {
            factors[i]->dblDurSens = old.dblDurSens;
            factors[i]->m_dCostSens = old.m_dCostSens;
        } else if (before.Carried()[i]) {
            throw kestrel::DataError("Tasks carry risk factor " + old.strID + " - " +
                                     old.strDescription + ", which is not number " + old.strID +
                                     " of the table; keep it in its place, or take it from the "
                                     "tasks.");
        }
    }
}

}  // namespace

std::string RegisterAsTable(ReferenceHost& host, kestrel::Desktop& desktop, char separator) {
    return RegisterTableText(FactorTracker::ReadRegister(host, desktop), separator);
}

std::vector<std::string> ReplaceRegisterByTable(ReferenceHost& host, kestrel::Desktop& desktop,
                                                std::string_view bytes) {
    const RegisterTableReading reading = ReadRegisterTable(bytes);
    if (!reading.complaints.empty()) return reading.complaints;
    KeepMeaning(host, desktop, reading.factors);
    HostPlan& plan = *host.OpenPlan();
    kestrel::EnsureTextField(plan, kestrel::kRiskFactorsField);
    kestrel::SaveRegisterToPlan(reading.factors, plan);
    return {};
}

}  // namespace refhost
