#include "com/automation/EventSubscription.h"

#include "base/Errors.h"
#include "com/automation/EventInterface.h"
#include "platform/win32/SystemMessage.h"

namespace kestrel::com {

EventSubscription::EventSubscription(const Dispatch& application, host::AnalysisEvents& listener) {
    const win32::FloatingPointBorder::InHost floatingPoint(*application.Connection().border);
    IDispatch& object = *application.Object();
    const EventInterface source = FindEventInterface(object);
    auto point = FindConnectionPoint(object, source.id);
    sink_ = win32::MakeCom<EventSink>(source, application.SharedConnection(), listener);
    const HRESULT result = cookie_.Advise(std::move(point), *sink_);
    if (SUCCEEDED(result)) return;
    sink_->Disconnect();
    throw HostError("The host refused to tell the add-in of its risk analyses (" +
                    win32::SystemMessage(result) + "); start the host anew and try again.");
}

EventSubscription::~EventSubscription() {
    // First of all: the host may go on calling until, or although, it is told to let go.
    if (sink_) sink_->Disconnect();
}

}  // namespace kestrel::com
