#pragma once

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "refhost/files/PlanFile.h"

namespace refhost {

/// A kind that several places meet.
inline constexpr std::string_view kPartsOfMinutes =
    "parts of a minute in times, durations and lags (rounded to the minute)";

/// Counts what a project file holds and a plan does not, in the order in which kinds turn up.
class LeftOutList {
 public:
    void Add(std::string_view what) {
        const auto found = std::find_if(kinds_.begin(), kinds_.end(),
                                        [what](const LeftOut& kind) { return kind.what == what; });
        if (found == kinds_.end())
            kinds_.push_back({std::string(what), 1});
        else
            ++found->count;
    }

    void AddIf(bool condition, std::string_view what) {
        if (condition) Add(what);
    }

    std::vector<LeftOut> Take() { return std::move(kinds_); }

 private:
    std::vector<LeftOut> kinds_;
};

}  // namespace refhost
