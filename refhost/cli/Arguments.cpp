#include "refhost/cli/Arguments.h"

#include <algorithm>
#include <charconv>

namespace refhost {
namespace {

bool Contains(const std::vector<std::string>& list, const std::string& word) {
    return std::find(list.begin(), list.end(), word) != list.end();
}

}  // namespace

Arguments::Arguments(const std::vector<std::string>& words, const ArgumentRules& rules) {
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        if (word.size() < 2 || word[0] != '-') {  // "-" alone is a file name
            positional_.push_back(word);
            continue;
        }
        const std::size_t equals = word.find('=');
        const std::string name = word.substr(0, equals);
        const bool isSwitch = Contains(rules.switches, name);
        if (!isSwitch && !Contains(rules.options, name))
            throw UsageError("there is no option '" + name + "'");
        std::string value;
        if (equals != std::string::npos) {
            if (isSwitch) throw UsageError("option '" + name + "' takes no value");
            value = word.substr(equals + 1);
        } else if (!isSwitch) {
            if (i + 1 == words.size()) throw UsageError("option '" + name + "' needs a value");
            value = words[++i];
        }
        if (!options_.emplace(name, value).second)
            throw UsageError("option '" + name + "' is given twice");
    }
    if (positional_.size() < rules.positional.size() &&
        rules.positional[positional_.size()].front() != '[')
        throw UsageError(rules.positional[positional_.size()] + " is missing");
    if (positional_.size() > rules.positional.size())
        throw UsageError("'" + positional_[rules.positional.size()] + "' is one word too many");
}

std::optional<std::string> Arguments::Option(const std::string& option) const {
    const auto found = options_.find(option);
    if (found == options_.end()) return std::nullopt;
    return found->second;
}

std::optional<std::uint64_t> Arguments::Number(const std::string& option, std::uint64_t lowest,
                                               std::uint64_t highest) const {
    const auto text = Option(option);
    if (!text) return std::nullopt;
    std::uint64_t number = 0;
    const char* end = text->data() + text->size();
    const auto [stop, error] = std::from_chars(text->data(), end, number);
    if (error != std::errc() || stop != end || number < lowest || number > highest)
        throw UsageError("'" + *text + "' is no value for " + option +
                         "; give a whole number from " + std::to_string(lowest) + " to " +
                         std::to_string(highest));
    return number;
}

}  // namespace refhost
