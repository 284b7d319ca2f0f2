#pragma once

#include <memory>
#include <string>

#include "core/AnalysisFixture.h"
#include "windows/support/ScriptedEvents.h"
#include "windows/support/ScriptedHost.h"

namespace kestrel::test {

/// A host of Automation objects, with one plan in which one task carries a factor.
class ListenedHost {
 public:
    ListenedHost() : events(new EventSource(script_, {})) {
        plan_.StoreRegister({Factor("Rain", 100)});
        plan_.host.AddTask("1", "Dig", "1")->AddCost(100);
        const auto shown = ShowApplication(script_, plan_.host.application);
        shown->others = ComPtr<IUnknown>(static_cast<IProvideClassInfo*>(events.Get()));
        application = ComPtr<IDispatch>(shown.Get());
    }

    FakePlan& Plan() { return *plan_.host.plan; }
    /// Objects of the host that somebody holds.
    int Objects() const { return script_->objects; }

    /// Raises the events of an analysis with one iteration, in which the task takes 1.2 times as
    /// long; answers the sentences of their failures.
    std::string Analyse() {
        const ComPtr<IDispatch> plan(ShowPlan(script_, plan_.host.plan).Get());
        std::string failures = events->RaisePlan(1, plan.Get());
        for (const char* group : {kDurationGroup, kCostGroup})
            if (const auto found = Plan().Find(group))
                for (const auto& member : found->members) member->sampled = 12000;
        Plan().randoms = {0.5};
        failures += events->RaisePlan(2, plan.Get());
        return failures + events->RaisePlan(3, plan.Get());
    }

 private:
    AnalysisFixture plan_;
    ScriptPtr script_ = std::make_shared<Script>();

 public:
    ComPtr<EventSource> events;
    ComPtr<IDispatch> application;
};

}  // namespace kestrel::test
