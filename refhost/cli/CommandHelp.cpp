#include "refhost/cli/CommandHelp.h"

#include <algorithm>

namespace refhost {
namespace {

std::string Shown(const OptionRule& option) {
    return std::string(option.name) + (*option.value ? " " : "") + option.value;
}

/// Later lines of the help text stand below its first.
std::string Indented(std::string text, std::size_t width) {
    const std::string margin(width, ' ');
    for (std::size_t at = 0; (at = text.find('\n', at)) != std::string::npos; ++at)
        text.insert(at + 1, margin);
    return text;
}

}  // namespace

std::string UsageLine(const Command& command) {
    std::string line = std::string("usage: kestrel ") + command.name;
    for (const WordRule& word : command.rules.words)
        line += word.required ? std::string(" ") + word.name : std::string(" [") + word.name + "]";
    for (const OptionRule& option : command.rules.options)
        line += option.required ? " " + Shown(option) : " [" + Shown(option) + "]";
    return line + "\n";
}

std::string CommandHelp(const Command& command) {
    std::string text = UsageLine(command) + "\n" + command.summary + "\n\n" + command.details;
    std::size_t width = 0;
    for (const OptionRule& option : command.rules.options)
        width = std::max(width, Shown(option).size());
    if (width > 0) text += "\n";
    for (const OptionRule& option : command.rules.options) {
        std::string shown = "  " + Shown(option);
        shown.resize(width + 4, ' ');
        text += shown + Indented(option.help, width + 4) + "\n";
    }
    return text;
}

std::string ProgramHelp() {
    std::string text =
        "usage: kestrel COMMAND PLAN ...\n\n"
        "Risk factors for project plans: analyses a plan file (*.kplan) or a project file in the\n"
        "common XML format, and keeps its risk factors and their assignments.\n\n";
    for (const Command& command : Commands()) {
        std::string name = command.name;
        name.resize(12, ' ');
        text += "  " + name + command.summary + "\n";
    }
    return text +
           "\n'kestrel COMMAND --help' tells more, 'kestrel --version' which program this is.\n"
           "- is standard input where a file is read and standard output where one is written;\n"
           "after -- no word is an option. A plan is only changed where -o or --save says so.\n"
           "Exit code: 0 done, 1 could not (one sentence on standard error, no file changed),\n"
           "2 wrong usage.\n";
}

}  // namespace refhost
