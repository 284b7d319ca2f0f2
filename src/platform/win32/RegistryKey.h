#pragma once

#include <windows.h>

#include <utility>

namespace kestrel::win32 {

/// Owns an open key of the registry, or nothing.
class RegistryKey {
 public:
    RegistryKey() = default;
    RegistryKey(RegistryKey&& other) noexcept : key_(std::exchange(other.key_, nullptr)) {}
    RegistryKey& operator=(RegistryKey&& other) noexcept {
        std::swap(key_, other.key_);
        return *this;
    }
    ~RegistryKey() { Reset(); }

    HKEY Get() const { return key_; }
    explicit operator bool() const { return key_ != nullptr; }
    /// For a function that opens a key; what was held is closed first.
    HKEY* Out() {
        Reset();
        return &key_;
    }
    void Reset() {
        if (HKEY closed = std::exchange(key_, nullptr))
            static_cast<void>(RegCloseKey(closed));  // fails only for what is no key
    }

    /// Nothing when the key is absent or access is denied.
    static RegistryKey Open(HKEY root, const wchar_t* path, REGSAM access = KEY_READ) {
        RegistryKey key;
        if (RegOpenKeyExW(root, path, 0, access, key.Out()) != ERROR_SUCCESS) key.key_ = nullptr;
        return key;
    }

 private:
    HKEY key_ = nullptr;
};

}  // namespace kestrel::win32
