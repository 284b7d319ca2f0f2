#include "base/Errors.h"
#include "refhost/windows/automation/DispatchIds.h"
#include "refhost/windows/automation/PlanObjects.h"

#include <Schedulon.h>

namespace refhost::automation {
namespace {

/// All tasks of the plan, or the children of a summary.
class TasksObject final : public PlanPart {
 public:
    TasksObject(OfferedPlan& plan, const OfferedPlan::Key& key, std::vector<std::size_t> tasks)
        : PlanPart(plan, key), tasks_(std::move(tasks)) {}

 private:
    void Run(DISPID id, WORD kinds, Invocation& call) override {
        static constexpr Member<TasksObject> kMembers[] = {
            {ID_DEFAULT, kGet, 1, 1, [](auto& o, auto& c) { c.Answer(o.Item(c)); }},
            {ID_COLLECTION_COUNT, kGet, 0, 0,
             [](auto& o, auto& c) { c.Answer(static_cast<std::int32_t>(o.tasks_.size())); }},
            {ID_NEWENUM, kGet | kCall, 0, 0, [](auto& o, auto& c) { c.AnswerEnumerator(o.All()); }},
        };
        RunMember<TasksObject>(kMembers, *this, id, kinds, call);
    }

    Object Item(const Invocation& call) const {
        if (call.IsText(0)) return ByID(call.Text(0));
        const std::int32_t position = call.Whole(0);
        if (position < 1 || static_cast<std::size_t>(position) > tasks_.size())
            throw kestrel::HostError("There is no task number " + std::to_string(position) +
                                     "; the collection holds " + std::to_string(tasks_.size()) +
                                     ", numbered from 1.");
        return OfferTask(Owner(), tasks_[static_cast<std::size_t>(position) - 1]);
    }
    Object ByID(const std::string& id) const {
        const auto task = Plan().Find(id);
        if (!task || std::find(tasks_.begin(), tasks_.end(), *task) == tasks_.end()) return nullptr;
        return OfferTask(Owner(), *task);
    }
    std::vector<Object> All() const {
        std::vector<Object> objects;
        objects.reserve(tasks_.size());
        for (const std::size_t task : tasks_) objects.push_back(OfferTask(Owner(), task));
        return objects;
    }

    const std::vector<std::size_t> tasks_;
};

class TaskObject final : public PlanPart {
 public:
    TaskObject(OfferedPlan& plan, const OfferedPlan::Key& key)
        : PlanPart(plan, key), task_(plan.Plan().TaskAt(key.second)) {}

 private:
    void Run(DISPID id, WORD kinds, Invocation& call) override {
        static constexpr Member<TaskObject> kMembers[] = {
            {ID_TASK_DURATION, kGet, 0, 0, [](auto& o, auto& c) { c.Answer(o.task_->Duration()); }},
            {ID_TASK_DURATION, kPut, 1, 1, [](auto& o, auto& c) { o.PutDuration(c.Whole(0)); }},
            {ID_TASK_ID, kGet, 0, 0, [](auto& o, auto& c) { c.Answer(o.task_->ID()); }},
            {ID_TASK_NAME, kGet, 0, 0, [](auto& o, auto& c) { c.Answer(o.task_->Name()); }},
            {ID_TASK_TASKTYPE, kGet, 0, 0, [](auto& o, auto& c) { c.Answer(o.task_->TaskType()); }},
            {ID_TASK_CHILDTASKS, kGet, 0, 0, [](auto& o, auto& c) { c.Answer(o.Children()); }},
            {ID_TASK_USERVALUES, kGet, 0, 0,
             [](auto& o, auto& c) { c.Answer(OfferUserValues(o.Owner(), o.Position())); }},
            {ID_TASK_COSTITEMS, kGet, 0, 0,
             [](auto& o, auto& c) { c.Answer(OfferCostItems(o.Owner(), o.Position())); }},
        };
        RunMember<TaskObject>(kMembers, *this, id, kinds, call);
    }

    void PutDuration(std::int32_t duration) {
        // What an analysis tries is put back at its end and never stored.
        if (duration < 0 && !Server().Host().IsAnalysing())
            throw kestrel::HostError("The duration of the task '" + task_->ID() + "' cannot be " +
                                     std::to_string(duration) + " minutes; give 0 or more.");
        task_->PutDuration(duration);
    }

    Object Children() const {
        // 0 is the collection of all tasks.
        return Owner().Offer<TasksObject>({&DIID__Tasks, Position() + 1},
                                          Plan().Children(Position()));
    }

    const host::TaskPtr task_;
};

class UserValuesObject final : public PlanPart {
 public:
    UserValuesObject(OfferedPlan& plan, const OfferedPlan::Key& key)
        : PlanPart(plan, key), values_(plan.Plan().TaskAt(key.second)->UserValues()) {}

 private:
    void Run(DISPID id, WORD kinds, Invocation& call) override {
        static constexpr Member<UserValuesObject> kMembers[] = {
            {ID_DEFAULT, kGet, 1, 1,
             [](auto& o, auto& c) { c.Answer(o.values_->Item(c.Text(0))); }},
            {ID_DEFAULT, kPut, 2, 2,
             [](auto& o, auto& c) { o.values_->PutItem(c.StoredText(0), c.StoredText(1)); }},
        };
        RunMember<UserValuesObject>(kMembers, *this, id, kinds, call);
    }

    const std::shared_ptr<host::UserValues> values_;
};

}  // namespace

Object OfferTasks(OfferedPlan& plan) {
    std::vector<std::size_t> all(plan.Plan().TaskCount());
    for (std::size_t i = 0; i < all.size(); ++i) all[i] = i;
    return plan.Offer<TasksObject>({&DIID__Tasks, 0}, std::move(all));
}

Object OfferTask(OfferedPlan& plan, std::size_t task) {
    return plan.Offer<TaskObject>({&DIID__Task, task});
}

Object OfferUserValues(OfferedPlan& plan, std::size_t task) {
    return plan.Offer<UserValuesObject>({&DIID__UserValues, task});
}

}  // namespace refhost::automation
