#include "com/automation/EventSink.h"

#include <algorithm>

#include "base/Errors.h"
#include "com/automation/HostList.h"
#include "com/automation/PlanProxies.h"
#include "platform/win32/ComErrors.h"

namespace kestrel::com {
namespace {

using win32::ComPtr;

constexpr win32::ErrorOrigin kOrigin{IID_IDispatch, L"KestrelDll.clsKestrelDll"};

/// Sets a flag as long as it lives.
class Delivery {
 public:
    explicit Delivery(bool& flag) : flag_(flag) { flag_ = true; }
    ~Delivery() { flag_ = false; }
    Delivery(const Delivery&) = delete;
    Delivery& operator=(const Delivery&) = delete;

 private:
    bool& flag_;
};

}  // namespace

void EventSink::Disconnect() noexcept {
    listener_ = nullptr;
    plan_.reset();
    planObject_.Reset();
}

HRESULT EventSink::Invoke(DISPID id, REFIID reserved, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                          EXCEPINFO* failure, UINT*) noexcept try {
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    const ComPtr<EventSink> untilTheEnd(this);  // the listener may end the subscription
    const win32::FloatingPointBorder::InAddIn floatingPoint(*connection_->border);
    const std::shared_ptr<void> underWay =
        listener_ && connection_->enterEvent ? connection_->enterEvent() : nullptr;
    const auto event = std::find(source_.events.begin(), source_.events.end(), id);
    // A host has other events too; they are none of the add-in's business.
    if (listener_ && event != source_.events.end())
        Deliver(static_cast<AnalysisEvent>(event - source_.events.begin()), parameters);
    return S_OK;
} catch (...) {
    return win32::TranslateException(kOrigin, failure);
}

void EventSink::Deliver(AnalysisEvent event, const DISPPARAMS* parameters) {
    // A host that shows a window in between could begin a second analysis inside the first.
    if (delivering_)
        throw HostError(
            "The host raised an event of a risk analysis inside another one; wait for the analysis "
            "that is running to end and try again.");
    const Delivery delivery(delivering_);
    const host::PlanPtr plan = PlanOf(parameters);
    if (!listener_) return;  // gone since, as the host took its earlier plan back
    switch (event) {
        case AnalysisEvent::PlanBeforeRiskAnalysis:
            listener_->PlanBeforeRiskAnalysis(plan);
            break;
        case AnalysisEvent::PlanAfterRiskIteration:
            listener_->PlanAfterRiskIteration(plan);
            break;
        case AnalysisEvent::PlanAfterRiskAnalysis:
            plan_.reset();  // a plan that is analysed no more is not held open
            planObject_.Reset();
            listener_->PlanAfterRiskAnalysis(plan);
            break;
    }
}

host::PlanPtr EventSink::PlanOf(const DISPPARAMS* parameters) {
    if (!parameters || parameters->cArgs == 0 || !parameters->rgvarg) return nullptr;
    // Arguments come last to first, and the plan is the first.
    const ComPtr<IDispatch> object =
        ObjectOf(parameters->rgvarg[parameters->cArgs - 1], HostMember::EventPlan);
    if (object.Get() != planObject_.Get()) {
        plan_ = Wrap<PlanProxy>(Dispatch(object, connection_));
        planObject_ = object;
    }
    return plan_;
}

}  // namespace kestrel::com
