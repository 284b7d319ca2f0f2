#pragma once

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "refhost/files/ImportReport.h"

namespace refhost {

/// A kind that several places meet.
inline constexpr std::string_view kPartsOfMinutes =
    "parts of a minute in times, durations and lags (rounded to the minute)";

/// Counts what a project file holds and a plan does not, or holds differently: first the kinds
/// that can move dates or money, then the others, each in the order in which they turn up.
class LeftOutList {
 public:
    void Add(std::string_view what) { Count(what, false); }
    void AddIf(bool condition, std::string_view what) {
        if (condition) Count(what, false);
    }
    /// What can move dates or money.
    void AddMoving(std::string_view what) { Count(what, true); }
    void AddMovingIf(bool condition, std::string_view what) {
        if (condition) Count(what, true);
    }

    std::vector<LeftOut> Take() {
        std::stable_partition(kinds_.begin(), kinds_.end(),
                              [](const LeftOut& kind) { return kind.movesFigures; });
        return std::move(kinds_);
    }

 private:
    void Count(std::string_view what, bool movesFigures) {
        const auto found = std::find_if(kinds_.begin(), kinds_.end(),
                                        [what](const LeftOut& kind) { return kind.what == what; });
        if (found == kinds_.end())
            kinds_.push_back({std::string(what), 1, movesFigures});
        else
            ++found->count;
    }

    std::vector<LeftOut> kinds_;
};

}  // namespace refhost
