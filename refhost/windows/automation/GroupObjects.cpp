#include "refhost/windows/automation/DispatchIds.h"
#include "refhost/windows/automation/PlanObjects.h"

#include <Schedulon.h>

namespace refhost::automation {
namespace {

/// The key of an object that stands for `part`, which the object keeps: no other part can have
/// the same address meanwhile.
template <class Part>
OfferedPlan::Key KeyOf(const IID& iid, const std::shared_ptr<Part>& part) {
    return {&iid, reinterpret_cast<std::uintptr_t>(part.get())};
}

class DistributionObject final : public PlanPart {
 public:
    DistributionObject(OfferedPlan& plan, const OfferedPlan::Key& key,
                       std::shared_ptr<host::Distribution> distribution)
        : PlanPart(plan, key), distribution_(std::move(distribution)) {}

 private:
    void Run(DISPID id, WORD kinds, Invocation& call) override {
        static constexpr Member<DistributionObject> kMembers[] = {
            {ID_DISTRIBUTION_SHAPE, kPut, 1, 1,
             [](auto& o, auto& c) { o.distribution_->PutShape(c.Small(0)); }},
            {ID_DISTRIBUTION_MINIMUM, kPut, 1, 1,
             [](auto& o, auto& c) { o.distribution_->PutMinimum(c.Number(0)); }},
            {ID_DISTRIBUTION_MOSTLIKELY, kPut, 1, 1,
             [](auto& o, auto& c) { o.distribution_->PutMostLikely(c.Number(0)); }},
            {ID_DISTRIBUTION_MAXIMUM, kPut, 1, 1,
             [](auto& o, auto& c) { o.distribution_->PutMaximum(c.Number(0)); }},
            {ID_DISTRIBUTION_VALUE, kGet, 0, 0,
             [](auto& o, auto& c) { c.Answer(o.distribution_->Value()); }},
        };
        RunMember<DistributionObject>(kMembers, *this, id, kinds, call);
    }

    const std::shared_ptr<host::Distribution> distribution_;
};

class MemberObject final : public PlanPart {
 public:
    MemberObject(OfferedPlan& plan, const OfferedPlan::Key& key, host::MemberPtr member)
        : PlanPart(plan, key), member_(std::move(member)) {}

 private:
    void Run(DISPID id, WORD kinds, Invocation& call) override {
        static constexpr Member<MemberObject> kMembers[] = {
            {ID_MEMBER_SAMPLEDVALUE, kGet, 0, 0,
             [](auto& o, auto& c) { c.Answer(o.member_->SampledValue()); }},
            {ID_MEMBER_VALUE, kPut, 1, 1,
             [](auto& o, auto& c) { o.member_->PutValue(c.Number(0)); }},
            {ID_MEMBER_GROUP, kGet, 0, 0,
             [](auto& o, auto& c) { c.Answer(OfferGroup(o.Owner(), o.member_->Group())); }},
            {ID_MEMBER_DISTRIBUTION, kCall, 1, 1,
             [](auto& o, auto& c) { c.Answer(o.Distribution(c.Truth(0))); }},
        };
        RunMember<MemberObject>(kMembers, *this, id, kinds, call);
    }

    Object Distribution(bool create) const {
        const auto distribution = member_->Distribution(create);
        if (!distribution) return nullptr;
        return Owner().Offer<DistributionObject>(KeyOf(DIID__Distribution, distribution),
                                                 distribution);
    }

    const host::MemberPtr member_;
};

class MembersObject final : public PlanPart {
 public:
    MembersObject(OfferedPlan& plan, const OfferedPlan::Key& key,
                  std::shared_ptr<host::MemberCollection> members)
        : PlanPart(plan, key), members_(std::move(members)) {}

 private:
    void Run(DISPID id, WORD kinds, Invocation& call) override {
        static constexpr Member<MembersObject> kMembers[] = {
            {ID_DEFAULT, kGet, 1, 1,
             [](auto& o, auto& c) {
                 c.Answer(o.Give(c.IsText(0) ? o.members_->Item(c.Text(0))
                                             : o.members_->Item(c.Whole(0))));
             }},
            {ID_COLLECTION_COUNT, kGet, 0, 0,
             [](auto& o, auto& c) {
                 c.Answer(static_cast<std::int32_t>(o.members_->Enumerate().size()));
             }},
            {ID_NEWENUM, kGet | kCall, 0, 0, [](auto& o, auto& c) { c.AnswerEnumerator(o.All()); }},
            {ID_COLLECTION_ADD, kCall, 1, 1,
             [](auto& o, auto& c) { c.Answer(o.Give(o.members_->Add(c.Text(0)))); }},
        };
        RunMember<MembersObject>(kMembers, *this, id, kinds, call);
    }

