#include <algorithm>

#include "fuzz/Fuzz.h"
#include "store/TaskField.h"
#include "support/FakeHost.h"

/// The text of a task's field: the first byte is the number of factors, the second the number of
/// one that is deleted, the rest the text.
namespace kestrel::fuzz {
namespace {

std::string Joined(const RiskIDs& ids) {
    std::string list;
    for (const std::int32_t id : ids) list += (list.empty() ? "" : ",") + std::to_string(id);
    return list;
}

struct Groups {
    RiskIDs series, parallel;
    bool operator==(const Groups&) const = default;
};

class Field {
 public:
    Field(int factors, std::string_view text)
        : factors_(factors), task_(*host_.AddTask("1", "Dig", std::string(text))) {
        globals_.application = host_.application;
        for (int i = 0; i < factors; ++i)
            globals_.RiskFactors.push_back(std::make_shared<clsRiskFactor>());
    }

    Groups Read() {
        Groups groups;
        GetTaskRiskFactors(globals_, task_, groups.series, true);
        GetTaskRiskFactors(globals_, task_, groups.parallel, false);
        return groups;
    }
    void CheckReading() {
        RiskIDs all;
        GetAllTaskRiskFactors(globals_, task_, all);
        const Groups groups = Read();
        for (const RiskIDs* ids : {&groups.series, &groups.parallel}) {
            CheckEachOnce(*ids);
            for (const std::int32_t id : *ids) {
                Require(id >= 1 && id <= factors_, "an ID read is a factor's");
                Require(std::ranges::count(all, id) == 1, "all IDs hold those of each group");
            }
        }
        CheckEachOnce(all);
    }
    /// Replaces the text by that of the groups, which then reads as them without a word.
    void Write(const Groups& groups) {
        std::string parallel = Joined(groups.parallel), series = Joined(groups.series);
        task_.texts[kRiskFactorsField] = MakeRiskFieldText(parallel, series);
        desktop_.messages.clear();
        Require(Read() == groups && desktop_.messages.empty(), "a text made reads the same");
    }
    void Delete(std::int32_t id) { RenumberTaskRiskFactors(globals_, {id}); }

 private:
    static void CheckEachOnce(RiskIDs ids) {
        std::ranges::sort(ids);
        Require(std::ranges::adjacent_find(ids) == ids.end(), "an ID is read once");
    }

    int factors_;
    MemoryDesktop desktop_;
    test::FakeHost host_;
    test::FakeTask& task_;
    modGlobals globals_{desktop_};
};

RiskIDs Without(const RiskIDs& ids, std::int32_t deleted) {
    RiskIDs rest;
    for (const std::int32_t id : ids)
        if (id != deleted) rest.push_back(id > deleted ? id - 1 : id);
    return rest;
}

void CheckText(int factors, std::int32_t deleted, std::string_view text) {
    Field asTyped(factors, text);
    asTyped.CheckReading();
    const Groups groups = asTyped.Read();
    asTyped.Delete(deleted);
    asTyped.CheckReading();

    Field tidy(factors, {});
    tidy.Write(groups);
    tidy.Delete(deleted);
    // Beyond one digit a deletion may take a piece of another number along (RiskList.h).
    if (factors > 9) return;
    Require(
        tidy.Read() == Groups{Without(groups.series, deleted), Without(groups.parallel, deleted)},
        "a deletion takes its factor and closes up");
}

void CheckList(std::int32_t id, std::string_view list) {
    const std::string rest = RemoveRiskFromList(list, id);
    Require(rest.size() < list.size() || list.empty(), "what is removed is gone");
    for (const RiskListItem& item : RiskListItems(list))
        Require(!item.text.empty() && item.text.data() >= list.data(), "an item is a piece");
}

}  // namespace
}  // namespace kestrel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    kestrel::fuzz::Input input(data, size);
    const int factors = input.Below(13);
    const int deleted = 1 + input.Below(12);
    const std::string_view text = input.Rest();
    kestrel::fuzz::CheckText(factors, deleted, text);
    kestrel::fuzz::CheckList(deleted, text);
    return 0;
}
