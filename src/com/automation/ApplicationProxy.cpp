#include "com/automation/ApplicationProxy.h"

#include <algorithm>

#include "com/automation/HostList.h"
#include "com/automation/PlanProxies.h"

namespace kestrel::com {

using win32::Bstr;

host::PlanPtr ApplicationProxy::ActivePlan() {
    return Wrap<PlanProxy>(application_.Child(HostMember::ApplicationActivePlan));
}

std::string ApplicationProxy::GetSetting(const std::string& application, const std::string& section,
                                         const std::string& key, const std::string& fallback) {
    return application_.Text(HostMember::ApplicationGetSetting, Bstr(application), Bstr(section),
                             Bstr(key), Bstr(fallback));
}

void ApplicationProxy::SaveSetting(const std::string& application, const std::string& section,
                                   const std::string& key, const std::string& value) {
    application_.Run(HostMember::ApplicationSaveSetting, Bstr(application), Bstr(section),
                     Bstr(key), Bstr(value));
}

void ApplicationProxy::PutStatusText(const std::string& text) {
    application_.Put(HostMember::ApplicationStatusText, Bstr(text));
}

void ApplicationProxy::Subscribe(host::AnalysisEvents& listener) {
    const auto subscribed = [&](const auto& one) { return one.IsFor(listener); };
    if (std::any_of(subscriptions_.begin(), subscriptions_.end(), subscribed)) return;
    EventSubscription fresh(application_, listener);  // may call back: the list is not open
    subscriptions_.push_back(std::move(fresh));
}

void ApplicationProxy::Unsubscribe(host::AnalysisEvents& listener) {
    const auto found = std::find_if(subscriptions_.begin(), subscriptions_.end(),
                                    [&](const auto& one) { return one.IsFor(listener); });
    if (found == subscriptions_.end()) return;
    const EventSubscription ending = std::move(*found);  // may call back: the list is not open
    subscriptions_.erase(found);
}

}  // namespace kestrel::com
