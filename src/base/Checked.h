#pragma once

#include <cmath>
#include <cstdint>

#include "base/Errors.h"

namespace kestrel {

[[noreturn]] inline void RaiseNotFinite() {
    throw ArithmeticError(
        "A calculation overflowed or divided by zero; check the figures of the "
        "plan and of its risk factors for extreme values.");
}

/// The value itself; ArithmeticError when it is not finite.
inline double Checked(double value) {
    if (!std::isfinite(value)) [[unlikely]]
        RaiseNotFinite();
    return value;
}

/// The nearest 32-bit integer, halves to the even neighbour; false when it does not fit.
inline bool RoundToInt32(double value, std::int32_t& result) {
    if (!(value >= -2147483648.5 && value <= 2147483647.5)) return false;
    const long long rounded = std::llrint(value);  // the default mode rounds halves to even
    result = static_cast<std::int32_t>(rounded);
    return result == rounded;
}

}  // namespace kestrel
