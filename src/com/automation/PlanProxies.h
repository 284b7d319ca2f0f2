#pragma once

#include "com/automation/Dispatch.h"
#include "host/HostModel.h"

/// A plan and its parts, behind Automation. A plan's parts are fetched at every call and not kept:
/// a host may put another object in their place (after an analysis, after a change of its
/// options, with another view), and no loop asks the plan for them.
namespace kestrel::com {

class SummaryTaskProxy : public host::SummaryTask {
 public:
    explicit SummaryTaskProxy(Dispatch summary) : summary_(std::move(summary)) {}
    host::Date Finish() override { return summary_.Number(HostMember::SummaryTaskFinish); }
    double Cost() override { return summary_.Number(HostMember::SummaryTaskCost); }

 private:
    Dispatch summary_;
};

class AnalysisOptionsProxy : public host::AnalysisOptions {
 public:
    explicit AnalysisOptionsProxy(Dispatch options) : options_(std::move(options)) {}
    bool RecalculateAll() override {
        return options_.Truth(HostMember::AnalysisOptionsRecalculateAll);
    }

 private:
    Dispatch options_;
};

class RiskAnalysisProxy : public host::RiskAnalysis {
 public:
    explicit RiskAnalysisProxy(Dispatch analysis) : analysis_(std::move(analysis)) {}
    double NextRandom() override { return analysis_.Number(HostMember::RiskAnalysisNextRandom); }
    bool IsUpToDate() override { return analysis_.Truth(HostMember::RiskAnalysisIsUpToDate); }
    std::shared_ptr<host::AnalysisOptions> Options() override;

 private:
    Dispatch analysis_;
};

class UserFieldDefinitionProxy : public host::UserFieldDefinition {
 public:
    explicit UserFieldDefinitionProxy(Dispatch field) : field_(std::move(field)) {}
    std::string Name() override { return field_.Text(HostMember::UserFieldDefinitionName); }

 private:
    Dispatch field_;
};

class UserFieldDefinitionsProxy : public host::UserFieldDefinitions {
 public:
    explicit UserFieldDefinitionsProxy(Dispatch fields) : fields_(std::move(fields)) {}
    std::shared_ptr<host::UserFieldDefinition> Item(const std::string& name) override;
    void Add(const std::string& name, std::int16_t type) override;

 private:
    Dispatch fields_;
};

class PlanProxy : public host::Plan {
 public:
    explicit PlanProxy(Dispatch plan) : plan_(std::move(plan)) {}
    std::string Name() override { return plan_.Text(HostMember::PlanName); }
    std::shared_ptr<host::TaskCollection> Tasks() override;
    std::string GetText(const std::string& name) override;
    void SetText(const std::string& name, const std::string& text) override;
    void PutAutoCalculate(bool automatic) override {
        plan_.Put(HostMember::PlanAutoCalculate, automatic);
    }
    void Recalculate() override { plan_.Run(HostMember::PlanRecalculate); }
    void RecalculateAll() override { plan_.Run(HostMember::PlanRecalculateAll); }
    std::shared_ptr<host::SummaryTask> SummaryTask() override;
    std::shared_ptr<host::RiskAnalysis> RiskAnalysis() override;
    std::shared_ptr<host::GroupCollection> Groups() override;
    std::shared_ptr<host::UserFieldDefinitions> UserFieldDefinitions() override;
    std::shared_ptr<host::View> CurrentView() override;

 private:
    Dispatch plan_;
};

}  // namespace kestrel::com
