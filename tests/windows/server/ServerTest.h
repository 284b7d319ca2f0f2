#pragma once

#include <windows.h>
#include <ocidl.h>

#include <KestrelDll.h>
#include <gtest/gtest.h>

#include <string>

#include "platform/win32/ComApartment.h"
#include "platform/win32/ComPtr.h"
#include "platform/win32/Handles.h"

namespace kestrel::test {

using win32::ComPtr;

/// Full path of the DLL under test.
std::wstring DllPath();

/// The DLL as a host has it: loaded by path, called through its four entry points.
class LoadedDll {
 public:
    LoadedDll();

    HRESULT CanUnloadNow() const;
    HRESULT GetClassObject(REFCLSID clsid, REFIID iid, void** object) const;
    HRESULT Register() const;
    HRESULT Unregister() const;

    HMODULE Module() const { return module_.Get(); }
    ComPtr<IClassFactory> Factory() const;
    ComPtr<_clsKestrelDll> AddIn() const;

 private:
    template <class Function>
    Function Entry(const char* name) const;

    win32::LibraryHandle module_;
};

/// A test that leaves anything of the DLL behind fails.
class ServerTest : public testing::Test {
 protected:
    void TearDown() override;

    win32::ComApartment apartment_;
    LoadedDll dll_;
};

/// The methods of the public class, in its order.
struct Method {
    const wchar_t* name;
    HRESULT (STDMETHODCALLTYPE _clsKestrelDll::*call)();
};
inline constexpr Method kMethods[] = {
    {L"LaunchEdit", &_clsKestrelDll::LaunchEdit},
    {L"LaunchAssign", &_clsKestrelDll::LaunchAssign},
    {L"LaunchShow", &_clsKestrelDll::LaunchShow},
    {L"LaunchSave", &_clsKestrelDll::LaunchSave},
    {L"LaunchLoad", &_clsKestrelDll::LaunchLoad},
    {L"LaunchOptions", &_clsKestrelDll::LaunchOptions},
    {L"LaunchStartSchedulon", &_clsKestrelDll::LaunchStartSchedulon},
    {L"LaunchStopSchedulon", &_clsKestrelDll::LaunchStopSchedulon},
};

/// The description of the error information that the last failing call left; it is taken away.
std::string TakenErrorText();

}  // namespace kestrel::test
