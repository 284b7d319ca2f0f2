#include "refhost/engine/HostPlan.h"

#include "base/Errors.h"
#include "refhost/engine/HostTask.h"

namespace refhost {
namespace {

class HostTasks final : public host::TaskCollection {
 public:
    explicit HostTasks(std::shared_ptr<HostPlan> plan) : plan_(std::move(plan)) {}

    std::int32_t Count() override { return static_cast<std::int32_t>(plan_->TaskCount()); }
    host::TaskPtr Item(std::int32_t position) override {
        if (position < 1 || position > Count())
            throw kestrel::HostError("The plan has no task number " + std::to_string(position) +
                                     ".");
        return plan_->TaskAt(static_cast<std::size_t>(position) - 1);
    }
    host::TaskPtr Item(const std::string& id) override {
        const auto index = plan_->Find(id);
        return index ? plan_->TaskAt(*index) : nullptr;
    }
    std::vector<host::TaskPtr> Enumerate() override {
        std::vector<host::TaskPtr> tasks;
        tasks.reserve(plan_->TaskCount());
        for (std::size_t i = 0; i < plan_->TaskCount(); ++i) tasks.push_back(plan_->TaskAt(i));
        return tasks;
    }

 private:
    std::shared_ptr<HostPlan> plan_;
};

class HostSummary final : public host::SummaryTask {
 public:
    explicit HostSummary(std::shared_ptr<HostPlan> plan) : plan_(std::move(plan)) {}

    host::Date Finish() override { return DateSerial(plan_->FinishDate()); }
    double Cost() override { return plan_->TotalCost(); }

 private:
    std::shared_ptr<HostPlan> plan_;
};

class HostOptions final : public host::AnalysisOptions {
 public:
    explicit HostOptions(std::shared_ptr<HostPlan> plan) : plan_(std::move(plan)) {}
    bool RecalculateAll() override { return plan_->Data().analysis.recalculateAll; }

 private:
    std::shared_ptr<HostPlan> plan_;
};

class HostAnalysis final : public host::RiskAnalysis {
 public:
    explicit HostAnalysis(std::shared_ptr<HostPlan> plan) : plan_(std::move(plan)) {}

    double NextRandom() override { return plan_->NextRandom(); }
    bool IsUpToDate() override { return plan_->ResultsUpToDate(); }
    std::shared_ptr<host::AnalysisOptions> Options() override {
        return std::make_shared<HostOptions>(plan_);
    }

 private:
    std::shared_ptr<HostPlan> plan_;
};

class HostUserField final : public host::UserFieldDefinition {
 public:
    explicit HostUserField(std::string name) : name_(std::move(name)) {}
    std::string Name() override { return name_; }

 private:
    std::string name_;
};

class HostUserFields final : public host::UserFieldDefinitions {
 public:
    explicit HostUserFields(std::shared_ptr<HostPlan> plan) : plan_(std::move(plan)) {}

    std::shared_ptr<host::UserFieldDefinition> Item(const std::string& name) override {
        for (const UserField& field : plan_->Data().userFields)
            if (field.name == name) return std::make_shared<HostUserField>(name);
        return nullptr;
    }
    void Add(const std::string& name, std::int16_t type) override {
        if (Item(name))
            throw kestrel::HostError("The plan already defines the user field '" + name + "'.");
        plan_->AddUserField(name, type);
    }

 private:
    std::shared_ptr<HostPlan> plan_;
};

class HostView final : public host::View {
 public:
    explicit HostView(std::shared_ptr<HostPlan> plan) : plan_(std::move(plan)) {}
    std::string TypeName() override { return "GanttChart"; }
    std::int32_t CurrentRow() override { return plan_->SelectedRow(); }
    void PutCurrentRow(std::int32_t row) override { plan_->SelectRow(row); }

 private:
    std::shared_ptr<HostPlan> plan_;
};

}  // namespace

HostPlan::HostPlan(PlanData data) : LivePlan(std::move(data)) {
    for (std::size_t i = 0; i < TaskCount(); ++i) taskByID_.emplace(Data().tasks[i].id, i);
}

host::TaskPtr HostPlan::TaskAt(std::size_t index) {
    return std::make_shared<HostTask>(shared_from_this(), index);
}

std::optional<std::size_t> HostPlan::Find(const std::string& id) const {
    const auto found = taskByID_.find(id);
    if (found == taskByID_.end()) return std::nullopt;
    return found->second;
}

std::string HostPlan::GetText(const std::string& name) {
    const std::string* text = FindText(Data().texts, name);
    return text ? *text : std::string();
}

void HostPlan::SetText(const std::string& name, const std::string& text) {
    LivePlan::SetText(name, text);
}

std::shared_ptr<host::TaskCollection> HostPlan::Tasks() {
    return std::make_shared<HostTasks>(shared_from_this());
}

std::shared_ptr<host::SummaryTask> HostPlan::SummaryTask() {
    return std::make_shared<HostSummary>(shared_from_this());
}

std::shared_ptr<host::RiskAnalysis> HostPlan::RiskAnalysis() {
    return std::make_shared<HostAnalysis>(shared_from_this());
}

std::shared_ptr<host::UserFieldDefinitions> HostPlan::UserFieldDefinitions() {
    return std::make_shared<HostUserFields>(shared_from_this());
}

std::shared_ptr<host::View> HostPlan::CurrentView() {
    return std::make_shared<HostView>(shared_from_this());
}

}  // namespace refhost
