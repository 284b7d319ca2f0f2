#pragma once

#include <memory>
#include <string>

#include "platform/win32/ComApartment.h"
#include "refhost/engine/Analysis.h"
#include "refhost/engine/NoSettings.h"
#include "refhost/windows/automation/AutomationServer.h"
#include "support/MemorySettings.h"
#include "windows/support/Client.h"

namespace refhost::test {

/// The program around the host, as a test sees it.
struct TestProgram : automation::HostProgram {
    ReferenceHost* host = nullptr;
    bool visible = false;
    int quits = 0;
    int unused = 0;  ///< how often nobody held anything any more
    std::string savedTo;

    void OpenPlan(const std::string& path) override;
    void SavePlan(HostPlan&, const std::string& path) override { savedTo = path; }
    bool IsSaved(HostPlan&) override { return !savedTo.empty(); }
    void Analyse(const AnalysisSettings& settings) override { RunAnalysis(*host, settings); }
    bool Visible() override { return visible; }
    void PutVisible(bool shown) override { visible = shown; }
    void Quit() override { ++quits; }
    void Unused() override { ++unused; }
};

/// Three tasks (a summary "S" of "A" and "B", "B" after "A"), two costs on "A", a group "G" with
/// the member "M", the user field "Owner", the text "Note".
PlanData SmallPlan();

/// A host with a plan, offered to Automation.
struct OfferedHost {
    explicit OfferedHost(PlanData plan = SmallPlan());
    ~OfferedHost();

    kestrel::win32::ComApartment com;
    MemorySettings settings;
    ReferenceHost host{settings, "C:\\Host"};
    TestProgram program;
    std::shared_ptr<automation::AutomationServer> server;
    ComPtr<IDispatch> application;

    HostPlan& Plan() { return *host.OpenPlan(); }
    ComPtr<IDispatch> PlanObject() { return Follow(application, {L"ActivePlan"}); }
    ComPtr<IDispatch> Task(const char* id) { return ItemOf(Follow(PlanObject(), {L"Tasks"}), id); }
};

}  // namespace refhost::test
