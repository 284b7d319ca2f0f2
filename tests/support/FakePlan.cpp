#include "support/FakePlan.h"

namespace kestrel::test {
namespace {

/// What a plan hands out: objects that show it and hold nothing themselves.
template <class Interface>
class PartOf : public Interface {
 public:
    explicit PartOf(FakePlan& plan) : plan_(plan) {}

 protected:
    FakePlan& plan_;
};

/// Notes the call that hands the part out, too.
template <class Part>
std::shared_ptr<Part> Shown(FakePlan& plan, const char* member) {
    plan.log.Note(member);
    return std::make_shared<Part>(plan);
}

/// The element at a position from 1, or nothing.
template <typename Element>
std::shared_ptr<Element> AtPosition(const std::vector<std::shared_ptr<Element>>& all,
                                    std::int32_t position) {
    const auto index = static_cast<std::size_t>(position) - 1;
    return position >= 1 && index < all.size() ? all[index] : nullptr;
}

class FakeMembers : public PartOf<host::MemberCollection> {
 public:
    FakeMembers(FakePlan& plan, FakeGroup& group) : PartOf(plan), group_(group) {}

    host::MemberPtr Item(const std::string& name) override {
        return plan_.log.Noted("MemberCollection.Item", group_).Find(name);
    }
    host::MemberPtr Item(std::int32_t position) override {
        return AtPosition(plan_.log.Noted("MemberCollection.Item", group_).members, position);
    }
    host::MemberPtr Add(const std::string& name) override {
        return plan_.log.Noted("MemberCollection.Add", group_)
            .members.emplace_back(std::make_shared<FakeMember>(plan_, name));
    }
    std::vector<host::MemberPtr> Enumerate() override {
        plan_.log.Note("MemberCollection.Enumerate");
        return {group_.members.begin(), group_.members.end()};
    }

 private:
    FakeGroup& group_;
};

class FakeTasks : public PartOf<host::TaskCollection> {
 public:
    using PartOf::PartOf;
    std::int32_t Count() override {
        return static_cast<std::int32_t>(
            plan_.log.Noted("TaskCollection.Count", plan_.tasks).size());
    }
    host::TaskPtr Item(std::int32_t position) override {
        plan_.log.Note("TaskCollection.Item");
        if (auto task = AtPosition(plan_.tasks, position)) return task;
        throw HostError("there is no task at position " + std::to_string(position));
    }
    host::TaskPtr Item(const std::string& id) override {
        for (const auto& task : plan_.log.Noted("TaskCollection.Item", plan_.tasks))
            if (task->id == id) return task;
        return nullptr;
    }
    std::vector<host::TaskPtr> Enumerate() override {
        plan_.log.Note("TaskCollection.Enumerate");
        return {plan_.tasks.begin(), plan_.tasks.end()};
    }
};

class FakeSummaryTask : public PartOf<host::SummaryTask> {
 public:
    using PartOf::PartOf;
    host::Date Finish() override { return plan_.log.Noted("SummaryTask.Finish", plan_.finish); }
    double Cost() override { return plan_.log.Noted("SummaryTask.Cost", plan_.cost); }
};

class FakeOptions : public PartOf<host::AnalysisOptions> {
 public:
    using PartOf::PartOf;
    bool RecalculateAll() override {
        return plan_.log.Noted("AnalysisOptions.RecalculateAll", plan_.recalculatesAll);
    }
};

class FakeAnalysis : public PartOf<host::RiskAnalysis> {
 public:
    using PartOf::PartOf;
    double NextRandom() override {
        plan_.log.Note("RiskAnalysis.NextRandom");
        if (plan_.randoms.empty()) throw HostError("no random number is left in the script");
        const double next = plan_.randoms.front();
        plan_.randoms.pop_front();
        return next;
    }
    bool IsUpToDate() override {
        return plan_.log.Noted("RiskAnalysis.IsUpToDate", plan_.upToDate);
    }
    std::shared_ptr<host::AnalysisOptions> Options() override {
        return Shown<FakeOptions>(plan_, "RiskAnalysis.Options");
    }
};

class FakeGroups : public PartOf<host::GroupCollection> {
 public:
    using PartOf::PartOf;
    host::GroupPtr Item(const std::string& name) override {
        return plan_.log.Noted("GroupCollection.Item", plan_).Find(name);
    }
    host::GroupPtr Add(const std::string& name) override {
        return plan_.log.Noted("GroupCollection.Add", plan_)
            .groups.emplace_back(std::make_shared<FakeGroup>(plan_, name));
    }
    void Remove(const std::string& name) override {
        plan_.log.Note("GroupCollection.Remove");
        if (std::erase(plan_.groups, plan_.Find(name)) == 0)
            throw HostError("there is no group " + name);
    }
};

class FakeFieldDefinition : public host::UserFieldDefinition {
 public:
    FakeFieldDefinition(CallLog& log, std::string name) : log_(log), name_(std::move(name)) {}
    std::string Name() override { return log_.Noted("UserFieldDefinition.Name", name_); }

