#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

/// The host application's object model as the add-in uses it, under the host's own names:
/// a property `Duration` is read by `Duration()` and written by `PutDuration(v)`.
///
/// Every call may raise kestrel::HostError. Across a process or COM boundary a call costs about
/// a microsecond, so callers in a loop keep the objects they were given; an object stays valid
/// and shows the plan's current values for as long as it is held. All calls are made from the
/// host's user-interface thread.
namespace kestrel::host {

/// A date as the host counts it: days since 1899-12-30, the time of day as the fraction.
using Date = double;

/// Kinds of task (`Task.TaskType`) that the add-in tells apart; a host may have others.
inline constexpr std::int16_t kOrdinaryTask = 0;
inline constexpr std::int16_t kSummaryTask = 1;

/// Type of a user field that holds text.
inline constexpr std::int16_t kTextField = 1;

class Group;
class Plan;
class Task;
using GroupPtr = std::shared_ptr<Group>;
using PlanPtr = std::shared_ptr<Plan>;
using TaskPtr = std::shared_ptr<Task>;

/// Named text slots of one task.
class UserValues {
 public:
    virtual ~UserValues() = default;
    /// The text under the name; empty when absent.
    virtual std::string Item(const std::string& name) = 0;
    virtual void PutItem(const std::string& name, const std::string& text) = 0;
};

/// One cost amount of a task, in plan currency.
class CostItem {
 public:
    virtual ~CostItem() = default;
    virtual double Cost() = 0;
    virtual void PutCost(double cost) = 0;
};

/// One activity.
class Task {
 public:
    virtual ~Task() = default;
    virtual std::string ID() = 0;
    virtual std::string Name() = 0;
    /// In the host's duration units, whole numbers.
    virtual std::int32_t Duration() = 0;
    virtual void PutDuration(std::int32_t duration) = 0;
    virtual std::int16_t TaskType() = 0;
    /// Direct children in plan order; empty for an ordinary task.
    virtual std::vector<TaskPtr> ChildTasks() = 0;
    virtual std::shared_ptr<host::UserValues> UserValues() = 0;
    /// The task's cost items, in a stable order.
    virtual std::vector<std::shared_ptr<CostItem>> CostItems() = 0;
};

/// All tasks of a plan, in plan order.
class TaskCollection {
 public:
    virtual ~TaskCollection() = default;
    virtual std::int32_t Count() = 0;
    /// By position from 1. Raises HostError beyond the collection.
    virtual TaskPtr Item(std::int32_t position) = 0;
    /// By `Task.ID`; nothing when the plan has no such task.
    virtual TaskPtr Item(const std::string& id) = 0;
    /// Every task, enumerated once.
    virtual std::vector<TaskPtr> Enumerate() = 0;
};

/// The plan's overall summary, as of the latest recalculation.
class SummaryTask {
 public:
    virtual ~SummaryTask() = default;
    virtual Date Finish() = 0;
    virtual double Cost() = 0;
};

class AnalysisOptions {
 public:
    virtual ~AnalysisOptions() = default;
    virtual bool RecalculateAll() = 0;
};

/// The host's analysis engine for one plan.
class RiskAnalysis {
 public:
    virtual ~RiskAnalysis() = default;
    /// The next number of the analysis's own stream, uniform in [0, 1).
    virtual double NextRandom() = 0;
    /// Whether the stored results still match the plan.
    virtual bool IsUpToDate() = 0;
    virtual std::shared_ptr<AnalysisOptions> Options() = 0;
};

/// A three-point distribution.
class Distribution {
 public:
    virtual ~Distribution() = default;
    virtual void PutShape(std::int16_t shape) = 0;
    virtual void PutMinimum(double value) = 0;
    virtual void PutMostLikely(double value) = 0;
    virtual void PutMaximum(double value) = 0;
    /// The single value that the host derives from the three points.
    virtual double Value() = 0;
};

/// One sampled variable; the host draws a value for it in every iteration.
class Member {
 public:
    virtual ~Member() = default;
    /// The deterministic, unsampled value.
    virtual void PutValue(double value) = 0;
    /// The value drawn for the current iteration.
    virtual double SampledValue() = 0;
    /// The group that this member stands for, the one of the same name; nothing when absent.
    virtual GroupPtr Group() = 0;
    /// With `create` a missing distribution is made, otherwise nothing is returned for it.
    virtual std::shared_ptr<host::Distribution> Distribution(bool create) = 0;
};
using MemberPtr = std::shared_ptr<Member>;

class MemberCollection {
 public:
    virtual ~MemberCollection() = default;
    /// By name or by position from 1; nothing when absent.
    virtual MemberPtr Item(const std::string& name) = 0;
    virtual MemberPtr Item(std::int32_t position) = 0;
    virtual MemberPtr Add(const std::string& name) = 0;
    virtual std::vector<MemberPtr> Enumerate() = 0;
};

/// A named set of sampled variables.
class Group {
 public:
    virtual ~Group() = default;
    virtual std::string Name() = 0;
    virtual void PutDescription(const std::string& text) = 0;
    virtual void PutFlagged(bool flagged) = 0;
    virtual std::shared_ptr<MemberCollection> Members() = 0;
};

class GroupCollection {
 public:
    virtual ~GroupCollection() = default;
    /// By name; nothing when absent.
    virtual GroupPtr Item(const std::string& name) = 0;
    virtual GroupPtr Add(const std::string& name) = 0;
    /// Deletes the group and what it holds. Raises HostError when there is none of that name.
    virtual void Remove(const std::string& name) = 0;
};

class UserFieldDefinition {
 public:
    virtual ~UserFieldDefinition() = default;
    virtual std::string Name() = 0;
};

class UserFieldDefinitions {
 public:
    virtual ~UserFieldDefinitions() = default;
    /// By name; nothing when absent.
    virtual std::shared_ptr<UserFieldDefinition> Item(const std::string& name) = 0;
    virtual void Add(const std::string& name, std::int16_t type) = 0;
};

/// The view that the user is working in.
class View {
 public:
    virtual ~View() = default;
    /// "GanttChart" for the Gantt view.
    virtual std::string TypeName() = 0;
    /// The current row of the Gantt view, from 1; 0 for none.
    virtual std::int32_t CurrentRow() = 0;
    /// Moves the current row, and with it the selected task.
    virtual void PutCurrentRow(std::int32_t row) = 0;
};

/// One schedule.
class Plan {
 public:
    virtual ~Plan() = default;
    virtual std::string Name() = 0;
    virtual std::shared_ptr<TaskCollection> Tasks() = 0;
    /// Plan-level text; empty when nothing is stored under the name.
    virtual std::string GetText(const std::string& name) = 0;
    virtual void SetText(const std::string& name, const std::string& text) = 0;
    /// False suspends automatic recalculation.
    virtual void PutAutoCalculate(bool automatic) = 0;
    virtual void Recalculate() = 0;
    virtual void RecalculateAll() = 0;
    virtual std::shared_ptr<host::SummaryTask> SummaryTask() = 0;
    virtual std::shared_ptr<host::RiskAnalysis> RiskAnalysis() = 0;
    virtual std::shared_ptr<GroupCollection> Groups() = 0;
    virtual std::shared_ptr<host::UserFieldDefinitions> UserFieldDefinitions() = 0;
    virtual std::shared_ptr<View> CurrentView() = 0;
};

/// Receives the three analysis events. What a handler throws travels back to the host.
class AnalysisEvents {
 public:
    virtual ~AnalysisEvents() = default;
    virtual void PlanBeforeRiskAnalysis(const PlanPtr& plan) = 0;
    virtual void PlanAfterRiskIteration(const PlanPtr& plan) = 0;
    virtual void PlanAfterRiskAnalysis(const PlanPtr& plan) = 0;
};

/// The host itself.
class Application {
 public:
    virtual ~Application() = default;
    /// The plan that is open and active; nothing when none is open.
    virtual PlanPtr ActivePlan() = 0;
    /// The installation folder, without a trailing "\".
    virtual std::string Path() = 0;
    virtual std::string GetSetting(const std::string& application, const std::string& section,
                                   const std::string& key, const std::string& fallback) = 0;
    virtual void SaveSetting(const std::string& application, const std::string& section,
                             const std::string& key, const std::string& value) = 0;
    virtual std::int32_t VersionMajor() = 0;
    virtual std::int32_t VersionMinor() = 0;
    virtual std::int32_t VersionRevision() = 0;
    virtual void PutBusy(bool busy) = 0;
    virtual void PutStatusText(const std::string& text) = 0;

    /// Starts and ends the delivery of events to `sink`, which must outlive the subscription.
    virtual void Subscribe(AnalysisEvents& sink) = 0;
    virtual void Unsubscribe(AnalysisEvents& sink) = 0;
};
using ApplicationPtr = std::shared_ptr<Application>;

}  // namespace kestrel::host
