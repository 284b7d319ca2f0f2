#include "base/Errors.h"
#include "refhost/windows/automation/DispatchIds.h"
#include "refhost/windows/automation/PlanObjects.h"

#include <Schedulon.h>

namespace refhost::automation {
namespace {

class CostItemObject final : public PlanPart {
 public:
    CostItemObject(OfferedPlan& plan, const OfferedPlan::Key& key,
                   std::shared_ptr<host::CostItem> item)
        : PlanPart(plan, key), item_(std::move(item)) {}

 private:
    void Run(DISPID id, WORD kinds, Invocation& call) override {
        static constexpr Member<CostItemObject> kMembers[] = {
            {ID_COSTITEM_COST, kPut, 1, 1, [](auto& o, auto& c) { o.item_->PutCost(c.Number(0)); }},
            {ID_COSTITEM_COST, kGet, 0, 0, [](auto& o, auto& c) { c.Answer(o.item_->Cost()); }},
        };
        RunMember<CostItemObject>(kMembers, *this, id, kinds, call);
    }

    const std::shared_ptr<host::CostItem> item_;
};

class CostItemsObject final : public PlanPart {
 public:
    CostItemsObject(OfferedPlan& plan, const OfferedPlan::Key& key)
        : PlanPart(plan, key), items_(plan.Plan().TaskAt(key.second)->CostItems()) {}

 private:
    void Run(DISPID id, WORD kinds, Invocation& call) override {
        static constexpr Member<CostItemsObject> kMembers[] = {
            {ID_DEFAULT, kGet, 1, 1, [](auto& o, auto& c) { c.Answer(o.Item(c.Whole(0))); }},
            {ID_COLLECTION_COUNT, kGet, 0, 0, [](auto& o, auto& c) { c.Answer(o.Count()); }},
            {ID_NEWENUM, kGet | kCall, 0, 0, [](auto& o, auto& c) { c.AnswerEnumerator(o.All()); }},
        };
        RunMember<CostItemsObject>(kMembers, *this, id, kinds, call);
    }

    std::int32_t Count() const { return static_cast<std::int32_t>(items_.size()); }
    Object At(std::size_t index) const {
        const std::size_t item = Plan().FirstCost(Position()) + index;
        return Owner().Offer<CostItemObject>({&DIID__CostItem, item}, items_[index]);
    }
    Object Item(std::int32_t position) const {
        if (position < 1 || position > Count())
            throw kestrel::HostError("The task has no cost item number " +
                                     std::to_string(position) + "; it has " +
                                     std::to_string(Count()) + ".");
        return At(static_cast<std::size_t>(position) - 1);
    }
    std::vector<Object> All() const {
        std::vector<Object> objects;
        for (std::size_t i = 0; i < items_.size(); ++i) objects.push_back(At(i));
        return objects;
    }

    const std::vector<std::shared_ptr<host::CostItem>> items_;
};

}  // namespace

Object OfferCostItems(OfferedPlan& plan, std::size_t task) {
    return plan.Offer<CostItemsObject>({&DIID__CostItems, task});
}

}  // namespace refhost::automation