 private:
    CallLog& log_;
    std::string name_;
};

class FakeFieldDefinitions : public PartOf<host::UserFieldDefinitions> {
 public:
    using PartOf::PartOf;
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
};

class FakeView : public PartOf<host::View> {
 public:
    using PartOf::PartOf;
    std::string TypeName() override { return plan_.log.Noted("View.TypeName", plan_.viewType); }
    std::int32_t CurrentRow() override {
        return plan_.log.Noted("View.CurrentRow", plan_.currentRow);
    }
    void PutCurrentRow(std::int32_t row) override {
        plan_.log.Noted("View.PutCurrentRow", plan_.currentRow) = row;
    }
};

}  // namespace

void FakeMember::PutValue(double newValue) { plan_.log.Noted("Member.PutValue", value) = newValue; }
double FakeMember::SampledValue() { return plan_.log.Noted("Member.SampledValue", sampled); }
host::GroupPtr FakeMember::Group() { return plan_.log.Noted("Member.Group", plan_).Find(name); }

std::shared_ptr<host::Distribution> FakeMember::Distribution(bool create) {
    plan_.log.Note("Member.Distribution");
    if (!distribution && create) distribution = std::make_shared<FakeDistribution>(plan_.log);
    return distribution;
}

std::string FakeGroup::Name() { return plan_.log.Noted("Group.Name", name); }
void FakeGroup::PutDescription(const std::string& text) {
    plan_.log.Noted("Group.PutDescription", description) = text;
}
void FakeGroup::PutFlagged(bool value) { plan_.log.Noted("Group.PutFlagged", flagged) = value; }
std::shared_ptr<host::MemberCollection> FakeGroup::Members() {
    return std::make_shared<FakeMembers>(plan_, plan_.log.Noted("Group.Members", *this));
}

std::shared_ptr<host::TaskCollection> FakePlan::Tasks() {
    return Shown<FakeTasks>(*this, "Plan.Tasks");
}
std::shared_ptr<host::SummaryTask> FakePlan::SummaryTask() {
    return Shown<FakeSummaryTask>(*this, "Plan.SummaryTask");
}
std::shared_ptr<host::RiskAnalysis> FakePlan::RiskAnalysis() {
    return Shown<FakeAnalysis>(*this, "Plan.RiskAnalysis");
}
std::shared_ptr<host::GroupCollection> FakePlan::Groups() {
    return Shown<FakeGroups>(*this, "Plan.Groups");
}
std::shared_ptr<host::UserFieldDefinitions> FakePlan::UserFieldDefinitions() {
    return Shown<FakeFieldDefinitions>(*this, "Plan.UserFieldDefinitions");
}
std::shared_ptr<host::View> FakePlan::CurrentView() {
    return Shown<FakeView>(*this, "Plan.CurrentView");
}

}  // namespace kestrel::test
