#pragma once

#include "refhost/engine/LivePlan.h"

namespace refhost {

/// Whether a plan differs from what its file holds. A change that was taken back is none.
class DocumentState {
 public:
    /// The file holds the plan as it is now.
    explicit DocumentState(const LivePlan& plan) { Saved(plan); }
    void Saved(const LivePlan& plan);

    bool HasChanges(const LivePlan& plan);

 private:
    PlanData saved_;
    std::uint64_t comparedAt_ = 0;  ///< the plan's count of changes at the last comparison
    bool differs_ = false;
};

}  // namespace refhost
