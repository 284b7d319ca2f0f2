#pragma once

#include <string>

#include "core/model/modGlobals.h"
#include "platform/XmlDom.h"

/// The register as a document, kept in the plan text "RiskFactors".
namespace kestrel {

inline constexpr const char* kRegisterText = "RiskFactors";
inline constexpr const char* kRegisterVersion = "RiskFactors1.00";
/// The highest version that readers accept, in ordinal order of the text.
inline constexpr const char* kHighestRegisterVersion = "RiskFactors1.1";

/// The factor of a `RiskFactor` element; a DataError names it by its number, `id`.
clsRiskFactor ReadRiskFactor(const XmlNode& element, const std::string& id);

/// A new document: root `RiskFactors` with its `Version`.
XmlDocument NewRegisterDocument();

/// Writes the register (`globals.RiskFactors`) into the plan, numbered 1..n in its order.
void SaveRegisterToPlan(modGlobals& globals, host::Plan& plan);

/// Appends the factors that the plan holds to `globals.RiskFactors`; the caller empties the
/// register first for a fresh load. Defines the two task fields where they are missing. A plan
/// without register, or with one that is not well formed, adds none; a factor that cannot be
/// read raises DataError.
void LoadRegisterFromPlan(modGlobals& globals, host::Plan& plan);

}  // namespace kestrel
