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

/// What a word of the command line is to the command.
enum class Use {
    Switch,  ///< an option without a value: "--yes"
    Value,   ///< a number, a name
    Input,   ///< a file that is read; "-" is standard input
    Output,  ///< a file that is written; "-" is standard output
    Plan,    ///< a plan: read where it is a word of its own; an option writes it, and may name the
             ///< plan that is read
};

/// A word that a command takes by its place; those that may be missing are the last.
struct WordRule {
    const char* name;  ///< as usage texts show it: "PLAN"
    Use use;
    bool required = true;
};

struct OptionRule {
    const char* name;   ///< "--json", "-o"
    const char* value;  ///< as usage texts show it: "FILE"; "" for a switch
    Use use;
    const char* help;  ///< its lines
    bool required = false;
};

/// What a command accepts.
struct ArgumentRules {
    std::vector<WordRule> words;
    std::vector<OptionRule> options;
};

/// The words after a command, sorted out. An option may be written "--seed 7" or "--seed=7";
/// after "--" no word is an option.
class Arguments {
 public:
    /// Raises UsageError for a word that the rules do not know, a missing value or word, and an
    /// option given twice.
    Arguments(const std::vector<std::string>& words, const ArgumentRules& rules);

    bool Has(const std::string& name) const { return values_.count(name) > 0; }
    /// The word or the option's value; nothing when it was not given.
    std::optional<std::string> Option(const std::string& name) const;
    /// The same of what is required.
    const std::string& Word(const std::string& name) const { return values_.at(name); }
    /// The same as a whole number within the bounds; UsageError otherwise.
    std::optional<std::uint64_t> Number(const std::string& option, std::uint64_t lowest,
                                        std::uint64_t highest) const;

 private:
    std::map<std::string, std::string> values_;  ///< by the names of the rules
};

}  // namespace refhost