    Object Give(const host::MemberPtr& member) const {
        if (!member) return nullptr;
        return Owner().Offer<MemberObject>(KeyOf(DIID__Member, member), member);
    }
    std::vector<Object> All() const {
        std::vector<Object> objects;
        for (const auto& member : members_->Enumerate()) objects.push_back(Give(member));
        return objects;
    }

    const std::shared_ptr<host::MemberCollection> members_;
};

class GroupObject final : public PlanPart {
 public:
    GroupObject(OfferedPlan& plan, const OfferedPlan::Key& key, host::GroupPtr group)
        : PlanPart(plan, key), group_(std::move(group)) {}

 private:
    void Run(DISPID id, WORD kinds, Invocation& call) override {
        static constexpr Member<GroupObject> kMembers[] = {
            {ID_GROUP_NAME, kGet, 0, 0, [](auto& o, auto& c) { c.Answer(o.group_->Name()); }},
            {ID_GROUP_DESCRIPTION, kPut, 1, 1,
             [](auto& o, auto& c) { o.group_->PutDescription(c.Text(0)); }},
            {ID_GROUP_FLAGGED, kPut, 1, 1,
             [](auto& o, auto& c) { o.group_->PutFlagged(c.Truth(0)); }},
            {ID_GROUP_MEMBERS, kGet, 0, 0, [](auto& o, auto& c) { c.Answer(o.Members()); }},
        };
        RunMember<GroupObject>(kMembers, *this, id, kinds, call);
    }

    Object Members() const {
        const auto members = group_->Members();
        return Owner().Offer<MembersObject>(KeyOf(DIID__Members, members), members);
    }

    const host::GroupPtr group_;
};

class GroupsObject final : public PlanPart {
 public:
    using PlanPart::PlanPart;

 private:
    void Run(DISPID id, WORD kinds, Invocation& call) override {
        static constexpr Member<GroupsObject> kMembers[] = {
            {ID_DEFAULT, kGet, 1, 1, [](auto& o, auto& c) { c.Answer(o.Item(c)); }},
            {ID_COLLECTION_COUNT, kGet, 0, 0,
             [](auto& o, auto& c) {
                 c.Answer(static_cast<std::int32_t>(o.Groups().Enumerate().size()));
             }},
            {ID_NEWENUM, kGet | kCall, 0, 0, [](auto& o, auto& c) { c.AnswerEnumerator(o.All()); }},
            {ID_COLLECTION_ADD, kCall, 1, 1,
             [](auto& o, auto& c) { c.Answer(OfferGroup(o.Owner(), o.Groups().Add(c.Text(0)))); }},
            {ID_COLLECTION_REMOVE, kCall, 1, 1,
             [](auto& o, auto& c) { o.Groups().Remove(c.Text(0)); }},
        };
        RunMember<GroupsObject>(kMembers, *this, id, kinds, call);
    }

    HostGroupCollection& Groups() const { return Plan().GroupList(); }
    Object Item(const Invocation& call) const {
        if (call.IsText(0)) return OfferGroup(Owner(), Groups().Item(call.Text(0)));
        const auto groups = Groups().Enumerate();
        const auto index = static_cast<std::size_t>(call.Whole(0)) - 1;  // 0 becomes the largest
        return index < groups.size() ? OfferGroup(Owner(), groups[index]) : nullptr;
    }
    std::vector<Object> All() const {
        std::vector<Object> objects;
        for (const auto& group : Groups().Enumerate())
            objects.push_back(OfferGroup(Owner(), group));
        return objects;
    }
};

}  // namespace

Object OfferGroups(OfferedPlan& plan) { return plan.Offer<GroupsObject>({&DIID__Groups, 0}); }

Object OfferGroup(OfferedPlan& plan, const host::GroupPtr& group) {
    if (!group) return nullptr;
    return plan.Offer<GroupObject>(KeyOf(DIID__Group, group), group);
}

}  // namespace refhost::automation
