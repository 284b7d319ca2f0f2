#include "support/FakeHost.h"

namespace kestrel::test {
namespace {

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
    void PutCurrentRow(std::int32_t row) override {
        plan_.log.Note("View.PutCurrentRow");
        plan_.currentRow = row;
    }

 private:
    FakePlan& plan_;
};

}  // namespace

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

}  // namespace kestrel::test
