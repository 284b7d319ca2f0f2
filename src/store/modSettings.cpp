#include "store/modSettings.h"

namespace kestrel {
namespace {

constexpr const char* kApplication = "RiskFactors";
constexpr const char* kSection = "RiskFactors";
constexpr const char* kOptionsSection = "Options";

void Save(host::Application& application, const char* key, const std::string& value) {
    application.SaveSetting(kApplication, kSection, key, value);
}

std::string Get(host::Application& application, const char* key, const std::string& fallback) {
    return application.GetSetting(kApplication, kSection, key, fallback);
}

}  // namespace

void SaveFileLocation(host::Application& application, const std::string& value) {
    Save(application, "FileLocation", value);
}

void SaveOptionSetting(host::Application& application, const std::string& value) {
    Save(application, "OptionSetting", value);
}

void SaveShowIterations(host::Application& application, bool value) {
    Save(application, "ShowIterations", value ? "TRUE" : "FALSE");
}

void SaveTop(host::Application& application, const std::string& value) {
    Save(application, "Top", value);
}

void SaveLeft(host::Application& application, const std::string& value) {
    Save(application, "Left", value);
}

void SaveCalculationOption(host::Application& application, const std::string& value) {
    Save(application, "CalculationOption", value);
}

std::string GetFileLocation(host::Application& application) {
    return Get(application, "FileLocation",
               application.Path() + "\\Samples\\SampleRiskFactors.xml");
}

std::string GetOptionSetting(host::Application& application) {
    return Get(application, "OptionSetting", "2");
}

bool GetShowIterations(host::Application& application) {
    return Get(application, "ShowIterations", "FALSE") == "TRUE";
}

std::string GetAssignView(host::Application& application) {
    return Get(application, "AssignView", "1");
}

std::string GetTop(host::Application& application) { return Get(application, "Top", "180"); }

std::string GetLeft(host::Application& application) { return Get(application, "Left", "20.25"); }

std::string GetCalculationOption(host::Application& application) {
    return Get(application, "CalculationOption", "1");
}

std::string GetShowTopRisks(host::Application& application) {
    return application.GetSetting(kApplication, kOptionsSection, "ShowTopRisks", "10");
}

}  // namespace kestrel
