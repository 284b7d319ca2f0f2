#pragma once

#include <map>
#include <memory>
#include <string>
#include <tuple>

#include "TestPaths.h"
#include "host/clsKestrelDll.h"
#include "refhost/engine/Analysis.h"
#include "refhost/engine/ReferenceHost.h"
#include "refhost/files/PlanFile.h"
#include "support/FakeDesktop.h"
#include "windows/support/WatchedRunner.h"

namespace kestrel::test {

/// Settings that last as long as the object.
class MemorySettings : public refhost::Settings {
 public:
    std::string Get(const std::string& application, const std::string& section,
                    const std::string& key, const std::string& fallback) override {
        const auto found = values.find({application, section, key});
        return found == values.end() ? fallback : found->second;
    }
    void Save(const std::string& application, const std::string& section, const std::string& key,
              const std::string& value) override {
        values[{application, section, key}] = value;
    }
    std::map<std::tuple<std::string, std::string, std::string>, std::string> values;
};

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
    MemorySettings settings;
    refhost::ReferenceHost host;
    WatchedRunner runner;
    clsKestrelDll addin;
};

}  // namespace kestrel::test
