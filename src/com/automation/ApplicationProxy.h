#pragma once

#include <vector>

#include "com/automation/Dispatch.h"
#include "com/automation/EventSubscription.h"
#include "host/HostModel.h"

namespace kestrel::com {

/// The host's Application object, behind Automation. Subscriptions that are left end with it.
class ApplicationProxy : public host::Application {
 public:
    explicit ApplicationProxy(Dispatch application) : application_(std::move(application)) {}

    host::PlanPtr ActivePlan() override;
    std::string Path() override { return application_.Text(HostMember::ApplicationPath); }
    std::string GetSetting(const std::string& application, const std::string& section,
                           const std::string& key, const std::string& fallback) override;
    void SaveSetting(const std::string& application, const std::string& section,
                     const std::string& key, const std::string& value) override;
    std::int32_t VersionMajor() override {
        return application_.Int32(HostMember::ApplicationVersionMajor);
    }
    std::int32_t VersionMinor() override {
        return application_.Int32(HostMember::ApplicationVersionMinor);
    }
    std::int32_t VersionRevision() override {
        return application_.Int32(HostMember::ApplicationVersionRevision);
    }
    void PutBusy(bool busy) override { application_.Put(HostMember::ApplicationBusy, busy); }
    void PutStatusText(const std::string& text) override;

    /// A second subscription of the same listener does nothing.
    void Subscribe(host::AnalysisEvents& listener) override;
    /// Never fails: a host that is gone has ended the subscription itself.
    void Unsubscribe(host::AnalysisEvents& listener) override;

 private:
    Dispatch application_;
    std::vector<EventSubscription> subscriptions_;
};

}  // namespace kestrel::com
