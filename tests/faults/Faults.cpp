#include "faults/Faults.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>

namespace refhost::test {
namespace {

bool armed = false;
Fault armedFault = Fault::None;
int strikesAt = 0, fileCalls = 0, allocations = 0;

/// The call of the C library that an own one stands before.
template <class Function>
Function* Next(const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

bool Strikes() {
    if (!armed || ++fileCalls != strikesAt) return false;
    if (armedFault == Fault::ProgramDies) ::_exit(kDied);
    if (armedFault != Fault::CallFails) return false;
    errno = EIO;
    return true;
}

}  // namespace

void Arm(Fault fault, int n) {
    armedFault = fault;
    strikesAt = n;
    fileCalls = allocations = 0;
    armed = true;
}

int Disarm() {
    armed = false;
    return armedFault == Fault::AllocationFails ? allocations : fileCalls;
}

}  // namespace refhost::test

using namespace refhost::test;

#define STANDS_BEFORE(name, parameters, arguments, attributes) \
    extern "C" int name parameters attributes {                \
        if (Strikes()) return -1;                              \
        return Next<int parameters>(#name) arguments;          \
    }

STANDS_BEFORE(close, (int file), (file), )
STANDS_BEFORE(rename, (const char* from, const char* to), (from, to), noexcept)
STANDS_BEFORE(renameat2, (int a, const char* from, int b, const char* to, unsigned int flags),
              (a, from, b, to, flags), noexcept)
STANDS_BEFORE(stat, (const char* path, struct stat* status), (path, status), noexcept)
STANDS_BEFORE(fstat, (int file, struct stat* status), (file, status), noexcept)
STANDS_BEFORE(fchmod, (int file, mode_t mode), (file, mode), noexcept)

extern "C" int fsync(int) { return Strikes() ? -1 : 0; }  // what it waits for costs only time

extern "C" int open(const char* path, int flags, ...) {
    va_list more;
    va_start(more, flags);
    const auto mode = (flags & O_CREAT) ? va_arg(more, mode_t) : mode_t{0};
    va_end(more);
    return Strikes() ? -1 : Next<int(const char*, int, ...)>("open")(path, flags, mode);
}

/// Half of a piece is written before the failure, as on a disk that becomes full.
extern "C" ssize_t write(int file, const void* bytes, size_t size) {
    auto* next = Next<ssize_t(int, const void*, size_t)>("write");
    if (!Strikes()) return next(file, bytes, size);
    static_cast<void>(next(file, bytes, size / 2));
    errno = ENOSPC;
    return -1;
}

extern "C" ssize_t read(int file, void* bytes, size_t size) {
    return Strikes() ? -1 : Next<ssize_t(int, void*, size_t)>("read")(file, bytes, size);
}

#ifndef __SANITIZE_ADDRESS__  // which has a memory of its own
extern "C" void* __libc_malloc(size_t size);
extern "C" void* malloc(size_t size) {
    const bool fails = armed && ++allocations == strikesAt && armedFault == Fault::AllocationFails;
    return fails ? nullptr : __libc_malloc(size);
}
#endif
