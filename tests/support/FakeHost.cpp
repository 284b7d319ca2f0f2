#include "support/FakeHost.h"

namespace kestrel::test {
namespace {

/// The element whose `name` it is, or nothing.
template <typename Named>
std::shared_ptr<Named> FindByName(const std::vector<std::shared_ptr<Named>>& all,
                                  const std::string& name) {
    for (const auto& one : all)
        if (one->name == name) return one;
    return nullptr;
}

/// The element at a position from 1, or nothing.
template <typename Element>
std::shared_ptr<Element> AtPosition(const std::vector<std::shared_ptr<Element>>& all,
                                    std::int32_t position) {
    const auto index = static_cast<std::size_t>(position) - 1;
    return position >= 1 && index < all.size() ? all[index] : nullptr;
}

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

class FakeTasks : public host::TaskCollection {
 public:
    explicit FakeTasks(FakePlan& plan) : plan_(plan) {}

    std::int32_t Count() override {
        plan_.log.Note("TaskCollection.Count");
        return static_cast<std::int32_t>(plan_.tasks.size());
    }
    host::TaskPtr Item(std::int32_t position) override {
        plan_.log.Note("TaskCollection.Item");
        if (auto task = AtPosition(plan_.tasks, position)) return task;
        throw HostError("there is no task at position " + std::to_string(position));
    }
    host::TaskPtr Item(const std::string& id) override {
        plan_.log.Note("TaskCollection.Item");
        for (const auto& task : plan_.tasks)
            if (task->id == id) return task;
        return nullptr;
    }
    std::vector<host::TaskPtr> Enumerate() override {
        plan_.log.Note("TaskCollection.Enumerate");
        return {plan_.tasks.begin(), plan_.tasks.end()};
    }

 private:
    FakePlan& plan_;
};

class FakeSummaryTask : public host::SummaryTask {
 public:
    explicit FakeSummaryTask(FakePlan& plan) : plan_(plan) {}

    host::Date Finish() override {
        plan_.log.Note("SummaryTask.Finish");
        return plan_.finish;
    }
    double Cost() override {
        plan_.log.Note("SummaryTask.Cost");
        return plan_.cost;
    }

 private:
    FakePlan& plan_;
};

class FakeAnalysis : public host::RiskAnalysis, public host::AnalysisOptions {
 public:
    explicit FakeAnalysis(FakePlan& plan) : plan_(plan) {}

    double NextRandom() override {
        plan_.log.Note("RiskAnalysis.NextRandom");
        if (plan_.randoms.empty()) throw HostError("no random number is left in the script");
        const double next = plan_.randoms.front();
        plan_.randoms.pop_front();
        return next;
    }
    bool IsUpToDate() override {
        plan_.log.Note("RiskAnalysis.IsUpToDate");
        return plan_.upToDate;
    }
    std::shared_ptr<host::AnalysisOptions> Options() override {
        plan_.log.Note("RiskAnalysis.Options");
        return std::make_shared<FakeAnalysis>(plan_);
    }
    bool RecalculateAll() override {
        plan_.log.Note("AnalysisOptions.RecalculateAll");
        return plan_.recalculatesAll;
    }

 private:
    FakePlan& plan_;
};

class FakeMembers : public host::MemberCollection {
 public:
    FakeMembers(FakePlan& plan, FakeGroup& group) : plan_(plan), group_(group) {}

    host::MemberPtr Item(const std::string& name) override {
        plan_.log.Note("MemberCollection.Item");
        return group_.Find(name);
    }
    host::MemberPtr Item(std::int32_t position) override {
        plan_.log.Note("MemberCollection.Item");
        return AtPosition(group_.members, position);
    }
    host::MemberPtr Add(const std::string& name) override {
        plan_.log.Note("MemberCollection.Add");
        group_.members.push_back(std::make_shared<FakeMember>(plan_, name));
        return group_.members.back();
    }
    std::vector<host::MemberPtr> Enumerate() override {
        plan_.log.Note("MemberCollection.Enumerate");
        return {group_.members.begin(), group_.members.end()};
    }

 private:
    FakePlan& plan_;
    FakeGroup& group_;
};

class FakeGroups : public host::GroupCollection {
 public:
    explicit FakeGroups(FakePlan& plan) : plan_(plan) {}

    host::GroupPtr Item(const std::string& name) override {
        plan_.log.Note("GroupCollection.Item");
        return plan_.Find(name);
    }
    host::GroupPtr Add(const std::string& name) override {
        plan_.log.Note("GroupCollection.Add");
        plan_.groups.push_back(std::make_shared<FakeGroup>(plan_, name));
        return plan_.groups.back();
    }
    void Remove(const std::string& name) override {
        plan_.log.Note("GroupCollection.Remove");
        if (!plan_.Find(name)) throw HostError("there is no group " + name);
        std::erase_if(plan_.groups, [&](const auto& group) { return group->name == name; });
    }

 private:
    FakePlan& plan_;
};

class FakeFieldDefinition : public host::UserFieldDefinition {
 public:
    FakeFieldDefinition(CallLog& log, std::string name) : log_(log), name_(std::move(name)) {}

    std::string Name() override {
        log_.Note("UserFieldDefinition.Name");
        return name_;
    }

