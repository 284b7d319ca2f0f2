#pragma once

#include <string>

#include "host/HostModel.h"

/// The add-in's per-user options, kept as text by the host's settings service.
namespace kestrel {

void SaveFileLocation(host::Application& application, const std::string& value);
void SaveOptionSetting(host::Application& application, const std::string& value);
void SaveShowIterations(host::Application& application, bool value);
void SaveTop(host::Application& application, const std::string& value);
void SaveLeft(host::Application& application, const std::string& value);
void SaveCalculationOption(host::Application& application, const std::string& value);

/// Path of the register file that the editor offers.
std::string GetFileLocation(host::Application& application);
/// What a plan without factors starts with: "1" a file, "2" ask, "3" nothing.
std::string GetOptionSetting(host::Application& application);
/// True exactly when "TRUE" is stored.
bool GetShowIterations(host::Application& application);
/// Which assignment window opens: "1" normal, "2" advanced.
std::string GetAssignView(host::Application& application);
std::string GetTop(host::Application& application);
std::string GetLeft(host::Application& application);
std::string GetCalculationOption(host::Application& application);
/// How many factors the driving-risks window shows, as text.
std::string GetShowTopRisks(host::Application& application);

}  // namespace kestrel
