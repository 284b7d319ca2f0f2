#pragma once

#include <windows.h>
#include <ocidl.h>

#include <KestrelDll.h>

#include <atomic>
#include <memory>

#include "host/clsKestrelDll.h"
#include "platform/win32/ComPtr.h"
#include "platform/win32/FloatingPointBorder.h"
#include "platform/win32/ModuleRef.h"
#include "platform/win32/Win32Desktop.h"
#include "ui/win32/WindowRunner.h"

namespace kestrel::com {

/// The add-in's public class as a COM object.
///
/// It reaches its host through its site when the host has handed over its Application object as
/// such (IObjectWithSite), else under the host's registered name: of several hosts that run, the
/// registered one may be another process. The host is held while the add-in listens to it, and
/// otherwise only during a command, so that neither keeps the other alive.
///
/// One call at a time: another that arrives while a command's window is open, or in the middle of
/// an analysis event, fails with kBusy.
class AddInObject final : public _clsKestrelDll,
                          public ISupportErrorInfo,
                          public IProvideClassInfo,
                          public IObjectWithSite {
 public:
    /// A new object's interface `iid`. With `outer` the object becomes part of that one, and `iid`
    /// has to be IUnknown.
    static HRESULT Create(IUnknown* outer, REFIID iid, void** object) noexcept;

    // IUnknown: the whole object's, which is the outer one's when there is one
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override;
    ULONG STDMETHODCALLTYPE AddRef() noexcept override;
    ULONG STDMETHODCALLTYPE Release() noexcept override;

    // IDispatch
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** info) noexcept override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                            DISPID* ids) noexcept override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID, WORD flags,
                                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                     UINT* wrong) noexcept override;

    // _clsKestrelDll
    HRESULT STDMETHODCALLTYPE LaunchEdit() noexcept override;
    HRESULT STDMETHODCALLTYPE LaunchAssign() noexcept override;
    HRESULT STDMETHODCALLTYPE LaunchShow() noexcept override;
    HRESULT STDMETHODCALLTYPE LaunchSave() noexcept override;
    HRESULT STDMETHODCALLTYPE LaunchLoad() noexcept override;
    HRESULT STDMETHODCALLTYPE LaunchOptions() noexcept override;
    HRESULT STDMETHODCALLTYPE LaunchStartSchedulon() noexcept override;
    HRESULT STDMETHODCALLTYPE LaunchStopSchedulon() noexcept override;

    // ISupportErrorInfo
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) noexcept override;

    // IProvideClassInfo
    HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) noexcept override;

    // IObjectWithSite: another site than before ends the listening to the host
    HRESULT STDMETHODCALLTYPE SetSite(IUnknown* site) noexcept override;
    HRESULT STDMETHODCALLTYPE GetSite(REFIID iid, void** site) noexcept override;

 private:
    /// The object's own identity, which an outer object holds and nobody else ever sees.
    class OwnUnknown final : public IUnknown {
     public:
        explicit OwnUnknown(AddInObject& object) : object_(object) {}
        HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override;
        ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references_; }
        ULONG STDMETHODCALLTYPE Release() noexcept override;

     private:
        AddInObject& object_;
        std::atomic<ULONG> references_{1};
    };

    class Call;

    explicit AddInObject(IUnknown* outer);
    ~AddInObject();

    template <class Action>
    HRESULT Run(Action action) noexcept;
    HRESULT Run(void (kestrel::clsKestrelDll::*command)()) noexcept;
    HRESULT LoadType() noexcept;
    host::ApplicationPtr AttachHost();
    win32::ComPtr<IDispatch> HostAsSite() const;
    void StopListening() noexcept;
    /// Only while nothing of the add-in runs that uses the host.
    void LetHostGo() noexcept;

    win32::ModuleRef moduleRef_;
    OwnUnknown own_;
    IUnknown* outer_;  ///< not counted: it holds this object, or is `own_`
    win32::ComPtr<ITypeInfo> type_;
    win32::ComPtr<IUnknown> site_;
    const std::shared_ptr<win32::FloatingPointBorder> border_ =
        std::make_shared<win32::FloatingPointBorder>();
    win32::Win32Desktop desktop_;
    ui::win32::WindowRunner runner_;
    kestrel::clsKestrelDll addIn_;
    bool busy_ = false;
    bool listening_ = false;
    bool siteChanged_ = false;  ///< while `busy_`; looked after when it ends
};

}  // namespace kestrel::com
