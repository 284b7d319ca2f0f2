#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/HostModel.h"
#include "refhost/engine/TriangularColumns.h"

namespace refhost {

namespace host = kestrel::host;

class HostGroupCollection;

/// A three-point distribution with the triangular shape; its value is the most likely point.
class HostDistribution : public host::Distribution {
 public:
    explicit HostDistribution(std::weak_ptr<HostGroupCollection> groups)
        : groups_(std::move(groups)) {}

    void PutShape(std::int16_t shape) override;
    void PutMinimum(double value) override { Set(minimum_, value); }
    void PutMostLikely(double value) override { Set(mostLikely_, value); }
    void PutMaximum(double value) override { Set(maximum_, value); }
    double Value() override { return mostLikely_; }

    Triangular Shape() const { return {minimum_, mostLikely_, maximum_}; }

 private:
    void Set(double& point, double value);

    std::weak_ptr<HostGroupCollection> groups_;
    double minimum_ = 0;
    double mostLikely_ = 0;
    double maximum_ = 0;
};

class HostMember : public host::Member {
 public:
    HostMember(std::weak_ptr<HostGroupCollection> groups, std::string name)
        : groups_(std::move(groups)), name_(std::move(name)) {}

    void PutValue(double value) override { value_ = value; }
    double SampledValue() override { return sampled_; }
    host::GroupPtr Group() override;
    std::shared_ptr<host::Distribution> Distribution(bool create) override;

    const std::string& Name() const { return name_; }
    /// What its values are drawn from, or nullptr.
    const HostDistribution* Drawn() const { return distribution_.get(); }
    /// The value drawn for the current iteration.
    void PutSample(double value) { sampled_ = value; }
    double Sample() const { return sampled_; }

 private:
    std::weak_ptr<HostGroupCollection> groups_;
    std::string name_;
    double value_ = 0;
    double sampled_ = 0;
    std::shared_ptr<HostDistribution> distribution_;
};

class HostMemberCollection : public host::MemberCollection {
 public:
    explicit HostMemberCollection(std::weak_ptr<HostGroupCollection> groups)
        : groups_(std::move(groups)) {}

    host::MemberPtr Item(const std::string& name) override;
    host::MemberPtr Item(std::int32_t position) override;
    host::MemberPtr Add(const std::string& name) override;
    std::vector<host::MemberPtr> Enumerate() override;

    const std::vector<std::shared_ptr<HostMember>>& All() const { return members_; }

 private:
    std::weak_ptr<HostGroupCollection> groups_;
    std::vector<std::shared_ptr<HostMember>> members_;  ///< in order of creation
    std::map<std::string, std::size_t> byName_;
};

class HostGroup : public host::Group {
 public:
    HostGroup(const std::weak_ptr<HostGroupCollection>& groups, std::string name)
        : name_(std::move(name)), members_(std::make_shared<HostMemberCollection>(groups)) {}

    std::string Name() override { return name_; }
    void PutDescription(const std::string& text) override { description_ = text; }
    void PutFlagged(bool flagged) override { flagged_ = flagged; }
    std::shared_ptr<host::MemberCollection> Members() override { return members_; }

    const HostMemberCollection& AllMembers() const { return *members_; }

 private:
    std::string name_;
    std::string description_;
    bool flagged_ = false;
    std::shared_ptr<HostMemberCollection> members_;
};

/// The plan's groups, in order of creation.
class HostGroupCollection : public host::GroupCollection,
                            public std::enable_shared_from_this<HostGroupCollection> {
 public:
    host::GroupPtr Item(const std::string& name) override { return Find(name); }
    std::shared_ptr<HostGroup> Find(const std::string& name) const;
    host::GroupPtr Add(const std::string& name) override;
    void Remove(const std::string& name) override;
    /// In order of creation.
    std::vector<host::GroupPtr> Enumerate() const;

    /// Draws every member with a distribution: groups in order of creation, members likewise.
    void Sample(RandomStream& stream);

    /// A distribution has come or changed.
    void NoteDistributions() { listed_ = false; }

 private:
    void ListMembers();

    std::map<std::uint64_t, std::shared_ptr<HostGroup>> groups_;  ///< by order of creation
    std::unordered_map<std::string, std::uint64_t> orderByName_;
    std::uint64_t created_ = 0;

    /// The members to draw, beside their shapes and the values drawn; made anew where not listed_.
    bool listed_ = false;
    std::vector<HostMember*> members_;
    TriangularColumns shapes_;
    std::vector<double> drawn_;
};

}  // namespace refhost
