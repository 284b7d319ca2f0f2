#pragma once

#include <windows.h>

#include <utility>

namespace kestrel::win32 {

/// Owns one handle of the system; `Traits` names its type, its invalid value and what closes it.
template <class Traits>
class UniqueHandle {
 public:
    using Value = typename Traits::Value;

    UniqueHandle() = default;
    explicit UniqueHandle(Value owned) : value_(owned) {}
    UniqueHandle(UniqueHandle&& other) noexcept
        : value_(std::exchange(other.value_, Traits::Invalid())) {}
    UniqueHandle& operator=(UniqueHandle&& other) noexcept {
        std::swap(value_, other.value_);
        return *this;
    }
    ~UniqueHandle() { Close(); }

    Value Get() const { return value_; }
    explicit operator bool() const { return value_ != Traits::Invalid(); }

    /// Closes now; answers whether that went well. Nothing open counts as well.
    bool Close() {
        const Value closing = std::exchange(value_, Traits::Invalid());
        return closing == Traits::Invalid() || Traits::Close(closing);
    }
    /// Hands the handle over to the caller.
    Value Detach() { return std::exchange(value_, Traits::Invalid()); }
    /// For a function that answers a handle; what was held is closed first.
    Value* Out() {
        Close();
        return &value_;
    }

 private:
    Value value_ = Traits::Invalid();
};

struct FileTraits {
    using Value = HANDLE;
    static Value Invalid() { return INVALID_HANDLE_VALUE; }
    static bool Close(Value handle) { return CloseHandle(handle) != FALSE; }
};
/// Of CreateFileW.
using FileHandle = UniqueHandle<FileTraits>;

/// Of functions that answer a null handle when they fail: events, processes, threads.
struct KernelTraits : FileTraits {
    static Value Invalid() { return nullptr; }
};
using Handle = UniqueHandle<KernelTraits>;

struct SearchTraits : FileTraits {
    static bool Close(Value handle) { return FindClose(handle) != FALSE; }
};
/// Of FindFirstFileW.
using SearchHandle = UniqueHandle<SearchTraits>;

struct RegistryTraits {
    using Value = HKEY;
    static Value Invalid() { return nullptr; }
    static bool Close(Value key) { return RegCloseKey(key) == ERROR_SUCCESS; }
};
using RegistryKey = UniqueHandle<RegistryTraits>;

struct LibraryTraits {
    using Value = HMODULE;
    static Value Invalid() { return nullptr; }
    static bool Close(Value module) { return FreeLibrary(module) != FALSE; }
};
using LibraryHandle = UniqueHandle<LibraryTraits>;

struct GlobalMemoryTraits {
    using Value = HGLOBAL;
    static Value Invalid() { return nullptr; }
    static bool Close(Value memory) { return GlobalFree(memory) == nullptr; }
};
using GlobalMemory = UniqueHandle<GlobalMemoryTraits>;

struct WindowTraits {
    using Value = HWND;
    static Value Invalid() { return nullptr; }
    static bool Close(Value window) { return DestroyWindow(window) != FALSE; }
};
/// A window of this thread that is destroyed at the end.
using OwnedWindow = UniqueHandle<WindowTraits>;

}  // namespace kestrel::win32
