#include "refhost/engine/HostTask.h"

namespace refhost {
namespace {

class HostUserValues final : public host::UserValues {
 public:
    HostUserValues(std::shared_ptr<HostPlan> plan, std::size_t task)
        : plan_(std::move(plan)), task_(task) {}

    std::string Item(const std::string& name) override {
        const std::string* text = FindText(plan_->Data().tasks[task_].userValues, name);
        return text ? *text : std::string();
    }
    void PutItem(const std::string& name, const std::string& text) override {
        plan_->SetUserValue(task_, name, text);
    }

 private:
    std::shared_ptr<HostPlan> plan_;
    std::size_t task_;
};

class HostCostItem final : public host::CostItem {
 public:
    HostCostItem(std::shared_ptr<HostPlan> plan, std::size_t item)
        : plan_(std::move(plan)), cost_(plan_->CostOf(item)) {}

    double Cost() override { return *cost_; }
    void PutCost(double cost) override { plan_->Put(*cost_, cost); }

 private:
    std::shared_ptr<HostPlan> plan_;
    double* cost_;
};

}  // namespace

std::vector<host::TaskPtr> HostTask::ChildTasks() {
    std::vector<host::TaskPtr> children;
    for (const std::size_t child : plan_->Children(index_))
        children.push_back(std::make_shared<HostTask>(plan_, child));
    return children;
}

std::shared_ptr<host::UserValues> HostTask::UserValues() {
    return std::make_shared<HostUserValues>(plan_, index_);
}

std::vector<std::shared_ptr<host::CostItem>> HostTask::CostItems() {
    std::vector<std::shared_ptr<host::CostItem>> items;
    const LivePlan& live = *plan_;
    for (std::size_t item = live.FirstCost(index_); item < live.FirstCost(index_ + 1); ++item)
        items.push_back(std::make_shared<HostCostItem>(plan_, item));
    return items;
}

}  // namespace refhost
