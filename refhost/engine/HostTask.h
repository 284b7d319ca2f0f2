#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/HostModel.h"
#include "refhost/engine/HostPlan.h"

namespace refhost {

/// One task of a plan, by its position.
class HostTask final : public host::Task {
 public:
    HostTask(std::shared_ptr<HostPlan> plan, std::size_t index)
        : plan_(std::move(plan)),
          index_(index),
          duration_(plan_->IsSummary(index) ? nullptr : plan_->DurationOf(index)) {}

    std::string ID() override { return Data().id; }
    std::string Name() override { return Data().name; }
    std::int32_t Duration() override { return duration_ ? *duration_ : plan_->Duration(index_); }
    void PutDuration(std::int32_t duration) override {
        if (duration_) plan_->Put(*duration_, duration);
    }
    std::int16_t TaskType() override { return Data().type; }
    std::vector<host::TaskPtr> ChildTasks() override;
    std::shared_ptr<host::UserValues> UserValues() override;
    std::vector<std::shared_ptr<host::CostItem>> CostItems() override;

 private:
    const TaskData& Data() const { return plan_->Data().tasks[index_]; }

    std::shared_ptr<HostPlan> plan_;
    std::size_t index_;
    std::int32_t* duration_;  ///< nullptr for a summary
};

}  // namespace refhost
