#include "com/server/AddInObject.h"

#include <memory>
#include <utility>

#include "com/automation/HostLink.h"
#include "com/server/Module.h"
#include "platform/win32/ComErrors.h"
#include "platform/win32/ComObject.h"

namespace kestrel::com {
namespace {

using win32::ComPtr;

constexpr win32::ErrorOrigin kOrigin{IID__clsKestrelDll, L"KestrelDll.clsKestrelDll"};

/// Whether the object has the member by which a host's Application is known. Others who give
/// themselves as a site, such as the engine of a script, have not.
bool IsHostApplication(IDispatch& object) {
    wchar_t member[] = L"ActivePlan";
    LPOLESTR name = member;
    DISPID id = DISPID_UNKNOWN;
    return SUCCEEDED(object.GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id));
}

}  // namespace

/// One command or event of the host while it runs. The object outlives it even when the host lets
/// go of it meanwhile.
class AddInObject::Call {
 public:
    explicit Call(AddInObject& object)
        : self_(&object),
          object_(object),
          border_(object.border_),
          floatingPoint_(*border_),
          outermost_(!std::exchange(object.busy_, true)) {}
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;
    ~Call() {
        if (!outermost_) return;  // an event, while a command's window is open
        object_.busy_ = false;
        if (std::exchange(object_.siteChanged_, false)) object_.StopListening();
        if (!object_.listening_) object_.LetHostGo();
    }

 private:
    ComPtr<_clsKestrelDll> self_;
    AddInObject& object_;
    const std::shared_ptr<win32::FloatingPointBorder> border_;
    const win32::FloatingPointBorder::InAddIn floatingPoint_;
    const bool outermost_;
};

AddInObject::AddInObject(IUnknown* outer)
    : own_(*this),
      outer_(outer ? outer : &own_),
      runner_(OwnModule()),
      addIn_([this] { return AttachHost(); }, desktop_, runner_) {}

AddInObject::~AddInObject() { StopListening(); }

HRESULT AddInObject::Create(IUnknown* outer, REFIID iid, void** object) noexcept try {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (outer && iid != IID_IUnknown) return CLASS_E_NOAGGREGATION;
    OwnUnknown& own = (new AddInObject(outer))->own_;
    const HRESULT result = own.QueryInterface(iid, object);
    own.Release();
    return result;
}
KESTREL_COM_CATCH(kOrigin)

HRESULT AddInObject::OwnUnknown::QueryInterface(REFIID iid, void** object) noexcept {
    if (iid == IID_IUnknown) return win32::AnswerInterface(this, object);
    return win32::AnswerInterface(
        win32::FindInterface<_clsKestrelDll, ISupportErrorInfo, IProvideClassInfo, IObjectWithSite>(
            &object_, iid),
        object);
}

ULONG AddInObject::OwnUnknown::Release() noexcept {
    const ULONG left = --references_;
    if (left == 0) {
        references_ = 1;  // whoever is called on the way out may take and drop a reference
        delete &object_;
    }
    return left;
}

HRESULT AddInObject::QueryInterface(REFIID iid, void** object) noexcept {
    return outer_->QueryInterface(iid, object);
}

ULONG AddInObject::AddRef() noexcept { return outer_->AddRef(); }

ULONG AddInObject::Release() noexcept { return outer_->Release(); }

HRESULT AddInObject::GetTypeInfoCount(UINT* count) noexcept {
    if (!count) return E_POINTER;
    *count = 1;
    return S_OK;
}

HRESULT AddInObject::GetTypeInfo(UINT index, LCID, ITypeInfo** info) noexcept {
    if (!info) return E_POINTER;
    *info = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    const HRESULT result = LoadType();
    if (SUCCEEDED(result)) *info = ComPtr<ITypeInfo>(type_).Detach();
    return result;
}

HRESULT AddInObject::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID,
                                   DISPID* ids) noexcept {
    if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    const HRESULT result = LoadType();
    return FAILED(result) ? result : type_->GetIDsOfNames(names, count, ids);
}

HRESULT AddInObject::Invoke(DISPID id, REFIID iid, LCID, WORD flags, DISPPARAMS* parameters,
                            VARIANT* result, EXCEPINFO* exception, UINT* wrong) noexcept {
    if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (!parameters) return E_INVALIDARG;
    // The system's own Invoke drops arguments that a method does not take.
    if (parameters->cArgs != 0 || parameters->cNamedArgs != 0) return DISP_E_BADPARAMCOUNT;
    const HRESULT loaded = LoadType();
    if (FAILED(loaded)) return loaded;
    const ComPtr<_clsKestrelDll> self(this);  // also while the failure is looked into
    const ComPtr<ITypeInfo> type = type_;
    return type->Invoke(self.Get(), id, flags, parameters, result, exception, wrong);
}

