#pragma once

#include <windows.h>
#include <ocidl.h>
#include <olectl.h>

#include "refhost/windows/automation/AutomationObject.h"
#include "refhost/windows/automation/EventSource.h"

namespace refhost::automation {

/// The host's Application object, with its class description and its events.
class ApplicationObject final : public AutomationObject,
                                public IProvideClassInfo2,
                                public IConnectionPointContainer {
 public:
    explicit ApplicationObject(std::shared_ptr<AutomationServer> server);
    ~ApplicationObject() override;

    void Disconnect() { events_.Disconnect(); }

    // IUnknown, of every interface
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override {
        return AutomationObject::QueryInterface(iid, object);
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return AutomationObject::AddRef(); }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return AutomationObject::Release(); }

    // IProvideClassInfo2
    HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) noexcept override;
    HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* guid) noexcept override;

    // IConnectionPointContainer
    HRESULT STDMETHODCALLTYPE
    EnumConnectionPoints(IEnumConnectionPoints** points) noexcept override;
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid,
                                                  IConnectionPoint** point) noexcept override;

 private:
    IUnknown* OtherInterface(REFIID iid) noexcept override;
    void Run(DISPID id, WORD kinds, Invocation& call) override;

    ReferenceHost& Host() const { return Server().Host(); }
    HostProgram& Program() const { return Server().Program(); }

    EventSource events_;
};

}  // namespace refhost::automation
