#include "refhost/windows/automation/DispatchIds.h"
#include "refhost/windows/automation/PlanObjects.h"

#include <Schedulon.h>

namespace refhost::automation {
namespace {

class PlanObject final : public PlanPart {
 public:
    using PlanPart::PlanPart;

 private:
    void Run(DISPID id, WORD kinds, Invocation& call) override {
        static constexpr Member<PlanObject> kMembers[] = {
            {ID_PLAN_AUTOCALCULATE, kPut, 1, 1,
             [](auto& o, auto& c) { o.Plan().PutAutoCalculate(c.Truth(0)); }},
            {ID_PLAN_RECALCULATE, kCall, 0, 0, [](auto& o, auto&) { o.Plan().Recalculate(); }},
            {ID_PLAN_RECALCULATEALL, kCall, 0, 0,
             [](auto& o, auto&) { o.Plan().RecalculateAll(); }},
            {ID_PLAN_NAME, kGet, 0, 0, [](auto& o, auto& c) { c.Answer(o.Plan().Name()); }},
            {ID_PLAN_GETTEXT, kCall, 1, 1,
             [](auto& o, auto& c) { c.Answer(o.Plan().GetText(c.Text(0))); }},
            {ID_PLAN_SETTEXT, kCall, 2, 2,
             [](auto& o, auto& c) { o.Plan().SetText(c.StoredText(0), c.StoredText(1)); }},
            {ID_PLAN_TASKS, kGet, 0, 0, Give<OfferTasks>},
            {ID_PLAN_SUMMARYTASK, kGet, 0, 0, Give<OfferSummaryTask>},
            {ID_PLAN_RISKANALYSIS, kGet, 0, 0, Give<OfferRiskAnalysis>},
            {ID_PLAN_GROUPS, kGet, 0, 0, Give<OfferGroups>},
            {ID_PLAN_USERFIELDDEFINITIONS, kGet, 0, 0, Give<OfferUserFields>},
            {ID_PLAN_CURRENTVIEW, kGet, 0, 0, Give<OfferView>},
            {ID_PLAN_SAVE, kCall, 0, 1,
             [](auto& o, auto& c) {
                 o.Server().Program().SavePlan(o.Plan(), c.Has(0) ? c.Text(0) : std::string());
             }},
            {ID_PLAN_SAVED, kGet, 0, 0,
             [](auto& o, auto& c) { c.Answer(o.Server().Program().IsSaved(o.Plan())); }},
        };
        RunMember<PlanObject>(kMembers, *this, id, kinds, call);
    }

    template <Object (*kOffer)(OfferedPlan&)>
    static void Give(PlanObject& object, Invocation& call) {
        call.Answer(kOffer(object.Owner()));
    }
};

}  // namespace

Object OfferPlan(OfferedPlan& plan) { return plan.Offer<PlanObject>({&DIID__Plan, 0}); }

}  // namespace refhost::automation
