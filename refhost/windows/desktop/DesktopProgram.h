#pragma once

#include "base/Errors.h"
#include "refhost/engine/Analysis.h"
#include "refhost/windows/automation/HostProgram.h"
#include "refhost/workbench/Workbench.h"

namespace refhost::win32 {

/// The window's program as Automation meets it: what opens, saves and ends is the user's to say.
class DesktopProgram : public automation::HostProgram {
 public:
    explicit DesktopProgram(ReferenceHost& host) : host_(host) {}

    void OpenPlan(const std::string&) override { Refuse("opens plans"); }
    void SavePlan(HostPlan&, const std::string&) override { Refuse("saves plans"); }
    bool IsSaved(HostPlan&) override { return false; }
    void Analyse(const AnalysisSettings& settings) override { RunAnalysis(host_, settings); }
    bool Visible() override { return true; }
    void PutVisible(bool) override {}
    void Quit() override { Refuse("ends this program"); }
    void Unused() override {}

 private:
    [[noreturn]] static void Refuse(const char* what) {
        throw kestrel::HostError(std::string("In this host only the user ") + what + ".");
    }

    ReferenceHost& host_;
};

}  // namespace refhost::win32
