#include "refhost/engine/HostGroups.h"

#include "base/Errors.h"
#include "refhost/engine/VectorClones.h"

namespace refhost {

void HostDistribution::PutShape(std::int16_t shape) {
    if (shape != 0)
        throw kestrel::HostError("Distribution shape " + std::to_string(shape) +
                                 " is not known; use 0, the triangular one.");
}

void HostDistribution::Set(double& point, double value) {
    point = value;
    if (const auto groups = groups_.lock()) groups->NoteDistributions();
}

host::GroupPtr HostMember::Group() {
    const auto groups = groups_.lock();
    return groups ? groups->Item(name_) : nullptr;
}

std::shared_ptr<host::Distribution> HostMember::Distribution(bool create) {
    if (!distribution_ && create) {
        distribution_ = std::make_shared<HostDistribution>(groups_);
        if (const auto groups = groups_.lock()) groups->NoteDistributions();
    }
    return distribution_;
}

host::MemberPtr HostMemberCollection::Item(const std::string& name) {
    const auto found = byName_.find(name);
    return found == byName_.end() ? nullptr : members_[found->second];
}

host::MemberPtr HostMemberCollection::Item(std::int32_t position) {
    const auto index = static_cast<std::size_t>(position) - 1;
    return position >= 1 && index < members_.size() ? members_[index] : nullptr;
}

host::MemberPtr HostMemberCollection::Add(const std::string& name) {
    if (!byName_.emplace(name, members_.size()).second)
        throw kestrel::HostError("The group already has a member '" + name + "'.");
    members_.push_back(std::make_shared<HostMember>(groups_, name));
    return members_.back();
}

std::vector<host::MemberPtr> HostMemberCollection::Enumerate() {
    return {members_.begin(), members_.end()};
}

std::shared_ptr<HostGroup> HostGroupCollection::Find(const std::string& name) const {
    const auto found = orderByName_.find(name);
    return found == orderByName_.end() ? nullptr : groups_.at(found->second);
}

host::GroupPtr HostGroupCollection::Add(const std::string& name) {
    if (Item(name)) throw kestrel::HostError("The plan already has a group '" + name + "'.");
    const auto group = std::make_shared<HostGroup>(weak_from_this(), name);
    groups_.emplace(++created_, group);
    orderByName_.emplace(name, created_);
    return group;
}

void HostGroupCollection::Remove(const std::string& name) {
    const auto found = orderByName_.find(name);
    if (found == orderByName_.end())
        throw kestrel::HostError("The plan has no group '" + name + "'.");
    groups_.erase(found->second);
    orderByName_.erase(found);
    listed_ = false;
}

std::vector<host::GroupPtr> HostGroupCollection::Enumerate() const {
    std::vector<host::GroupPtr> groups;
    groups.reserve(groups_.size());
    for (const auto& entry : groups_) groups.push_back(entry.second);
    return groups;
}

void HostGroupCollection::ListMembers() {
    members_.clear();
    shapes_ = {};
    for (const auto& entry : groups_)
        for (const auto& member : entry.second->AllMembers().All()) {
            if (!member->Drawn()) continue;
            members_.push_back(member.get());
            shapes_.Add(member->Drawn()->Shape());
        }
    drawn_.resize(members_.size());
    listed_ = true;
}

KESTREL_VECTOR_CLONES
void HostGroupCollection::Sample(RandomStream& stream) {
    if (!listed_) ListMembers();
    shapes_.Draw(stream, drawn_, [](double drawn) { return drawn; });
    for (std::size_t i = 0; i < members_.size(); ++i) members_[i]->PutSample(drawn_[i]);
}

}  // namespace refhost
