#pragma once

#include <windows.h>
#include <unknwn.h>

#include <utility>

namespace kestrel::win32 {

/// Owns one reference to a COM object, or nothing.
template <class Interface>
class ComPtr {
 public:
    ComPtr() = default;
    ComPtr(std::nullptr_t) {}
    /// Adds a reference.
    ComPtr(Interface* object) : object_(object) {
        if (object_) object_->AddRef();
    }
    ComPtr(const ComPtr& other) : ComPtr(other.object_) {}
    ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~ComPtr() { Reset(); }

    /// Takes over a reference that the caller owns.
    static ComPtr Attach(Interface* owned) {
        ComPtr taken;
        taken.object_ = owned;
        return taken;
    }
    /// Hands the reference over to the caller.
    Interface* Detach() { return std::exchange(object_, nullptr); }
    void Reset() {
        if (Interface* released = std::exchange(object_, nullptr)) released->Release();
    }

    Interface* Get() const { return object_; }
    Interface* operator->() const { return object_; }
    Interface& operator*() const { return *object_; }
    explicit operator bool() const { return object_ != nullptr; }

    /// For a function that answers a reference; what was held is released first.
    Interface** Out() {
        Reset();
        return &object_;
    }
    void** OutVoid() { return reinterpret_cast<void**>(Out()); }

    /// Another interface of the same object; nothing when it has none.
    template <class Other>
    ComPtr<Other> As(const IID& iid) const {
        ComPtr<Other> other;
        if (object_ && FAILED(object_->QueryInterface(iid, other.OutVoid()))) return nullptr;
        return other;
    }
    template <class Other>
    ComPtr<Other> As() const {
        return As<Other>(__uuidof(Other));
    }

 private:
    Interface* object_ = nullptr;
};

}  // namespace kestrel::win32
