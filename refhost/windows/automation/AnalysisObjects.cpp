#include "base/Errors.h"
#include "refhost/windows/automation/DispatchIds.h"
#include "refhost/windows/automation/PlanObjects.h"

#include <Schedulon.h>

namespace refhost::automation {
namespace {

class SummaryTaskObject final : public PlanPart {
 public:
    SummaryTaskObject(OfferedPlan& plan, const OfferedPlan::Key& key)
        : PlanPart(plan, key), summary_(plan.Plan().SummaryTask()) {}

 private:
    void Run(DISPID id, WORD kinds, Invocation& call) override {
        static constexpr Member<SummaryTaskObject> kMembers[] = {
            {ID_SUMMARYTASK_FINISH, kGet, 0, 0,
             [](auto& o, auto& c) { c.AnswerDate(o.summary_->Finish()); }},
            {ID_SUMMARYTASK_COST, kGet, 0, 0,
             [](auto& o, auto& c) { c.Answer(o.summary_->Cost()); }},
        };
        RunMember<SummaryTaskObject>(kMembers, *this, id, kinds, call);
    }

    const std::shared_ptr<host::SummaryTask> summary_;
};

class AnalysisOptionsObject final : public PlanPart {
 public:
    AnalysisOptionsObject(OfferedPlan& plan, const OfferedPlan::Key& key)
        : PlanPart(plan, key), options_(plan.Plan().RiskAnalysis()->Options()) {}

 private:
    void Run(DISPID id, WORD kinds, Invocation& call) override {
        static constexpr Member<AnalysisOptionsObject> kMembers[] = {
            {ID_ANALYSISOPTIONS_RECALCULATEALL, kGet, 0, 0,
             [](auto& o, auto& c) { c.Answer(o.options_->RecalculateAll()); }},
        };
        RunMember<AnalysisOptionsObject>(kMembers, *this, id, kinds, call);
    }

    const std::shared_ptr<host::AnalysisOptions> options_;
};

class RiskAnalysisObject final : public PlanPart {
 public:
    using PlanPart::PlanPart;

 private:
    void Run(DISPID id, WORD kinds, Invocation& call) override {
        static constexpr Member<RiskAnalysisObject> kMembers[] = {
            {ID_RISKANALYSIS_NEXTRANDOM, kGet, 0, 0,
             [](auto& o, auto& c) { c.Answer(o.Plan().NextRandom()); }},
            {ID_RISKANALYSIS_ISUPTODATE, kGet, 0, 0,
             [](auto& o, auto& c) { c.Answer(o.Plan().ResultsUpToDate()); }},
            {ID_RISKANALYSIS_OPTIONS, kGet, 0, 0,
             [](auto& o, auto& c) {
                 c.Answer(
                     o.Owner().template Offer<AnalysisOptionsObject>({&DIID__AnalysisOptions, 0}));
             }},
            {ID_RISKANALYSIS_RUN, kCall, 0, 2, [](auto& o, auto& c) { o.Analyse(c); }},
        };
        RunMember<RiskAnalysisObject>(kMembers, *this, id, kinds, call);
    }

    void Analyse(const Invocation& call) {
        AnalysisSettings settings = Plan().Data().analysis;
        if (call.Has(0)) settings.iterations = call.Whole(0);
        if (call.Has(1)) settings.seed = call.Seed(1);
        if (settings.iterations < 1)
            throw kestrel::HostError("An analysis cannot have " +
                                     std::to_string(settings.iterations) +
                                     " iterations; give a number of 1 or more.");
        if (Server().Host().OpenPlan().get() != &Plan())
            throw kestrel::HostError("The plan '" + Plan().Name() +
                                     "' is no longer open in the host; open it again to analyse "
                                     "it.");
        Server().Program().Analyse(settings);
    }
};

class ViewObject final : public PlanPart {
 public:
    ViewObject(OfferedPlan& plan, const OfferedPlan::Key& key)
        : PlanPart(plan, key), view_(plan.Plan().CurrentView()) {}

 private:
    void Run(DISPID id, WORD kinds, Invocation& call) override {
        static constexpr Member<ViewObject> kMembers[] = {
            {ID_GANTTCHART_TYPENAME, kGet, 0, 0,
             [](auto& o, auto& c) { c.Answer(o.view_->TypeName()); }},
            {ID_GANTTCHART_CURRENTROW, kGet, 0, 0,
             [](auto& o, auto& c) { c.Answer(o.view_->CurrentRow()); }},
            {ID_GANTTCHART_CURRENTROW, kPut, 1, 1,
             [](auto& o, auto& c) { o.PutCurrentRow(c.Whole(0)); }},
        };
        RunMember<ViewObject>(kMembers, *this, id, kinds, call);
    }

    void PutCurrentRow(std::int32_t row) {
        const auto count = static_cast<std::int32_t>(Plan().TaskCount());
        if (row < 1 || row > count)
            throw kestrel::HostError("The view has no row number " + std::to_string(row) +
                                     "; its rows are the plan's " + std::to_string(count) +
                                     " tasks, numbered from 1.");
        view_->PutCurrentRow(row);
    }

    const std::shared_ptr<host::View> view_;
};

}  // namespace

Object OfferSummaryTask(OfferedPlan& plan) {
    return plan.Offer<SummaryTaskObject>({&DIID__SummaryTask, 0});
}

Object OfferRiskAnalysis(OfferedPlan& plan) {
    return plan.Offer<RiskAnalysisObject>({&DIID__RiskAnalysis, 0});
}

Object OfferView(OfferedPlan& plan) { return plan.Offer<ViewObject>({&DIID_GanttChart, 0}); }

}  // namespace refhost::automation
