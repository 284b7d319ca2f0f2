#pragma once

#include <windows.h>
#include <oaidl.h>
#include <ocidl.h>

#include <atomic>
#include <type_traits>
#include <utility>

#include "platform/win32/ComPtr.h"
#include "platform/win32/ModuleRef.h"

/// What every COM object owes: identity, reference counts, its module kept in memory.
namespace kestrel::win32 {

/// Whether an object that has the interface answers to `iid`: the interface's own, or that of one
/// that it extends.
template <class Interface>
bool AnswersTo(REFIID iid) {
    if (iid == __uuidof(Interface) || iid == __uuidof(IUnknown)) return true;
    if constexpr (std::is_base_of_v<IDispatch, Interface>) return iid == __uuidof(IDispatch);
    if constexpr (std::is_base_of_v<IProvideClassInfo, Interface>)
        return iid == __uuidof(IProvideClassInfo);
    return false;
}

/// The interface that the object has under `iid`, IUnknown being the first of the list; nothing
/// when it has none. No reference is added.
template <class... Interfaces, class Object>
IUnknown* FindInterface(Object* object, REFIID iid) {
    IUnknown* found = nullptr;
    static_cast<void>(
        ((AnswersTo<Interfaces>(iid) && (found = static_cast<Interfaces*>(object)) != nullptr) ||
         ...));
    return found;
}

/// The end of a QueryInterface: answers what was found, with a reference added, or that there is
/// nothing.
inline HRESULT AnswerInterface(IUnknown* found, void** object) noexcept {
    if (!object) return E_POINTER;
    *object = found;
    if (!found) return E_NOINTERFACE;
    found->AddRef();
    return S_OK;
}

/// Base of an object with these interfaces. It is made with `new` (see MakeCom) holding one
/// reference, its maker's, and ends with the last one.
template <class... Interfaces>
class ComObject : public Interfaces... {
 public:
    ComObject() = default;
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override {
        IUnknown* const found = FindInterface<Interfaces...>(this, iid);
        return AnswerInterface(found ? found : OtherInterface(iid), object);
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() noexcept override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

 protected:
    virtual ~ComObject() = default;

    /// An interface that is not in the list, without a reference added; nothing when there is none.
    virtual IUnknown* OtherInterface(REFIID) noexcept { return nullptr; }

 private:
    std::atomic<ULONG> references_{1};
    ModuleRef module_;  // somebody may hold the object when all else is gone
};

/// A new object and its first reference.
template <class Object, class... Arguments>
ComPtr<Object> MakeCom(Arguments&&... arguments) {
    return ComPtr<Object>::Attach(new Object(std::forward<Arguments>(arguments)...));
}

/// An IDispatch, or one that extends it, whose members nobody looks up by their names.
template <class Base>
class WithoutTypes : public Base {
 public:
    using Base::Base;

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override {
        if (!count) return E_POINTER;
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** type) noexcept override {
        if (type) *type = nullptr;
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID,
                                            DISPID*) noexcept override {
        return E_NOTIMPL;
    }
};

}  // namespace kestrel::win32
