#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "base/Errors.h"
#include "host/HostModel.h"

namespace kestrel::test {

/// Every host call in order, named "Type.Member" ("Task.PutDuration" for a put).
class CallLog {
 public:
    std::vector<std::string> calls;
    /// Members whose every call fails.
    std::set<std::string> failing;

    /// Makes the n-th call from now (from 1) fail with HostError, once.
    void FailCall(std::size_t n) { failAt_ = calls.size() + n; }

    std::size_t Count(const std::string& member) const {
        return static_cast<std::size_t>(std::count(calls.begin(), calls.end(), member));
    }

    /// Notes a call; for the fakes themselves.
    void Note(const char* member) {
        calls.emplace_back(member);
        if (calls.size() == failAt_ || failing.contains(member))
            throw HostError(std::string("the host refused ") + member);
    }
    /// The same for a call that reads or writes `value` and does nothing else.
    template <class T>
    T& Noted(const char* member, T& value) {
        Note(member);
        return value;
    }

 private:
    std::size_t failAt_ = 0;
};

/// The text under the name; empty when absent.
inline std::string TextUnder(const std::map<std::string, std::string>& texts,
                             const std::string& name) {
    const auto found = texts.find(name);
    return found == texts.end() ? std::string() : found->second;
}

class FakeCostItem : public host::CostItem {
 public:
    FakeCostItem(CallLog& log, double theCost) : cost(theCost), log_(log) {}

    double cost;

    double Cost() override { return log_.Noted("CostItem.Cost", cost); }
    void PutCost(double value) override { log_.Noted("CostItem.PutCost", cost) = value; }

 private:
    CallLog& log_;
};

class FakeUserValues : public host::UserValues {
 public:
    using Texts = std::map<std::string, std::string>;
    FakeUserValues(CallLog& log, Texts& texts) : log_(log), texts_(texts) {}

    std::string Item(const std::string& name) override {
        return TextUnder(log_.Noted("UserValues.Item", texts_), name);
    }
    void PutItem(const std::string& name, const std::string& text) override {
        log_.Noted("UserValues.PutItem", texts_)[name] = text;
    }

 private:
    CallLog& log_;
    Texts& texts_;
};

class FakeTask : public host::Task {
 public:
    FakeTask(CallLog& log, std::string theID, std::string theName)
        : id(std::move(theID)), name(std::move(theName)), log_(log) {}

    std::string id;
    std::string name;
    std::int32_t duration = 100;
    std::int16_t type = host::kOrdinaryTask;
    std::vector<std::shared_ptr<FakeTask>> children;
    std::map<std::string, std::string> texts;
    std::vector<std::shared_ptr<FakeCostItem>> costItems;

    FakeCostItem& AddCost(double cost) {
        return *costItems.emplace_back(std::make_shared<FakeCostItem>(log_, cost));
    }

    std::string ID() override { return log_.Noted("Task.ID", id); }
    std::string Name() override { return log_.Noted("Task.Name", name); }
    std::int32_t Duration() override { return log_.Noted("Task.Duration", duration); }
    void PutDuration(std::int32_t value) override {
        log_.Noted("Task.PutDuration", duration) = value;
    }
    std::int16_t TaskType() override { return log_.Noted("Task.TaskType", type); }
    std::vector<host::TaskPtr> ChildTasks() override {
        log_.Note("Task.ChildTasks");
        return {children.begin(), children.end()};
    }
    std::shared_ptr<host::UserValues> UserValues() override {
        return std::make_shared<FakeUserValues>(log_, log_.Noted("Task.UserValues", texts));
    }
    std::vector<std::shared_ptr<host::CostItem>> CostItems() override {
        log_.Note("Task.CostItems");
        return {costItems.begin(), costItems.end()};
    }

 private:
    CallLog& log_;
};

}  // namespace kestrel::test
