#include "refhost/engine/HostGroups.h"

#include <algorithm>

#include "util/Errors.h"

namespace refhost {

void HostDistribution::PutShape(std::int16_t shape) {
    if (shape != 0)
        throw kestrel::HostError("Distribution shape " + std::to_string(shape) +
                                 " is not known; use 0, the triangular one.");
}

host::GroupPtr HostMember::Group() {
    const auto groups = groups_.lock();
    return groups ? groups->Item(name_) : nullptr;
}

std::shared_ptr<host::Distribution> HostMember::Distribution(bool create) {
    if (!distribution_ && create) distribution_ = std::make_shared<HostDistribution>();
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

host::GroupPtr HostGroupCollection::Item(const std::string& name) {
    const auto found = std::find_if(groups_.begin(), groups_.end(),
                                    [&](const auto& group) { return group->Name() == name; });
    return found == groups_.end() ? nullptr : *found;
}

host::GroupPtr HostGroupCollection::Add(const std::string& name) {
    if (Item(name)) throw kestrel::HostError("The plan already has a group '" + name + "'.");
    groups_.push_back(std::make_shared<HostGroup>(weak_from_this(), name));
    return groups_.back();
}

void HostGroupCollection::Remove(const std::string& name) {
    const auto removed =
        std::erase_if(groups_, [&](const auto& group) { return group->Name() == name; });
    if (removed == 0) throw kestrel::HostError("The plan has no group '" + name + "'.");
}

void HostGroupCollection::Sample(RandomStream& stream) {
    for (const auto& group : groups_)
        for (const auto& member : group->AllMembers().All()) member->Sample(stream);
}

}  // namespace refhost
