#include "support/FakeHost.h"

namespace kestrel::test {
namespace {

class FakeUserValues : public host::UserValues {
 public:
    FakeUserValues(CallLog& log, FakeTask& task) : log_(log), task_(task) {}

    std::string Item(const std::string& name) override {
        log_.Note("UserValues.Item");
        const auto found = task_.texts.find(name);
        return found == task_.texts.end() ? std::string() : found->second;
    }
    void PutItem(const std::string& name, const std::string& text) override {
        log_.Note("UserValues.PutItem");
        task_.texts[name] = text;
    }

 private:
    CallLog& log_;
    FakeTask& task_;
};

}  // namespace

double FakeCostItem::Cost() {
    log_.Note("CostItem.Cost");
    return cost;
}

void FakeCostItem::PutCost(double value) {
    log_.Note("CostItem.PutCost");
    cost = value;
}

FakeCostItem& FakeTask::AddCost(double cost) {
    costItems.push_back(std::make_shared<FakeCostItem>(log_, cost));
    return *costItems.back();
}

std::string FakeTask::ID() {
    log_.Note("Task.ID");
    return id;
}

std::string FakeTask::Name() {
    log_.Note("Task.Name");
    return name;
}

std::int32_t FakeTask::Duration() {
    log_.Note("Task.Duration");
    return duration;
}

void FakeTask::PutDuration(std::int32_t value) {
    log_.Note("Task.PutDuration");
    duration = value;
}

std::int16_t FakeTask::TaskType() {
    log_.Note("Task.TaskType");
    return type;
}

std::vector<host::TaskPtr> FakeTask::ChildTasks() {
    log_.Note("Task.ChildTasks");
    return {children.begin(), children.end()};
}

std::shared_ptr<host::UserValues> FakeTask::UserValues() {
    log_.Note("Task.UserValues");
    return std::make_shared<FakeUserValues>(log_, *this);
}

std::vector<std::shared_ptr<host::CostItem>> FakeTask::CostItems() {
    log_.Note("Task.CostItems");
    return {costItems.begin(), costItems.end()};
}

host::PlanPtr FakeApplication::ActivePlan() {
    log_.Note("Application.ActivePlan");
    return plan;
}

std::string FakeApplication::Path() {
    log_.Note("Application.Path");
    return path;
}

std::string FakeApplication::GetSetting(const std::string& application, const std::string& section,
                                        const std::string& key, const std::string& fallback) {
    log_.Note("Application.GetSetting");
    const auto found = settings.find({application, section, key});
    return found == settings.end() ? fallback : found->second;
}

void FakeApplication::SaveSetting(const std::string& application, const std::string& section,
                                  const std::string& key, const std::string& value) {
    log_.Note("Application.SaveSetting");
    settings[{application, section, key}] = value;
}

std::int32_t FakeApplication::VersionMajor() {
    log_.Note("Application.VersionMajor");
    return version[0];
}

std::int32_t FakeApplication::VersionMinor() {
    log_.Note("Application.VersionMinor");
    return version[1];
}

std::int32_t FakeApplication::VersionRevision() {
    log_.Note("Application.VersionRevision");
    return version[2];
}

void FakeApplication::PutBusy(bool value) {
    log_.Note("Application.PutBusy");
    busy.push_back(value);
}

void FakeApplication::PutStatusText(const std::string& text) {
    log_.Note("Application.PutStatusText");
    statusTexts.push_back(text);
}

void FakeApplication::Subscribe(host::AnalysisEvents& sink) {
    log_.Note("Application.Subscribe");
    sinks.push_back(&sink);
}

void FakeApplication::Unsubscribe(host::AnalysisEvents& sink) {
    log_.Note("Application.Unsubscribe");
    std::erase(sinks, &sink);
}

FakeHost::FakeHost()
    : application(std::make_shared<FakeApplication>(log)), plan(std::make_shared<FakePlan>(log)) {
    application->plan = plan;
}

std::shared_ptr<FakeTask> FakeHost::AddTask(const std::string& id, const std::string& name,
                                            const std::string& riskFactors, FakeTask* parent) {
    auto task = std::make_shared<FakeTask>(log, id, name);
    if (!riskFactors.empty()) task->texts["RiskFactors"] = riskFactors;
    if (parent) {
        parent->type = host::kSummaryTask;
        parent->children.push_back(task);
    }
    plan->tasks.push_back(task);
    return task;
}

}  // namespace kestrel::test