HRESULT AddInObject::LoadType() noexcept {
    return type_ ? S_OK : LoadOwnTypeInfo(IID__clsKestrelDll, type_.Out());
}

template <class Action>
HRESULT AddInObject::Run(Action action) noexcept try {
    if (busy_)
        return win32::FailWith(
            win32::kBusy, kOrigin,
            "The risk factors add-in is still at work: close its window, or wait "
            "for the risk analysis to end, and try again.");
    const Call call(*this);
    action();
    return S_OK;
}
KESTREL_COM_CATCH(kOrigin)

HRESULT AddInObject::Run(void (kestrel::clsKestrelDll::*command)()) noexcept {
    return Run([&] { (addIn_.*command)(); });
}

HRESULT AddInObject::LaunchEdit() noexcept { return Run(&kestrel::clsKestrelDll::LaunchEdit); }

HRESULT AddInObject::LaunchAssign() noexcept { return Run(&kestrel::clsKestrelDll::LaunchAssign); }

HRESULT AddInObject::LaunchShow() noexcept { return Run(&kestrel::clsKestrelDll::LaunchShow); }

HRESULT AddInObject::LaunchSave() noexcept { return Run(&kestrel::clsKestrelDll::LaunchSave); }

HRESULT AddInObject::LaunchLoad() noexcept { return Run(&kestrel::clsKestrelDll::LaunchLoad); }

HRESULT AddInObject::LaunchOptions() noexcept {
    return Run(&kestrel::clsKestrelDll::LaunchOptions);
}

HRESULT AddInObject::LaunchStartSchedulon() noexcept {
    return Run([this] {
        addIn_.LaunchStartSchedulon();
        listening_ = true;
    });
}

HRESULT AddInObject::LaunchStopSchedulon() noexcept {
    return Run([this] {
        listening_ = false;  // even when the host does not answer any more
        addIn_.LaunchStopSchedulon();
    });
}

HRESULT AddInObject::InterfaceSupportsErrorInfo(REFIID iid) noexcept {
    return iid == IID__clsKestrelDll || iid == IID_IDispatch ? S_OK : S_FALSE;
}

HRESULT AddInObject::GetClassInfo(ITypeInfo** info) noexcept {
    if (!info) return E_POINTER;
    *info = nullptr;
    return LoadOwnTypeInfo(CLSID_clsKestrelDll, info);
}

HRESULT AddInObject::SetSite(IUnknown* site) noexcept {
    if (site == site_.Get()) return S_OK;
    site_ = site;
    if (busy_) {
        siteChanged_ = true;  // the command that is open goes on with the host that it has
    } else {
        StopListening();
        LetHostGo();
    }
    return S_OK;
}

HRESULT AddInObject::GetSite(REFIID iid, void** site) noexcept {
    if (!site) return E_POINTER;
    *site = nullptr;
    return site_ ? site_->QueryInterface(iid, site) : E_FAIL;
}

ComPtr<IDispatch> AddInObject::HostAsSite() const {
    auto application = site_.As<IDispatch>(IID_IDispatch);
    if (application && !IsHostApplication(*application)) return nullptr;
    return application;
}

host::ApplicationPtr AddInObject::AttachHost() {
    ComPtr<IDispatch> application;
    {
        const win32::FloatingPointBorder::InHost floatingPoint(*border_);
        application = HostAsSite();
        if (!application) application = FindHost();
    }
    return WrapApplication(std::move(application), border_,
                           [this] { return std::make_shared<Call>(*this); });
}

void AddInObject::StopListening() noexcept {
    listening_ = false;
    const auto border = border_;
    const win32::FloatingPointBorder::InAddIn floatingPoint(*border);
    try {
        addIn_.LaunchStopSchedulon();
    } catch (...) {
        // The host is gone or going: there is nobody to tell.
    }
}

void AddInObject::LetHostGo() noexcept {
    modGlobals& globals = addIn_.Globals();
    globals.RiskFactors.clear();
    globals.analysis.reset();
    globals.application.reset();
}

}  // namespace kestrel::com
