#include "support/FakeHost.h"

namespace kestrel::test {
namespace {

class FakeMembers : public host::MemberCollection {
 public:
    FakeMembers(FakePlan& plan, FakeGroup& group) : plan_(plan), group_(group) {}

    host::MemberPtr Item(const std::string& name) override {
        plan_.log.Note("MemberCollection.Item");
        return group_.Find(name);
    }
    host::MemberPtr Item(std::int32_t position) override {
        plan_.log.Note("MemberCollection.Item");
        return AtPosition(group_.members, position);
    }
    host::MemberPtr Add(const std::string& name) override {
        plan_.log.Note("MemberCollection.Add");
        group_.members.push_back(std::make_shared<FakeMember>(plan_, name));
        return group_.members.back();
    }
    std::vector<host::MemberPtr> Enumerate() override {
        plan_.log.Note("MemberCollection.Enumerate");
        return {group_.members.begin(), group_.members.end()};
    }

 private:
    FakePlan& plan_;
    FakeGroup& group_;
};

}  // namespace

void FakeDistribution::PutShape(std::int16_t value) {
    log_.Note("Distribution.PutShape");
    shape = value;
}

void FakeDistribution::PutMinimum(double value) {
    log_.Note("Distribution.PutMinimum");
    minimum = value;
}

void FakeDistribution::PutMostLikely(double value) {
    log_.Note("Distribution.PutMostLikely");
    mostLikely = value;
}

void FakeDistribution::PutMaximum(double value) {
    log_.Note("Distribution.PutMaximum");
    maximum = value;
}

double FakeDistribution::Value() {
    log_.Note("Distribution.Value");
    return (minimum + mostLikely + maximum) / 3;
}

void FakeMember::PutValue(double newValue) {
    plan_.log.Note("Member.PutValue");
    value = newValue;
}

double FakeMember::SampledValue() {
    plan_.log.Note("Member.SampledValue");
    return sampled;
}

host::GroupPtr FakeMember::Group() {
    plan_.log.Note("Member.Group");
    return plan_.Find(name);
}

std::shared_ptr<host::Distribution> FakeMember::Distribution(bool create) {
    plan_.log.Note("Member.Distribution");
    if (!distribution && create) distribution = std::make_shared<FakeDistribution>(plan_.log);
    return distribution;
}

std::shared_ptr<FakeMember> FakeGroup::Find(const std::string& member) const {
    return FindByName(members, member);
}

std::string FakeGroup::Name() {
    plan_.log.Note("Group.Name");
    return name;
}

void FakeGroup::PutDescription(const std::string& text) {
    plan_.log.Note("Group.PutDescription");
    description = text;
}

void FakeGroup::PutFlagged(bool value) {
    plan_.log.Note("Group.PutFlagged");
    flagged = value;
}

std::shared_ptr<host::MemberCollection> FakeGroup::Members() {
    plan_.log.Note("Group.Members");
    return std::make_shared<FakeMembers>(plan_, *this);
}

}  // namespace kestrel::test
