#pragma once

#include <memory>
#include <string>

#include "TestPaths.h"
#include "host/clsKestrelDll.h"
#include "refhost/engine/Analysis.h"
#include "refhost/engine/ReferenceHost.h"
#include "refhost/files/PlanFile.h"
#include "support/FakeDesktop.h"
#include "support/MemorySettings.h"
#include "windows/support/WatchedRunner.h"

namespace kestrel::test {

/// The reference host with the example plan open, analysed once, and the add-in with its windows.
class FerryStage {
 public:
    explicit FerryStage(int iterations)
        : host(settings, "C:\\Program Files\\Schedulon"),
          addin([this] { return host::ApplicationPtr(&host, [](auto*) {}); }, desktop, runner) {
        host.Open(std::make_shared<refhost::HostPlan>(
            refhost::ReadPlan(desktop, KESTREL_SOURCE_DIR "/examples/ferry-terminal.kplan").plan));
        addin.LaunchStartSchedulon();
        refhost::AnalysisSettings analysis;
        analysis.iterations = iterations;
        refhost::RunAnalysis(host, analysis);
        addin.LaunchStopSchedulon();
    }

    FakeDesktop desktop;
    refhost::test::MemorySettings settings;
    refhost::ReferenceHost host;
    WatchedRunner runner;
    clsKestrelDll addin;
};

}  // namespace kestrel::test
