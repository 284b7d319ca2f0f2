#include "com/automation/HostLink.h"

#include "base/Errors.h"
#include "com/automation/ApplicationProxy.h"
#include "platform/win32/SystemMessage.h"

namespace kestrel::com {
namespace {

using win32::ComPtr;

/// The running object, when there is one that can be called by name.
ComPtr<IDispatch> RunningHost(const CLSID& hostClass) {
    ComPtr<IUnknown> running;
    if (FAILED(GetActiveObject(hostClass, nullptr, running.Out()))) return nullptr;
    return running.As<IDispatch>();
}

ComPtr<IDispatch> CreateHost(const CLSID& hostClass) {
    ComPtr<IDispatch> created;
    const HRESULT result =
        CoCreateInstance(hostClass, nullptr, CLSCTX_LOCAL_SERVER | CLSCTX_INPROC_SERVER,
                         IID_IDispatch, created.OutVoid());
    if (SUCCEEDED(result) && created) return created;
    throw HostError("Schedulon is not running and could not be started (" +
                    win32::SystemMessage(result) + "); start it and try again.");
}

}  // namespace

ComPtr<IDispatch> FindHost() {
    CLSID hostClass;
    const HRESULT result = CLSIDFromProgID(kHostProgId, &hostClass);
    if (FAILED(result))
        throw HostError("Schedulon is not registered on this computer (" +
                        win32::SystemMessage(result) + "); install or repair it and try again.");
    if (ComPtr<IDispatch> running = RunningHost(hostClass)) return running;
    return CreateHost(hostClass);
}

host::ApplicationPtr WrapApplication(ComPtr<IDispatch> application,
                                     std::shared_ptr<win32::FloatingPointBorder> border,
                                     std::function<std::shared_ptr<void>()> enterEvent) {
    if (!application) throw HostError("The host handed over no Application object.");
    auto connection = std::make_shared<HostConnection>();
    connection->border = std::move(border);
    connection->enterEvent = std::move(enterEvent);
    return std::make_shared<ApplicationProxy>(
        Dispatch(std::move(application), std::move(connection)));
}

}  // namespace kestrel::com
