#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/HostModel.h"
#include "refhost/engine/HostGroups.h"
#include "refhost/engine/LivePlan.h"
#include "refhost/engine/RandomStream.h"

namespace refhost {

/// A plan at work, as the add-in sees it. The smaller objects (tasks, cost items, the
/// summary, the analysis engine) are views that keep the plan alive.
class HostPlan final : public LivePlan,
                       public host::Plan,
                       public std::enable_shared_from_this<HostPlan> {
 public:
    explicit HostPlan(PlanData data);

    HostGroupCollection& GroupList() { return *groups_; }
    RandomStream& Stream() { return stream_; }
    host::TaskPtr TaskAt(std::size_t index);
    /// Position of the task with that ID; nothing when the plan has none.
    std::optional<std::size_t> Find(const std::string& id) const;

    /// The next number of the analysis's stream, noted in NumbersHandedOut.
    double NextRandom() {
        handedOut_.push_back(stream_.Next());
        return handedOut_.back();
    }
    /// What NextRandom gave since the list was last emptied.
    std::vector<double>& NumbersHandedOut() { return handedOut_; }

    /// The Gantt view's current row, from 1; 0 for none.
    void SelectRow(std::int32_t row) { currentRow_ = row; }
    std::int32_t SelectedRow() const { return currentRow_; }

    std::string Name() override { return Data().name; }
    std::shared_ptr<host::TaskCollection> Tasks() override;
    std::string GetText(const std::string& name) override;
    void SetText(const std::string& name, const std::string& text) override;
    void PutAutoCalculate(bool automatic) override { LivePlan::PutAutoCalculate(automatic); }
    void Recalculate() override { LivePlan::Recalculate(); }
    /// The forward pass is always a full one.
    void RecalculateAll() override { LivePlan::Recalculate(); }
    std::shared_ptr<host::SummaryTask> SummaryTask() override;
    std::shared_ptr<host::RiskAnalysis> RiskAnalysis() override;
    std::shared_ptr<host::GroupCollection> Groups() override { return groups_; }
    std::shared_ptr<host::UserFieldDefinitions> UserFieldDefinitions() override;
    std::shared_ptr<host::View> CurrentView() override;

 private:
    std::unordered_map<std::string, std::size_t> taskByID_;
    std::shared_ptr<HostGroupCollection> groups_ = std::make_shared<HostGroupCollection>();
    RandomStream stream_;
    std::vector<double> handedOut_;
    std::int32_t currentRow_ = 0;
};

}  // namespace refhost
