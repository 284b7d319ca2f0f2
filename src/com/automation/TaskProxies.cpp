#include "com/automation/TaskProxies.h"

#include "com/automation/HostList.h"

namespace kestrel::com {

using win32::Bstr;

namespace {

constexpr ListKind kTasks{HostMember::Tasks_NewEnum, HostMember::TasksCount, HostMember::TasksItem};
constexpr ListKind kChildTasks{HostMember::ChildTasks_NewEnum, HostMember::ChildTasksCount,
                               HostMember::ChildTasksItem};
constexpr ListKind kCostItems{HostMember::CostItems_NewEnum, HostMember::CostItemsCount,
                              HostMember::CostItemsItem};

}  // namespace

std::string UserValuesProxy::Item(const std::string& name) {
    return values_.Text(HostMember::UserValuesItem, values_.Connection().SlotName(name));
}

void UserValuesProxy::PutItem(const std::string& name, const std::string& text) {
    values_.Put(HostMember::UserValuesItem, values_.Connection().SlotName(name), Bstr(text));
}

std::vector<host::TaskPtr> TaskProxy::ChildTasks() {
    return WrapAll<host::Task, TaskProxy>(task_.Child(HostMember::TaskChildTasks), kChildTasks);
}

std::shared_ptr<host::UserValues> TaskProxy::UserValues() {
    if (!values_) values_ = Wrap<UserValuesProxy>(task_.Needed(HostMember::TaskUserValues));
    return values_;
}

std::vector<std::shared_ptr<host::CostItem>> TaskProxy::CostItems() {
    return WrapAll<host::CostItem, CostItemProxy>(task_.Child(HostMember::TaskCostItems),
                                                  kCostItems);
}

host::TaskPtr TasksProxy::Item(std::int32_t position) {
    return Wrap<TaskProxy>(tasks_.Needed(HostMember::TasksItem, position));
}

host::TaskPtr TasksProxy::Item(const std::string& id) {
    return Wrap<TaskProxy>(tasks_.Find(HostMember::TasksItem, Bstr(id)));
}

std::vector<host::TaskPtr> TasksProxy::Enumerate() {
    return WrapAll<host::Task, TaskProxy>(tasks_, kTasks);
}

}  // namespace kestrel::com
