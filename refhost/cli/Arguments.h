#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace refhost {

/// A command line that cannot be understood: what() says why. The program exits with 2.
class UsageError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

/// What a command accepts.
struct ArgumentRules {
    std::vector<std::string> positional;  ///< names as usage texts show them; "[NAME]" optional
    std::vector<std::string> options;     ///< that take a value: "--json", "-o"
    std::vector<std::string> switches;    ///< that take none: "--yes"
};

/// The words after a command, sorted out. An option may be written "--seed 7" or "--seed=7".
class Arguments {
 public:
    /// Raises UsageError for a word that the rules do not know, a missing value or word, and an
    /// option given twice.
    Arguments(const std::vector<std::string>& words, const ArgumentRules& rules);

    const std::string& Positional(std::size_t index) const { return positional_.at(index); }
    std::size_t PositionalCount() const { return positional_.size(); }
    bool Has(const std::string& option) const { return options_.count(option) > 0; }
    /// The option's value; nothing when it was not given.
    std::optional<std::string> Option(const std::string& option) const;
    /// The same as a whole number within the bounds; UsageError otherwise.
    std::optional<std::uint64_t> Number(const std::string& option, std::uint64_t lowest,
                                        std::uint64_t highest) const;

 private:
    std::vector<std::string> positional_;
    std::map<std::string, std::string> options_;
};

}  // namespace refhost
