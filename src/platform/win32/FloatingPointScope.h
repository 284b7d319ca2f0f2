#pragma once

#include <xmmintrin.h>

namespace kestrel::win32 {

/// Calculates the way the figures are defined while it lives, and puts the caller's way back at
/// the end. Hosts differ: some have floating-point traps on, some round or flush small numbers
/// otherwise, and either would change figures or end the process in the middle of them.
class FloatingPointScope {
 public:
    FloatingPointScope() : sse_(_mm_getcsr()) {
        __asm__ __volatile__("fnstcw %0" : "=m"(x87_));
        Set(kMaskedNearest, kMaskedNearestLong);
    }
    FloatingPointScope(const FloatingPointScope&) = delete;
    FloatingPointScope& operator=(const FloatingPointScope&) = delete;
    ~FloatingPointScope() { Set(sse_, x87_); }

 private:
    static constexpr unsigned kMaskedNearest = 0x1F80;
    static constexpr unsigned short kMaskedNearestLong = 0x037F;

    /// Flags that calculations have raised go first: with the host's traps on again they would
    /// go off in the host's next instruction.
    static void Set(unsigned sse, unsigned short x87) {
        __asm__ __volatile__("fnclex\n\tfldcw %0" : : "m"(x87));
        _mm_setcsr(sse);
    }

    unsigned sse_;
    unsigned short x87_ = 0;
};

}  // namespace kestrel::win32
