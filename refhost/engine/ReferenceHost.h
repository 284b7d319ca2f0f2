#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/HostModel.h"
#include "refhost/engine/HostPlan.h"
#include "refhost/engine/Settings.h"

namespace refhost {

/// The reference host's application object: one open plan, per-user settings, and the add-ins
/// that listen to its analyses.
class ReferenceHost final : public host::Application {
 public:
    ReferenceHost(Settings& settings, std::string installationFolder)
        : settings_(settings), path_(std::move(installationFolder)) {}

    /// Raises kestrel::HostError while an analysis runs.
    void Open(std::shared_ptr<HostPlan> plan);
    const std::shared_ptr<HostPlan>& OpenPlan() const { return plan_; }

    /// An analysis, from its beginning to its end. HostError when one runs already: a listener
    /// cannot start one.
    class AnalysisMark {
     public:
        explicit AnalysisMark(ReferenceHost& host);
        ~AnalysisMark() { host_.analysing_ = false; }
        AnalysisMark(const AnalysisMark&) = delete;
        AnalysisMark& operator=(const AnalysisMark&) = delete;

     private:
        ReferenceHost& host_;
    };

    bool IsAnalysing() const { return analysing_; }

    /// Raise the events to every listener, in order of subscription. A listener may end its
    /// subscription meanwhile.
    void RaiseBeforeRiskAnalysis();
    void RaiseAfterRiskIteration();
    void RaiseAfterRiskAnalysis();

    /// Called when busy state or status text may have changed; optional.
    std::function<void()> OnStatus;
    bool Busy() const { return busy_; }
    const std::string& StatusText() const { return status_; }

    host::PlanPtr ActivePlan() override { return plan_; }
    std::string Path() override { return path_; }
    std::string GetSetting(const std::string& application, const std::string& section,
                           const std::string& key, const std::string& fallback) override {
        return settings_.Get(application, section, key, fallback);
    }
    void SaveSetting(const std::string& application, const std::string& section,
                     const std::string& key, const std::string& value) override {
        settings_.Save(application, section, key, value);
    }
    std::int32_t VersionMajor() override { return 8; }
    std::int32_t VersionMinor() override { return 1; }
    std::int32_t VersionRevision() override { return 0; }
    void PutBusy(bool busy) override {
        busy_ = busy;
        if (OnStatus) OnStatus();
    }
    void PutStatusText(const std::string& text) override {
        status_ = text;
        if (OnStatus) OnStatus();
    }
    void Subscribe(host::AnalysisEvents& sink) override { sinks_.push_back(&sink); }
    void Unsubscribe(host::AnalysisEvents& sink) override { std::erase(sinks_, &sink); }

 private:
    void Raise(void (host::AnalysisEvents::*event)(const host::PlanPtr&));

    Settings& settings_;
    std::string path_;
    std::shared_ptr<HostPlan> plan_;
    std::vector<host::AnalysisEvents*> sinks_;
    bool analysing_ = false;
    bool busy_ = false;
    std::string status_;
};

}  // namespace refhost
