#pragma once

#include <windows.h>

#include <string>

namespace kestrel::win32 {

/// What the registry says of a COM class: the class under its identifier and its name, with the
/// program or DLL that serves it, and the type library (version 1.0) that stands in that file as a
/// resource.
class ClassRegistration {
 public:
    enum class Server { Program, Dll };

    struct Class {
        const CLSID& id;
        const wchar_t* name;         ///< by which scripts make it
        const wchar_t* description;  ///< for people
        const GUID& library;
        Server server;
        std::wstring path;  ///< of the file
    };

    explicit ClassRegistration(Class registered) : class_(std::move(registered)) {}

    /// Registers for the whole machine where this process may, else for the user alone. A
    /// registration that fails half-way is undone.
    HRESULT Register() const;

    /// Removes every trace, for the machine and for the user. S_OK when there is none; what it may
    /// not remove is an error.
    HRESULT Unregister() const;

 private:
    struct Entry;
    static const Entry kEntries[];

    std::wstring Expanded(std::wstring text) const;
    std::wstring KeyName(const wchar_t* key) const;
    bool Applies(const Entry& entry) const;
    bool KeyExists(HKEY root, const wchar_t* key, REGSAM branch = 0) const;
    LSTATUS Write(HKEY root, const Entry& entry) const;
    LSTATUS Remove(HKEY root, const Entry& entry) const;
    void RemoveIfEmpty(HKEY root, const wchar_t* key) const;
    HRESULT RegisterTypes(HKEY root) const;
    HRESULT UnregisterTypes(HKEY root) const;
    HRESULT WriteAll(HKEY root) const;
    HRESULT RemoveAll(HKEY root) const;
    bool AnyIsThere(HKEY root) const;

    const Class class_;
};

}  // namespace kestrel::win32
