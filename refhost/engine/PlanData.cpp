#include "refhost/engine/PlanData.h"

#include <algorithm>

namespace refhost {
namespace {

auto FindName(auto& texts, const std::string& name) {
    return std::find_if(texts.begin(), texts.end(),
                        [&name](const auto& entry) { return entry.first == name; });
}

}  // namespace

Calendar Calendar::Standard() {
    Calendar calendar;
    for (std::size_t day = 0; day < 5; ++day)
        calendar.week[day] = {{8 * 60, 12 * 60}, {13 * 60, 17 * 60}};
    return calendar;
}

const Shifts& Calendar::On(std::int64_t day) const {
    const auto exception = exceptions.find(static_cast<std::int32_t>(day));
    if (exception != exceptions.end()) return exception->second;
    // Day 0, 1899-12-30, was a Saturday: number 5 where Monday is 0.
    return week[static_cast<std::size_t>(((day + 5) % 7 + 7) % 7)];
}

const std::string* FindText(const NamedTexts& texts, const std::string& name) {
    const auto found = FindName(texts, name);
    return found == texts.end() ? nullptr : &found->second;
}

bool SetNamedText(NamedTexts& texts, const std::string& name, const std::string& text) {
    const auto found = FindName(texts, name);
    if (found == texts.end()) {
        if (text.empty()) return false;
        texts.emplace_back(name, text);
        return true;
    }
    if (text.empty()) {
        texts.erase(found);
        return true;
    }
    if (found->second == text) return false;
    found->second = text;
    return true;
}

}  // namespace refhost
