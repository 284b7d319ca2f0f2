#pragma once

#include <atomic>

namespace kestrel::win32 {

/// Keeps the module that it is part of in memory. Every COM object has one as a member, so that
/// the module is not unloaded while somebody outside can still call it.
///
/// The count is the one variable that the module itself owns: the system asks about it through a
/// function without arguments.
class ModuleRef {
 public:
    ModuleRef() noexcept { Lock(); }
    ModuleRef(const ModuleRef&) noexcept { Lock(); }
    ModuleRef& operator=(const ModuleRef&) = default;
    ~ModuleRef() { Unlock(); }

    /// Without an object, for IClassFactory::LockServer.
    static void Lock() noexcept { ++count_; }
    /// Undoes one Lock.
    static void Unlock() noexcept { --count_; }

    static bool InUse() noexcept { return count_ > 0; }

 private:
    inline static constinit std::atomic<long> count_{0};
};

}  // namespace kestrel::win32
