#pragma once

#include <tuple>

#include "support/FakePlan.h"

/// A host in memory. Tests set and read the objects' public data directly, which costs no host
/// call; the code under test goes through the host::... interfaces, where every call is recorded
/// and can be made to fail. The objects live as long as the FakeHost that made them.
///
///     FakeHost host;
///     auto task = host.AddTask("10", "Foundations");
///     task->texts["RiskFactors"] = "(1,2)";
///     host.plan->randoms = {0.25, 0.75};
///     host.log.FailCall(3);
namespace kestrel::test {

class FakeApplication : public host::Application {
 public:
    explicit FakeApplication(CallLog& log) : log_(log) {}

    std::shared_ptr<FakePlan> plan;  ///< the active one; may be nothing
    std::string path = "C:\\Host";
    std::int32_t version[3] = {8, 0, 100};
    /// By application, section and key.
    std::map<std::tuple<std::string, std::string, std::string>, std::string> settings;
    std::vector<bool> busy;                ///< every put, in order
    std::vector<std::string> statusTexts;  ///< every put, in order
    std::vector<host::AnalysisEvents*> sinks;

    host::PlanPtr ActivePlan() override { return log_.Noted("Application.ActivePlan", plan); }
    std::string Path() override { return log_.Noted("Application.Path", path); }
    std::string GetSetting(const std::string& application, const std::string& section,
                           const std::string& key, const std::string& fallback) override {
        log_.Note("Application.GetSetting");
        const auto found = settings.find({application, section, key});
        return found == settings.end() ? fallback : found->second;
    }
    void SaveSetting(const std::string& application, const std::string& section,
                     const std::string& key, const std::string& value) override {
        log_.Noted("Application.SaveSetting", settings)[{application, section, key}] = value;
    }
    std::int32_t VersionMajor() override {
        return log_.Noted("Application.VersionMajor", version[0]);
    }
    std::int32_t VersionMinor() override {
        return log_.Noted("Application.VersionMinor", version[1]);
    }
    std::int32_t VersionRevision() override {
        return log_.Noted("Application.VersionRevision", version[2]);
    }
    void PutBusy(bool value) override { log_.Noted("Application.PutBusy", busy).push_back(value); }
    void PutStatusText(const std::string& text) override {
        log_.Noted("Application.PutStatusText", statusTexts).push_back(text);
    }
    void Subscribe(host::AnalysisEvents& sink) override {
        log_.Noted("Application.Subscribe", sinks).push_back(&sink);
    }
    void Unsubscribe(host::AnalysisEvents& sink) override {
        std::erase(log_.Noted("Application.Unsubscribe", sinks), &sink);
    }

 private:
    CallLog& log_;
};

/// An application with one empty, active plan.
class FakeHost {
 public:
    FakeHost() { application->plan = plan; }

    CallLog log;
    std::shared_ptr<FakeApplication> application = std::make_shared<FakeApplication>(log);
    std::shared_ptr<FakePlan> plan = std::make_shared<FakePlan>(log);

    /// Appends a task to the plan, below `parent` when one is given, which becomes a summary.
    std::shared_ptr<FakeTask> AddTask(const std::string& id, const std::string& name,
                                      const std::string& riskFactors = {},
                                      FakeTask* parent = nullptr) {
        auto task = std::make_shared<FakeTask>(log, id, name);
        if (!riskFactors.empty()) task->texts["RiskFactors"] = riskFactors;
        if (parent) {
            parent->type = host::kSummaryTask;
            parent->children.push_back(task);
        }
        return plan->tasks.emplace_back(task);
    }
};

}  // namespace kestrel::test
