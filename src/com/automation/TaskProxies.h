#pragma once

#include "com/automation/Dispatch.h"
#include "host/HostModel.h"

/// Tasks and what belongs to them, behind Automation.
namespace kestrel::com {

class CostItemProxy : public host::CostItem {
 public:
    explicit CostItemProxy(Dispatch item) : item_(std::move(item)) {}
    double Cost() override { return item_.Number(HostMember::CostItemCost); }
    void PutCost(double cost) override { item_.Put(HostMember::CostItemCost, cost); }

 private:
    Dispatch item_;
};

class UserValuesProxy : public host::UserValues {
 public:
    explicit UserValuesProxy(Dispatch values) : values_(std::move(values)) {}
    std::string Item(const std::string& name) override;
    void PutItem(const std::string& name, const std::string& text) override;

 private:
    Dispatch values_;
};

/// Keeps the task's UserValues, which are the same slots as long as it is the same task, and are
/// asked for by every iteration that is logged. Lists are fetched anew: they change with the plan.
class TaskProxy : public host::Task {
 public:
    explicit TaskProxy(Dispatch task) : task_(std::move(task)) {}
    std::string ID() override { return task_.Text(HostMember::TaskID); }
    std::string Name() override { return task_.Text(HostMember::TaskName); }
    std::int32_t Duration() override { return task_.Int32(HostMember::TaskDuration); }
    void PutDuration(std::int32_t duration) override {
        task_.Put(HostMember::TaskDuration, duration);
    }
    std::int16_t TaskType() override { return task_.Int16(HostMember::TaskTaskType); }
    std::vector<host::TaskPtr> ChildTasks() override;
    std::shared_ptr<host::UserValues> UserValues() override;
    std::vector<std::shared_ptr<host::CostItem>> CostItems() override;

 private:
    Dispatch task_;
    std::shared_ptr<host::UserValues> values_;
};

class TasksProxy : public host::TaskCollection {
 public:
    explicit TasksProxy(Dispatch tasks) : tasks_(std::move(tasks)) {}
    std::int32_t Count() override { return tasks_.Int32(HostMember::TasksCount); }
    host::TaskPtr Item(std::int32_t position) override;
    host::TaskPtr Item(const std::string& id) override;
    std::vector<host::TaskPtr> Enumerate() override;

 private:
    Dispatch tasks_;
};

}  // namespace kestrel::com
