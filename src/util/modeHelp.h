#pragma once

#include <string>

#include "host/HostModel.h"
#include "platform/Desktop.h"

/// Topics of the host's compiled help file "Help.chm".
namespace kestrel {

inline constexpr const char* kHelpDrivingRisks = "Analysing_the_effect_of_Risk_Factors.html";
inline constexpr const char* kHelpAssign = "Assigning_Risk_Factors_to_tasks.html";
inline constexpr const char* kHelpEditor = "Defining_Risk_Factors.html";
inline constexpr const char* kHelpOptions = "Risk_Factors_behavior_during_Risk_Analysis.html";

/// Opens the topic. Raises HostError or DataError.
void ShowHelp(host::Application& application, Desktop& desktop, const std::string& topic);

/// The same for a help button: a failure is told to the user and goes no further.
void ShowHelpOrTell(host::Application& application, Desktop& desktop, const std::string& topic);

}  // namespace kestrel
