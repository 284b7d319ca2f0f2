#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "host/clsKestrelDll.h"
#include "store/RegisterDocument.h"
#include "support/FakeDesktop.h"
#include "support/FakeHost.h"
#include "support/ScriptedRunner.h"

namespace kestrel::test {

/// The add-in on a plan in memory; its windows are opened through its commands and worked by a
/// script.
class AddInTest : public testing::Test {
 protected:
    using Script = std::function<void(User&)>;

    AddInTest() : addin([this] { return host.application; }, desktop, runner) {}

    void Option(const std::string& key, const std::string& value) {
        host.application->settings[{"RiskFactors", "RiskFactors", key}] = value;
    }
    /// Empty when nothing is stored.
    std::string Stored(const std::string& key) const {
        const auto found = host.application->settings.find({"RiskFactors", "RiskFactors", key});
        return found == host.application->settings.end() ? "" : found->second;
    }

    /// Stores `count` factors named F1, F2, ... in the plan. `change` sees each of them.
    void StoreFactors(int count, const std::function<void(int, clsRiskFactor&)>& change = {}) {
        modGlobals globals(desktop);
        for (int i = 1; i <= count; ++i) {
            auto& factor = globals.RiskFactors.emplace_back(std::make_shared<clsRiskFactor>());
            factor->strDescription = "F" + std::to_string(i);
            if (change) change(i, *factor);
        }
        SaveRegisterToPlan(globals.RiskFactors, *host.plan);
    }

    FakeHost host;
    FakeDesktop desktop;
    ScriptedRunner runner;
    clsKestrelDll addin;
};

}  // namespace kestrel::test
