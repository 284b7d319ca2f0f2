#pragma once

#include <windows.h>
#include <oaidl.h>

#include <string>
#include <string_view>

/// The edge between C++ and COM: failures leave as a failing HRESULT, with a sentence as error
/// information, never as an exception.
namespace kestrel::win32 {

/// What the failures of HostError, of DataError and of a call in the middle of another one are
/// called across COM.
inline constexpr HRESULT kHostFailed = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_ITF, 0x201);
inline constexpr HRESULT kUnreadable = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_ITF, 0x202);
inline constexpr HRESULT kBusy = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_ITF, 0x203);

/// Who reports a failure: the interface that was called, the class's registered name, and whose
/// fault it is when the program itself is wrong.
struct ErrorOrigin {
    const IID& iid;
    const wchar_t* source;
    const char* program = "The risk factors add-in";
};

/// Leaves the sentence as this thread's error information and answers `code`. Where even that
/// fails, what an earlier call left is removed: it must not pass for ours.
HRESULT FailWith(HRESULT code, const ErrorOrigin& origin, std::string_view sentence) noexcept;

/// The exception that is being handled, as FailWith: HostError kHostFailed, DataError kUnreadable,
/// std::bad_alloc E_OUTOFMEMORY, anything else E_UNEXPECTED. To be called in a handler only.
HRESULT TranslateException(const ErrorOrigin& origin) noexcept;

/// The same as IDispatch::Invoke answers it: with the sentence in `failure`, or as the thread's
/// error information when the caller wants no more than that.
HRESULT TranslateException(const ErrorOrigin& origin, EXCEPINFO* failure) noexcept;

/// What an object that was called through IDispatch::Invoke tells of its failure; its strings are
/// freed at the end.
class ExceptionInfo : public EXCEPINFO {
 public:
    ExceptionInfo() : EXCEPINFO{} {}
    ~ExceptionInfo() {
        if (bstrSource || bstrDescription || bstrHelpFile) FreeStrings();
    }
    ExceptionInfo(const ExceptionInfo&) = delete;
    ExceptionInfo& operator=(const ExceptionInfo&) = delete;

    /// Has an object that describes its failures only on demand do so.
    void FillIn();
    /// UTF-8; empty when there is none.
    std::string Description() const;

 private:
    void FreeStrings();
};

}  // namespace kestrel::win32

/// Ends the function-try-block of every method that COM calls:
///     HRESULT Object::Method() noexcept try { ... return S_OK; } KESTREL_COM_CATCH(kOrigin)
#define KESTREL_COM_CATCH(origin)                            \
    catch (...) {                                            \
        return ::kestrel::win32::TranslateException(origin); \
    }
