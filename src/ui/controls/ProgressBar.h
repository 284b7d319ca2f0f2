#pragma once

#include <algorithm>
#include <cstdint>

#include "ui/controls/Control.h"

namespace kestrel::ui {

/// A position within a range. A position outside shows as the nearer end.
class ProgressBar : public Control {
 public:
    using Control::Control;

    std::int32_t Min() const { return min_; }
    std::int32_t Max() const { return max_; }
    std::int32_t Value() const { return value_; }

    /// A maximum below the minimum counts as equal to it. The position goes to the minimum.
    void SetRange(std::int32_t min, std::int32_t max) {
        min_ = min;
        max_ = std::max(min, max);
        value_ = min;
        Changed();
    }
    void SetValue(std::int32_t value) {
        value_ = std::clamp(value, min_, max_);
        Changed();
    }

 private:
    std::int32_t min_ = 0;
    std::int32_t max_ = 100;
    std::int32_t value_ = 0;
};

}  // namespace kestrel::ui
