#include "refhost/workbench/DocumentState.h"

namespace refhost {

void DocumentState::Saved(const LivePlan& plan) {
    saved_ = plan.Snapshot();
    comparedAt_ = plan.Changes();
    differs_ = false;
}

bool DocumentState::HasChanges(const LivePlan& plan) {
    if (comparedAt_ == plan.Changes()) return differs_;
    comparedAt_ = plan.Changes();
    differs_ = plan.Snapshot() != saved_;
    return differs_;
}

}  // namespace refhost
