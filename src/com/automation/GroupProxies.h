#pragma once

#include "com/automation/Dispatch.h"
#include "host/HostModel.h"

/// Groups of sampled variables, behind Automation. Nothing is kept: groups are looked up while an
/// analysis is prepared, and in between the host may have put others in their place.
namespace kestrel::com {

class DistributionProxy : public host::Distribution {
 public:
    explicit DistributionProxy(Dispatch distribution) : points_(std::move(distribution)) {}
    void PutShape(std::int16_t shape) override {
        points_.Put(HostMember::DistributionShape, shape);
    }
    void PutMinimum(double value) override { points_.Put(HostMember::DistributionMinimum, value); }
    void PutMostLikely(double value) override {
        points_.Put(HostMember::DistributionMostLikely, value);
    }
    void PutMaximum(double value) override { points_.Put(HostMember::DistributionMaximum, value); }
    double Value() override { return points_.Number(HostMember::DistributionValue); }

 private:
    Dispatch points_;
};

class MemberProxy : public host::Member {
 public:
    explicit MemberProxy(Dispatch member) : member_(std::move(member)) {}
    void PutValue(double value) override { member_.Put(HostMember::MemberValue, value); }
    double SampledValue() override { return member_.Number(HostMember::MemberSampledValue); }
    host::GroupPtr Group() override;
    std::shared_ptr<host::Distribution> Distribution(bool create) override;

 private:
    Dispatch member_;
};

class MembersProxy : public host::MemberCollection {
 public:
    explicit MembersProxy(Dispatch members) : members_(std::move(members)) {}
    host::MemberPtr Item(const std::string& name) override;
    host::MemberPtr Item(std::int32_t position) override;
    host::MemberPtr Add(const std::string& name) override;
    std::vector<host::MemberPtr> Enumerate() override;

 private:
    Dispatch members_;
};

class GroupProxy : public host::Group {
 public:
    explicit GroupProxy(Dispatch group) : group_(std::move(group)) {}
    std::string Name() override { return group_.Text(HostMember::GroupName); }
    void PutDescription(const std::string& text) override;
    void PutFlagged(bool flagged) override { group_.Put(HostMember::GroupFlagged, flagged); }
    std::shared_ptr<host::MemberCollection> Members() override;

 private:
    Dispatch group_;
};

class GroupsProxy : public host::GroupCollection {
 public:
    explicit GroupsProxy(Dispatch groups) : groups_(std::move(groups)) {}
    host::GroupPtr Item(const std::string& name) override;
    host::GroupPtr Add(const std::string& name) override;
    void Remove(const std::string& name) override;

 private:
    Dispatch groups_;
};

}  // namespace kestrel::com
