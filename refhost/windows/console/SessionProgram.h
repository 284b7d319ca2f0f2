#pragma once

#include "base/Errors.h"
#include "refhost/engine/Analysis.h"
#include "refhost/windows/automation/HostProgram.h"

namespace refhost {

/// A command at work, as the add-in meets it: one plan is open, and files are the command's own
/// business.
class SessionProgram : public automation::HostProgram {
 public:
    explicit SessionProgram(ReferenceHost& host) : host_(host) {}

    void OpenPlan(const std::string&) override { Refuse("opens no other plan"); }
    void SavePlan(HostPlan&, const std::string&) override {
        Refuse("writes a plan only where -o or --save says so");
    }
    bool IsSaved(HostPlan&) override { return false; }
    void Analyse(const AnalysisSettings& settings) override { RunAnalysis(host_, settings); }
    bool Visible() override { return false; }
    void PutVisible(bool visible) override {
        if (visible) Refuse("has no window");
    }
    void Quit() override { Refuse("ends when it is done"); }
    void Unused() override {}

 private:
    [[noreturn]] static void Refuse(const char* what) {
        throw kestrel::HostError(std::string("This host runs a command, and ") + what + ".");
    }

    ReferenceHost& host_;
};

}  // namespace refhost