 private:
    CallLog& log_;
    std::string name_;
};

class FakeFieldDefinitions : public host::UserFieldDefinitions {
 public:
    explicit FakeFieldDefinitions(FakePlan& plan) : plan_(plan) {}

    std::shared_ptr<host::UserFieldDefinition> Item(const std::string& name) override {
        plan_.log.Note("UserFieldDefinitions.Item");
        if (!plan_.userFields.contains(name)) return nullptr;
        return std::make_shared<FakeFieldDefinition>(plan_.log, name);
    }
    void Add(const std::string& name, std::int16_t type) override {
        plan_.log.Note("UserFieldDefinitions.Add");
        if (!plan_.userFields.emplace(name, type).second)
            throw HostError("the field " + name + " is there already");
    }

 private:
    FakePlan& plan_;
};

class FakeView : public host::View {
 public:
    explicit FakeView(FakePlan& plan) : plan_(plan) {}

    std::string TypeName() override {
        plan_.log.Note("View.TypeName");
        return plan_.viewType;
    }
    std::int32_t CurrentRow() override {
        plan_.log.Note("View.CurrentRow");
        return plan_.currentRow;
    }

 private:
    FakePlan& plan_;
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

void FakeDistribution::PutShape(std::int16_t value) {
    log_.Note("Distribution.PutShape");
    shape = value;
}

void FakeDistribution::PutMinimum(double value) {
    log_.Note("Distribution.PutMinimum");
    minimum = value;
}

void FakeDistribution::PutMostLikely(double value) {
    log_.Note("Distribution.PutMostLikely");
    mostLikely = value;
}

void FakeDistribution::PutMaximum(double value) {
    log_.Note("Distribution.PutMaximum");
    maximum = value;
}

double FakeDistribution::Value() {
    log_.Note("Distribution.Value");
    return (minimum + mostLikely + maximum) / 3;
}

void FakeMember::PutValue(double newValue) {
    plan_.log.Note("Member.PutValue");
    value = newValue;
}

double FakeMember::SampledValue() {
    plan_.log.Note("Member.SampledValue");
    return sampled;
}

host::GroupPtr FakeMember::Group() {
    plan_.log.Note("Member.Group");
    return plan_.Find(name);
}

std::shared_ptr<host::Distribution> FakeMember::Distribution(bool create) {
    plan_.log.Note("Member.Distribution");
    if (!distribution && create) distribution = std::make_shared<FakeDistribution>(plan_.log);
    return distribution;
}

std::shared_ptr<FakeMember> FakeGroup::Find(const std::string& member) const {
    return FindByName(members, member);
}

std::string FakeGroup::Name() {
    plan_.log.Note("Group.Name");
    return name;
}

void FakeGroup::PutDescription(const std::string& text) {
    plan_.log.Note("Group.PutDescription");
    description = text;
}

void FakeGroup::PutFlagged(bool value) {
    plan_.log.Note("Group.PutFlagged");
    flagged = value;
}

std::shared_ptr<host::MemberCollection> FakeGroup::Members() {
    plan_.log.Note("Group.Members");
    return std::make_shared<FakeMembers>(plan_, *this);
}

std::shared_ptr<FakeGroup> FakePlan::Find(const std::string& group) const {
    return FindByName(groups, group);
}

std::string FakePlan::Name() {
    log.Note("Plan.Name");
    return name;
}

std::shared_ptr<host::TaskCollection> FakePlan::Tasks() {
    log.Note("Plan.Tasks");
    return std::make_shared<FakeTasks>(*this);
}

std::string FakePlan::GetText(const std::string& textName) {
    log.Note("Plan.GetText");
    const auto found = texts.find(textName);
    return found == texts.end() ? std::string() : found->second;
}

void FakePlan::SetText(const std::string& textName, const std::string& text) {
    log.Note("Plan.SetText");
    texts[textName] = text;
}

void FakePlan::PutAutoCalculate(bool automatic) {
    log.Note("Plan.PutAutoCalculate");
    autoCalculate = automatic;
}

void FakePlan::Recalculate() {
    log.Note("Plan.Recalculate");
    ++recalculations;
    if (onRecalculate) onRecalculate();
}

void FakePlan::RecalculateAll() {
    log.Note("Plan.RecalculateAll");
    ++fullRecalculations;
    if (onRecalculate) onRecalculate();
}

std::shared_ptr<host::SummaryTask> FakePlan::SummaryTask() {
    log.Note("Plan.SummaryTask");
    return std::make_shared<FakeSummaryTask>(*this);
}

std::shared_ptr<host::RiskAnalysis> FakePlan::RiskAnalysis() {
    log.Note("Plan.RiskAnalysis");
    return std::make_shared<FakeAnalysis>(*this);
}

std::shared_ptr<host::GroupCollection> FakePlan::Groups() {
    log.Note("Plan.Groups");
    return std::make_shared<FakeGroups>(*this);
}

std::shared_ptr<host::UserFieldDefinitions> FakePlan::UserFieldDefinitions() {
    log.Note("Plan.UserFieldDefinitions");
    return std::make_shared<FakeFieldDefinitions>(*this);
}

std::shared_ptr<host::View> FakePlan::CurrentView() {
    log.Note("Plan.CurrentView");
    return std::make_shared<FakeView>(*this);
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
