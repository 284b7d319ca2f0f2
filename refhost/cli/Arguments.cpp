#include "refhost/cli/Arguments.h"

#include <algorithm>
#include <charconv>

namespace refhost {
namespace {

const OptionRule& RuleOf(const std::string& name, const ArgumentRules& rules) {
    const auto found = std::find_if(rules.options.begin(), rules.options.end(),
                                    [&](const OptionRule& rule) { return name == rule.name; });
    if (found == rules.options.end()) throw UsageError("there is no option '" + name + "'");
    return *found;
}

}  // namespace

Arguments::Arguments(const std::vector<std::string>& words, const ArgumentRules& rules) {
    std::vector<std::string> positional;
    bool mayBeOption = true;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        if (mayBeOption && word == "--") {
            mayBeOption = false;
            continue;
        }
        if (!mayBeOption || word.size() < 2 || word[0] != '-') {  // "-" alone is a file name
            positional.push_back(word);
            continue;
        }
        const std::size_t equals = word.find('=');
        const std::string name = word.substr(0, equals);
        const bool isSwitch = RuleOf(name, rules).use == Use::Switch;
        std::string value;
        if (equals != std::string::npos) {
            if (isSwitch) throw UsageError("option '" + name + "' takes no value");
            value = word.substr(equals + 1);
        } else if (!isSwitch) {
            if (i + 1 == words.size()) throw UsageError("option '" + name + "' needs a value");
            value = words[++i];
        }
        if (!values_.emplace(name, value).second)
            throw UsageError("option '" + name + "' is given twice");
    }
    if (positional.size() > rules.words.size())
        throw UsageError("'" + positional[rules.words.size()] + "' is one word too many");
    if (positional.size() < rules.words.size() && rules.words[positional.size()].required)
        throw UsageError(std::string(rules.words[positional.size()].name) + " is missing");
    for (std::size_t i = 0; i < positional.size(); ++i)
        values_.emplace(rules.words[i].name, positional[i]);
    for (const OptionRule& rule : rules.options)
        if (rule.required && !Has(rule.name))
            throw UsageError(std::string(rule.name) + " " + rule.value + " is missing");
}

std::optional<std::string> Arguments::Option(const std::string& name) const {
    const auto found = values_.find(name);
    if (found == values_.end()) return std::nullopt;
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
