#pragma once

#include <algorithm>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "host/HostModel.h"
#include "util/Errors.h"

/// A host in memory. Tests set and read the objects' public data directly, which costs no host
/// call; the code under test goes through the host::... interfaces, where every call is recorded
/// and can be made to fail. The objects live as long as the FakeHost that made them.
///
///     FakeHost host;
///     auto task = host.AddTask("10", "Foundations");
///     task->texts["RiskFactors"] = "(1,2)";
///     host.plan->randoms = {0.25, 0.75};
///     host.log.FailCall(3);
namespace kestrel::test {

/// The element of that name, or nothing.
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

/// Every host call in order, named "Type.Member" ("Task.PutDuration" for a put).
class CallLog {
 public:
    std::vector<std::string> calls;
    /// Members whose every call fails.
    std::set<std::string> failing;

    /// Makes the n-th call from now (from 1) fail with HostError, once.
    void FailCall(std::size_t n) { failAt_ = calls.size() + n; }

    std::size_t Count(const std::string& member) const {
        return static_cast<std::size_t>(std::count(calls.begin(), calls.end(), member));
    }

    /// Notes a call; for the fakes themselves.
    void Note(const char* member) {
        calls.emplace_back(member);
        if (calls.size() == failAt_ || failing.contains(member))
            throw HostError(std::string("the host refused ") + member);
    }

 private:
    std::size_t failAt_ = 0;
};

class FakeCostItem : public host::CostItem {
 public:
    FakeCostItem(CallLog& log, double theCost) : cost(theCost), log_(log) {}

    double cost;

    double Cost() override;
    void PutCost(double value) override;

 private:
    CallLog& log_;
};

class FakeTask : public host::Task {
 public:
    FakeTask(CallLog& log, std::string theID, std::string theName)
        : id(std::move(theID)), name(std::move(theName)), log_(log) {}

    std::string id;
    std::string name;
    std::int32_t duration = 100;
    std::int16_t type = host::kOrdinaryTask;
    std::vector<std::shared_ptr<FakeTask>> children;
    std::map<std::string, std::string> texts;
    std::vector<std::shared_ptr<FakeCostItem>> costItems;

    FakeCostItem& AddCost(double cost);

    std::string ID() override;
    std::string Name() override;
    std::int32_t Duration() override;
    void PutDuration(std::int32_t value) override;
    std::int16_t TaskType() override;
    std::vector<host::TaskPtr> ChildTasks() override;
    std::shared_ptr<host::UserValues> UserValues() override;
    std::vector<std::shared_ptr<host::CostItem>> CostItems() override;

 private:
    CallLog& log_;
};

/// Value() is the mean of the three points.
class FakeDistribution : public host::Distribution {
 public:
    explicit FakeDistribution(CallLog& log) : log_(log) {}

    std::int16_t shape = -1;
    double minimum = 0;
    double mostLikely = 0;
    double maximum = 0;

    void PutShape(std::int16_t value) override;
    void PutMinimum(double value) override;
    void PutMostLikely(double value) override;
    void PutMaximum(double value) override;
    double Value() override;

 private:
    CallLog& log_;
};

class FakePlan;

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
    std::shared_ptr<FakeMember> Find(const std::string& member) const;

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
    std::shared_ptr<FakeGroup> Find(const std::string& group) const;

    std::string Name() override;
    std::shared_ptr<host::TaskCollection> Tasks() override;
    std::string GetText(const std::string& textName) override;
    void SetText(const std::string& textName, const std::string& text) override;
    void PutAutoCalculate(bool automatic) override;
    void Recalculate() override;
    void RecalculateAll() override;
    std::shared_ptr<host::SummaryTask> SummaryTask() override;
    std::shared_ptr<host::RiskAnalysis> RiskAnalysis() override;
    std::shared_ptr<host::GroupCollection> Groups() override;
    std::shared_ptr<host::UserFieldDefinitions> UserFieldDefinitions() override;
    std::shared_ptr<host::View> CurrentView() override;
};

class FakeApplication : public host::Application {
 public:
    explicit FakeApplication(CallLog& log) : log_(log) {}

    std::shared_ptr<FakePlan> plan;  ///< the active one; may be nothing
    std::string path = "C:\\Host";
    std::int32_t version[3] = {8, 0, 100};
    /// By application, section and key.
    std::map<std::tuple<std::string, std::string, std::string>, std::string> settings;
    std::vector<bool> busy;                ///< every put, in order
    std::vector<std::string> statusTexts;  ///< every put, in order
    std::vector<host::AnalysisEvents*> sinks;

    host::PlanPtr ActivePlan() override;
    std::string Path() override;
    std::string GetSetting(const std::string& application, const std::string& section,
                           const std::string& key, const std::string& fallback) override;
    void SaveSetting(const std::string& application, const std::string& section,
                     const std::string& key, const std::string& value) override;
    std::int32_t VersionMajor() override;
    std::int32_t VersionMinor() override;
    std::int32_t VersionRevision() override;
    void PutBusy(bool value) override;
    void PutStatusText(const std::string& text) override;
    void Subscribe(host::AnalysisEvents& sink) override;
    void Unsubscribe(host::AnalysisEvents& sink) override;

 private:
    CallLog& log_;
};

/// An application with one empty, active plan.
class FakeHost {
 public:
    FakeHost();

    CallLog log;
    std::shared_ptr<FakeApplication> application;
    std::shared_ptr<FakePlan> plan;

    /// Appends a task to the plan, below `parent` when one is given, which becomes a summary.
    std::shared_ptr<FakeTask> AddTask(const std::string& id, const std::string& name,
                                      const std::string& riskFactors = {},
                                      FakeTask* parent = nullptr);
};

}  // namespace kestrel::test
