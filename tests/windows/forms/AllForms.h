#pragma once

#include <functional>
#include <memory>
#include <string>

#include "host/clsKestrelDll.h"
#include "store/RegisterDocument.h"
#include "support/FakeDesktop.h"
#include "support/FakeHost.h"
#include "windows/support/WatchedRunner.h"

namespace kestrel::test {

/// The add-in with its windows on a plan in memory: factors F1 to F3, tasks 10 "T10" to 12.
class Stage {
 public:
    Stage() : addin([this] { return host.application; }, desktop, runner) {
        addin.Globals().application = host.application;
        for (int i = 1; i <= 3; ++i) {
            addin.Globals().RiskFactors.push_back(std::make_shared<clsRiskFactor>());
            addin.Globals().RiskFactors.back()->strDescription = "F" + std::to_string(i);
        }
        SaveRegisterToPlan(addin.Globals().RiskFactors, *host.plan);
        for (const char* id : {"10", "11", "12"}) host.AddTask(id, std::string("T") + id);
        host.plan->currentRow = 1;
    }

    std::string& Setting(const std::string& key, const std::string& section = "RiskFactors") {
        return host.application->settings[{"RiskFactors", section, key}];
    }
    /// Of the task in a row, from 1.
    const std::string& Field(std::size_t row) {
        return host.plan->tasks[row - 1]->texts["RiskFactors"];
    }

    FakeHost host;
    FakeDesktop desktop;
    WatchedRunner runner;
    clsKestrelDll addin;
};

/// Every form of the add-in, and the questions of the host, in a typical state.
struct AnyForm {
    std::string name;
    std::function<std::unique_ptr<ui::Form>(Stage&)> make;
};
const std::vector<AnyForm>& AllForms();

}  // namespace kestrel::test
