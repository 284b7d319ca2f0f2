#pragma once

#include <deque>
#include <functional>

#include "support/FakeTask.h"

namespace kestrel::test {

/// The element of that name, or nothing.
template <typename Named>
std::shared_ptr<Named> FindByName(const std::vector<std::shared_ptr<Named>>& all,
                                  const std::string& name) {
    for (const auto& one : all)
        if (one->name == name) return one;
    return nullptr;
}

class FakePlan;

/// Value() is the mean of the three points.
class FakeDistribution : public host::Distribution {
 public:
    explicit FakeDistribution(CallLog& log) : log_(log) {}

    std::int16_t shape = -1;
    double minimum = 0;
    double mostLikely = 0;
    double maximum = 0;

    void PutShape(std::int16_t v) override { log_.Noted("Distribution.PutShape", shape) = v; }
    void PutMinimum(double v) override { log_.Noted("Distribution.PutMinimum", minimum) = v; }
    void PutMostLikely(double v) override {
        log_.Noted("Distribution.PutMostLikely", mostLikely) = v;
    }
    void PutMaximum(double v) override { log_.Noted("Distribution.PutMaximum", maximum) = v; }
    double Value() override {
        return (log_.Noted("Distribution.Value", minimum) + mostLikely + maximum) / 3;
    }

 private:
    CallLog& log_;
};

class FakeMember : public host::Member {
 public:
    FakeMember(FakePlan& plan, std::string theName) : name(std::move(theName)), plan_(plan) {}

    std::string name;
    double value = 0;
    double sampled = 0;  ///< what SampledValue answers
    std::shared_ptr<FakeDistribution> distribution;

    void PutValue(double newValue) override;
    double SampledValue() override;
    host::GroupPtr Group() override;
    std::shared_ptr<host::Distribution> Distribution(bool create) override;

 private:
    FakePlan& plan_;
};

class FakeGroup : public host::Group {
 public:
    FakeGroup(FakePlan& plan, std::string theName) : name(std::move(theName)), plan_(plan) {}

    std::string name;
    std::string description;
    bool flagged = true;
    std::vector<std::shared_ptr<FakeMember>> members;

    /// The member of that name, or nothing.
    std::shared_ptr<FakeMember> Find(const std::string& member) const {
        return FindByName(members, member);
    }

    std::string Name() override;
    void PutDescription(const std::string& text) override;
    void PutFlagged(bool value) override;
    std::shared_ptr<host::MemberCollection> Members() override;

 private:
    FakePlan& plan_;
};

class FakePlan : public host::Plan {
 public:
    explicit FakePlan(CallLog& callLog) : log(callLog) {}

    CallLog& log;

    /// @name What the code meets
    ///@{
    std::string name = "Plan";
    std::map<std::string, std::string> texts;
    std::vector<std::shared_ptr<FakeTask>> tasks;    ///< all of them, in plan order
    std::map<std::string, std::int16_t> userFields;  ///< type by name
    std::vector<std::shared_ptr<FakeGroup>> groups;
    std::deque<double> randoms;  ///< NextRandom takes from the front; HostError once empty
    bool upToDate = true;
    bool recalculatesAll = false;  ///< AnalysisOptions.RecalculateAll
    host::Date finish = 0;
    double cost = 0;
    std::string viewType = "GanttChart";
    std::int32_t currentRow = 0;
    std::function<void()> onRecalculate;  ///< runs in both recalculations; may be empty
    ///@}

    /// @name What the code did
    ///@{
    bool autoCalculate = true;
    int recalculations = 0;
    int fullRecalculations = 0;
    ///@}

    /// The group of that name, or nothing.
    std::shared_ptr<FakeGroup> Find(const std::string& group) const {
        return FindByName(groups, group);
    }

    std::string Name() override { return log.Noted("Plan.Name", name); }
    std::shared_ptr<host::TaskCollection> Tasks() override;
    std::string GetText(const std::string& textName) override {
        return TextUnder(log.Noted("Plan.GetText", texts), textName);
    }
    void SetText(const std::string& textName, const std::string& text) override {
        log.Noted("Plan.SetText", texts)[textName] = text;
    }
    void PutAutoCalculate(bool automatic) override {
        log.Noted("Plan.PutAutoCalculate", autoCalculate) = automatic;
    }
    void Recalculate() override {
        ++log.Noted("Plan.Recalculate", recalculations);
        if (onRecalculate) onRecalculate();
    }
    void RecalculateAll() override {
        ++log.Noted("Plan.RecalculateAll", fullRecalculations);
        if (onRecalculate) onRecalculate();
    }
    std::shared_ptr<host::SummaryTask> SummaryTask() override;
    std::shared_ptr<host::RiskAnalysis> RiskAnalysis() override;
    std::shared_ptr<host::GroupCollection> Groups() override;
    std::shared_ptr<host::UserFieldDefinitions> UserFieldDefinitions() override;
    std::shared_ptr<host::View> CurrentView() override;
};

}  // namespace kestrel::test
