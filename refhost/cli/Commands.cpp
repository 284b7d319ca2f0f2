#include "refhost/cli/Commands.h"

#include <cstdio>
#include <new>

#include "refhost/cli/CommandHelp.h"

namespace refhost {
namespace {

int Fail(const std::string& message) {
    TellError("kestrel: " + message);
    return 1;
}

/// Runs `work`, which answers the exit code, and tells what it raises.
template <class Work>
int Guarded(Work&& work) {
    try {
        return work();
    } catch (const std::bad_alloc&) {
        std::fputs(
            "kestrel: There is not enough memory for this; close other programs, or take a "
            "smaller plan or fewer iterations.\n",
            stderr);
        return 1;
    } catch (const std::exception& error) {
        return Fail(error.what());
    }
}

const Command* FindCommand(const std::string& name) {
    for (const Command& command : Commands())
        if (name == command.name) return &command;
    return nullptr;
}

int RunCommand(const Command& command, const std::vector<std::string>& words) {
    try {
        const Arguments arguments(words, command.rules);
        Outputs outputs(arguments, command.rules);
        command.run(arguments, outputs);
        outputs.Commit();
        return 0;
    } catch (const UsageError& error) {
        TellError(std::string("kestrel ") + command.name + ": " + error.what());
        std::fputs(UsageLine(command).c_str(), stderr);
        return 2;
    }
}

int Print(const std::string& text) {
    WriteStandardOutput(text);
    return 0;
}

bool AsksForHelp(const std::string& word) { return word == "--help" || word == "-h"; }

int Run(const std::vector<std::string>& words) {
    if (words.empty()) {
        std::fputs(ProgramHelp().c_str(), stderr);
        return 2;
    }
    if (AsksForHelp(words[0]) || words[0] == "help") return Print(ProgramHelp());
    if (words[0] == "--version") return Print("kestrel " KESTREL_VERSION "\n");
    const Command* command = FindCommand(words[0]);
    if (!command) {
        TellError("kestrel: there is no command '" + words[0] + "'; 'kestrel --help' lists them");
        return 2;
    }
    const std::vector<std::string> rest(words.begin() + 1, words.end());
    for (const std::string& word : rest) {
        if (word == "--") break;
        if (AsksForHelp(word)) return Print(CommandHelp(*command));
    }
    return RunCommand(*command, rest);
}

}  // namespace

int RunCommandLine(const std::vector<std::string>& words) {
    return Guarded([&] { return Run(words); });
}

}  // namespace refhost
