#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <stdexcept>

namespace kestrel {

/// A factor's multipliers over an analysis: one element for every visit of a task, so a factor
/// on three tasks has three equal elements for each iteration. They are kept as one value with
/// a count, so that memory grows with iterations and not with the tasks that carry the factor.
class ImpactHistory {
 public:
    void Clear() {
        values_.clear();
        repeat_ = 0;
    }

    /// Appends `value` `count` times; the count is the same throughout an analysis.
    void Append(double value, std::int32_t count) {
        if (count < 1 || (repeat_ != 0 && repeat_ != count))
            throw std::logic_error("a factor's visits cannot change within an analysis");
        repeat_ = count;
        values_.push_back(value);
    }

    /// One value an iteration, each standing for Visits() elements.
    const std::deque<double>& Values() const { return values_; }
    std::int32_t Visits() const { return repeat_; }

    std::size_t Count() const { return values_.size() * static_cast<std::size_t>(repeat_); }

    /// The element at index `i` from 0; raises std::out_of_range beyond the last.
    double At(std::size_t i) const {
        return values_.at(repeat_ ? i / static_cast<std::size_t>(repeat_) : i);
    }

 private:
    std::deque<double> values_;  // grows without moving what it holds
    std::int32_t repeat_ = 0;
};

}  // namespace kestrel
