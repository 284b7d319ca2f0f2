#pragma once

#include <map>
#include <memory>
#include <utility>

#include "refhost/engine/HostPlan.h"
#include "refhost/windows/automation/AutomationObject.h"

namespace refhost::automation {

class PlanPart;

/// A plan as Automation offers it. Its objects keep it, and with it the plan. The same task,
/// group or view is the same object for as long as somebody holds it.
class OfferedPlan : public std::enable_shared_from_this<OfferedPlan> {
 public:
    /// An object's interface and what it stands for: a position, an address or 0.
    using Key = std::pair<const IID*, std::uintptr_t>;

    OfferedPlan(std::shared_ptr<AutomationServer> server, std::shared_ptr<HostPlan> plan)
        : server_(std::move(server)), plan_(std::move(plan)) {}

    HostPlan& Plan() const { return *plan_; }
    const std::shared_ptr<AutomationServer>& Server() const { return server_; }

    /// The object of that key; made as Object(*this, key, arguments...) when nobody holds one.
    template <class Object, class... Arguments>
    kestrel::win32::ComPtr<IDispatch> Offer(const Key& key, Arguments&&... arguments);
    void Forget(const Key& key) { objects_.erase(key); }

 private:
    const std::shared_ptr<AutomationServer> server_;
    const std::shared_ptr<HostPlan> plan_;
    std::map<Key, PlanPart*> objects_;  ///< those that somebody holds
};

/// An object that belongs to a plan.
class PlanPart : public AutomationObject {
 public:
    PlanPart(OfferedPlan& plan, const OfferedPlan::Key& key)
        : AutomationObject(plan.Server(), *key.first), plan_(plan.shared_from_this()), key_(key) {}

 protected:
    ~PlanPart() override { plan_->Forget(key_); }

    OfferedPlan& Owner() const { return *plan_; }
    HostPlan& Plan() const { return plan_->Plan(); }
    std::uintptr_t Position() const { return key_.second; }

 private:
    const std::shared_ptr<OfferedPlan> plan_;
    const OfferedPlan::Key key_;
};

template <class Object, class... Arguments>
kestrel::win32::ComPtr<IDispatch> OfferedPlan::Offer(const Key& key, Arguments&&... arguments) {
    using Pointer = kestrel::win32::ComPtr<IDispatch>;
    if (const auto held = objects_.find(key); held != objects_.end())
        return Pointer(held->second->AsDispatch());
    auto* object = new Object(*this, key, std::forward<Arguments>(arguments)...);
    Pointer owned = Pointer::Attach(object->AsDispatch());
    objects_.emplace(key, object);
    return owned;
}

}  // namespace refhost::automation
