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

/// A new document: root `RiskFactors` with its `Version`.
XmlDocument NewRegisterDocument();

/// Whether the element is the root of such a document.
bool IsRegisterRoot(const XmlNode& element);

/// The factors of a document, numbered by position; DataError naming one that cannot be read.
RiskRegister FactorsOf(const XmlDocument& document);

/// The factors of a register text, numbered by position; none for an empty text. DataError, saying
/// what is wrong and what to do, for a text that is no register document and for a factor that
/// cannot be read.
RiskRegister ReadRegister(Desktop& desktop, const std::string& text);

/// Why ReadRegister would refuse the text; empty when it would not. Such a text may hold work of
/// the user's that only the program cannot read: it is not replaced unless the user agrees.
std::string RegisterFault(Desktop& desktop, const std::string& text);

/// Writes the factors into the plan, numbered 1..n in their order.
void SaveRegisterToPlan(const RiskRegister& factors, host::Plan& plan);

/// Writes the sensitivities of an analysis into the plan whose register it read as `analysedText`.
/// When the plan's register is another by now, only those factors get theirs that still stand
/// unchanged at their position; a register that cannot be read is left alone.
void StoreSensitivities(Desktop& desktop, host::Plan& plan, const RiskRegister& analysed,
                        const std::string& analysedText);

/// Replaces `globals.RiskFactors` by the plan's register. DataError as for ReadRegister: the
/// register is then as it was. Defines the two task fields where they are missing.
void OpenRegister(modGlobals& globals, host::Plan& plan);

/// Appends the factors that the plan holds to `globals.RiskFactors`; the caller empties the
/// register first for a fresh load. Defines the two task fields where they are missing. A plan
/// without register, or with one that is not well formed, adds none; a factor that cannot be
/// read raises DataError.
void LoadRegisterFromPlan(modGlobals& globals, host::Plan& plan);

/// Defines the two task fields "RiskFactors" and "Risk Factors Iterations" where they are missing.
void EnsureTaskFields(host::Plan& plan);

}  // namespace kestrel
