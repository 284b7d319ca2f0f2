#include "refhost/windows/console/AddInClass.h"

#include <optional>
#include <string>

#include "base/Errors.h"
#include "platform/win32/Handles.h"
#include "platform/win32/Paths.h"
#include "platform/win32/SystemMessage.h"
#include "platform/win32/WideText.h"
#include "refhost/windows/automation/Failures.h"

namespace refhost {

using kestrel::win32::ComPtr;

namespace {

constexpr const wchar_t* kProgId = L"KestrelDll.clsKestrelDll";
/// The resource of each program that describes the DLL beside it; the first numbers are the
/// system's own.
constexpr WORD kDllManifest = 20;

struct ContextTraits {
    using Value = HANDLE;
    static Value Invalid() { return INVALID_HANDLE_VALUE; }
    static bool Close(Value context) {
        ReleaseActCtx(context);
        return true;
    }
};
using ActivationContext = kestrel::win32::UniqueHandle<ContextTraits>;

/// Has COM look into the context first, on this thread, while it lives.
class ContextScope {
 public:
    explicit ContextScope(HANDLE context) : active_(ActivateActCtx(context, &cookie_) != FALSE) {}
    ~ContextScope() {
        if (active_) static_cast<void>(DeactivateActCtx(0, cookie_));  // it is on top
    }
    ContextScope(const ContextScope&) = delete;
    ContextScope& operator=(const ContextScope&) = delete;

 private:
    ULONG_PTR cookie_ = 0;
    bool active_;
};

std::wstring ProgramFolder() {
    const std::wstring program = kestrel::win32::ModulePath();
    return program.substr(0, program.find_last_of(L'\\') + 1);
}

bool DllIsBeside(const std::wstring& folder) {
    const DWORD attributes = GetFileAttributesW((folder + L"KestrelDll.dll").c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

/// The classes of the DLL beside the program; nothing when there is none.
ActivationContext DllBeside() {
    const std::wstring folder = ProgramFolder();
    if (!DllIsBeside(folder)) return ActivationContext();
    const std::wstring program = kestrel::win32::ModulePath();
    ACTCTXW request{};
    request.cbSize = sizeof request;
    request.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_ASSEMBLY_DIRECTORY_VALID;
    request.lpSource = program.c_str();
    request.lpResourceName = MAKEINTRESOURCEW(kDllManifest);
    request.lpAssemblyDirectory = folder.c_str();
    return ActivationContext(CreateActCtxW(&request));
}

[[noreturn]] void RefuseClass(HRESULT result) {
    throw kestrel::HostError("The add-in KestrelDll.clsKestrelDll cannot be created (" +
                             kestrel::win32::SystemMessage(static_cast<DWORD>(result)) +
                             "); put KestrelDll.dll beside this program or register it.");
}

}  // namespace

ComPtr<IDispatch> MakeAddInObject() {
    const ActivationContext beside = DllBeside();
    std::optional<ContextScope> scope;
    if (beside) scope.emplace(beside.Get());
    CLSID clsid;
    if (const HRESULT result = CLSIDFromProgID(kProgId, &clsid); FAILED(result))
        RefuseClass(result);
    ComPtr<IDispatch> object;
    const HRESULT result =
        CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, object.OutVoid());
    if (FAILED(result)) RefuseClass(result);
    return object;
}

void CallMethod(IDispatch& object, const wchar_t* method) {
    auto* name = const_cast<wchar_t*>(method);
    const std::string what = "The add-in failed in " + kestrel::win32::Utf8(method);
    DISPID id = 0;
    kestrel::win32::ExceptionInfo failure;
    HRESULT result = object.GetIDsOfNames(IID_NULL, &name, 1, LOCALE_INVARIANT, &id);
    if (FAILED(result)) throw kestrel::HostError(automation::SentenceOf(result, failure, what));
    DISPPARAMS none{};
    result = object.Invoke(id, IID_NULL, LOCALE_INVARIANT, DISPATCH_METHOD, &none, nullptr,
                           &failure, nullptr);
    if (FAILED(result)) throw kestrel::HostError(automation::SentenceOf(result, failure, what));
}

}  // namespace refhost
