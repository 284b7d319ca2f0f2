#include "com/automation/GroupProxies.h"

#include "com/automation/HostList.h"

namespace kestrel::com {

using win32::Bstr;

namespace {

constexpr ListKind kMembers{HostMember::Members_NewEnum, HostMember::MembersCount,
                            HostMember::MembersItem};

}  // namespace

host::GroupPtr MemberProxy::Group() {
    return Wrap<GroupProxy>(member_.Child(HostMember::MemberGroup));
}

std::shared_ptr<host::Distribution> MemberProxy::Distribution(bool create) {
    return Wrap<DistributionProxy>(create ? member_.Needed(HostMember::MemberDistribution, create)
                                          : member_.Child(HostMember::MemberDistribution, create));
}

host::MemberPtr MembersProxy::Item(const std::string& name) {
    return Wrap<MemberProxy>(members_.Find(HostMember::MembersItem, Bstr(name)));
}

host::MemberPtr MembersProxy::Item(std::int32_t position) {
    return Wrap<MemberProxy>(members_.Find(HostMember::MembersItem, position));
}

host::MemberPtr MembersProxy::Add(const std::string& name) {
    return Wrap<MemberProxy>(members_.Needed(HostMember::MembersAdd, Bstr(name)));
}

std::vector<host::MemberPtr> MembersProxy::Enumerate() {
    return WrapAll<host::Member, MemberProxy>(members_, kMembers);
}

void GroupProxy::PutDescription(const std::string& text) {
    group_.Put(HostMember::GroupDescription, Bstr(text));
}

std::shared_ptr<host::MemberCollection> GroupProxy::Members() {
    return Wrap<MembersProxy>(group_.Needed(HostMember::GroupMembers));
}

host::GroupPtr GroupsProxy::Item(const std::string& name) {
    return Wrap<GroupProxy>(groups_.Find(HostMember::GroupsItem, Bstr(name)));
}

host::GroupPtr GroupsProxy::Add(const std::string& name) {
    return Wrap<GroupProxy>(groups_.Needed(HostMember::GroupsAdd, Bstr(name)));
}

void GroupsProxy::Remove(const std::string& name) {
    groups_.Run(HostMember::GroupsRemove, Bstr(name));
}

}  // namespace kestrel::com
