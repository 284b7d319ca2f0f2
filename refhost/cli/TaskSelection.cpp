#include "refhost/cli/TaskSelection.h"

#include <optional>
#include <set>
#include <utility>

#include "base/Errors.h"
#include "base/Text.h"
#include "util/modToolBox.h"

namespace refhost {
namespace {

/// First and last position of the task or the range; nothing when it names neither.
std::optional<std::pair<std::size_t, std::size_t>> RangeOf(HostPlan& plan,
                                                           const std::string& word) {
    if (const auto task = plan.Find(word)) return std::pair{*task, *task};
    const auto trimmed = [](std::string_view text) {
        return std::string(kestrel::Trimmed(text, " "));
    };
    for (std::size_t dash = word.find('-'); dash != word.npos; dash = word.find('-', dash + 1)) {
        const auto from = plan.Find(trimmed(word.substr(0, dash)));
        const auto to = plan.Find(trimmed(word.substr(dash + 1)));
        if (!from || !to) continue;
        if (*from > *to)
            throw kestrel::DataError("In '" + word +
                                     "' the second task stands before the first; "
                                     "name them in the order of the plan.");
        return std::pair{*from, *to};
    }
    return std::nullopt;
}

void AddWithAllBelow(const LivePlan& plan, std::size_t task, std::set<std::size_t>& selected) {
    selected.insert(task);
    for (const std::size_t child : plan.Children(task)) AddWithAllBelow(plan, child, selected);
}

}  // namespace

std::vector<std::size_t> SelectedTasks(HostPlan& plan, const std::string& words) {
    std::set<std::size_t> selected;
    const auto add = [&](const std::string& word) {
        const auto range = RangeOf(plan, word);
        if (!range) return false;
        for (std::size_t task = range->first; task <= range->second; ++task)
            AddWithAllBelow(plan, task, selected);
        return true;
    };
    if (!add(words))
        for (int piece = 1; piece <= kestrel::CountListItems(words, ","); ++piece) {
            const std::string item = kestrel::GetListItem(words, piece, ",");
            const std::string word(kestrel::Trimmed(item, " "));
            if (!add(word))
                throw kestrel::DataError("the plan has no task '" + word +
                                         "'; name a task by its ID.");
        }
    return {selected.begin(), selected.end()};
}

}  // namespace refhost
