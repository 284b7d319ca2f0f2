#include "faults/Faults.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <map>

#include "cli/CommandLine.h"
#include "refhost/cli/Commands.h"

namespace refhost::test {
namespace {

constexpr int kThrew = 99;

using Files = std::map<std::string, std::string>;

struct FaultyRun {
    int exitCode = -1;  ///< -1: ended by a signal
    int calls = 0;
    std::string errors;
    Files files;
};

Files FilesIn(const std::string& folder) {
    Files files;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        files[entry.path().filename().string()] = kestrel::ReadWholeFile(entry.path().string());
    return files;
}

/// Runs a command in a child, in a folder that holds just these files.
FaultyRun RunWith(Fault fault, int n, const std::vector<std::string>& words, const Files& before) {
    const kestrel::test::TemporaryFolder folder, apart;
    for (const auto& [name, bytes] : before) std::ofstream(folder / name) << bytes;
    const std::string errors = apart / "errors", calls = apart / "calls";
    const pid_t child = ::fork();
    if (child == 0) {
        std::filesystem::current_path(folder.Path());
        ::setenv("XDG_CONFIG_HOME", apart.Path().c_str(), 1);
        ::dup2(::open("/dev/null", O_WRONLY), STDOUT_FILENO);
        ::dup2(::open(errors.c_str(), O_WRONLY | O_CREAT, 0600), STDERR_FILENO);
        Arm(fault, n);
        try {
            const int exitCode = RunCommandLine(words);
            const int counted = Disarm();
            std::ofstream(calls) << counted;
            ::_exit(exitCode);
        } catch (...) {
            ::_exit(kThrew);  // what goes on from here would be a second run of the tests
        }
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    FaultyRun run;
    run.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    std::ifstream(calls) >> run.calls;
    run.errors = kestrel::ReadWholeFile(errors);
    run.files = FilesIn(folder.Path().string());
    return run;
}

struct CommandRow {
    std::vector<std::string> words;
    Files before;
};

/// Every command that writes, over files that are there and files that are not.
std::vector<CommandRow> WritingCommands() {
    std::string bare = kSmall;
    bare.erase(bare.find("<Texts>"), bare.find("</Texts>") + 8 - bare.find("<Texts>"));
    const std::string all =
        RunWith(Fault::None, 0, {"save", "p", "f"}, {{"p", kSmall}}).files.at("f");
    return {
        {{"analyse", "p", "--iterations", "3", "--json", "j", "--trace", "t", "--chart", "c.svg",
          "--save", "p"},
         {{"p", kSmall}, {"t", "old"}, {"c.svg", "old"}}},
        {{"save", "p", "f"}, {{"p", kSmall}, {"f", "old"}}},
        {{"load", "p", "f", "--yes", "-o", "p"}, {{"p", bare}, {"f", all}}},
        {{"factors", "p", "--save", "f", "-o", "n"}, {{"p", kSmall}, {"f", "old"}}},
        {{"assign", "p", "A", "--series", "1", "-o", "p"}, {{"p", kSmall}}},
        {{"show", "p", "--chart", "c"}, {{"p", kSmall}}},
    };
}

TEST(Faults, AFailingCallOrADeathLeavesEveryFileOldOrNew) {
    for (const CommandRow& row : WritingCommands()) {
        const FaultyRun whole = RunWith(Fault::None, 0, row.words, row.before);
        ASSERT_EQ(whole.exitCode, 0) << row.words[0] << ": " << whole.errors;
        ASSERT_NE(whole.files, row.before);
        for (int n = 1; n <= whole.calls; ++n) {
            SCOPED_TRACE(row.words[0] + ", call " + std::to_string(n));
            const FaultyRun failed = RunWith(Fault::CallFails, n, row.words, row.before);
            ASSERT_TRUE(failed.exitCode == 0 || failed.exitCode == 1) << failed.errors;
            EXPECT_TRUE(failed.files == (failed.exitCode == 0 ? whole.files : row.before))
                << failed.errors;
            EXPECT_EQ(failed.errors.empty(), failed.exitCode == 0 && whole.errors.empty());

            const FaultyRun died = RunWith(Fault::ProgramDies, n, row.words, row.before);
            for (const auto& [name, bytes] : died.files) {
                const auto old = row.before.find(name), now = whole.files.find(name);
                const bool isOld = old != row.before.end() && old->second == bytes;
                const bool isNew = now != whole.files.end() && now->second == bytes;
                EXPECT_TRUE(isOld || isNew || name.starts_with(".kestrel-")) << name;
            }
            for (const auto& file : row.before) EXPECT_TRUE(died.files.count(file.first));
        }
    }
}

TEST(Faults, AFailingAllocationIsToldAndChangesNothing) {
    for (const CommandRow& row : WritingCommands()) {
        if (row.words[0] == "factors" || row.words[0] == "assign") continue;
        const FaultyRun whole = RunWith(Fault::AllocationFails, 0, row.words, row.before);
        const int step = whole.calls / 150 + 1;
        for (int n = 1; n <= whole.calls; n += step) {
            SCOPED_TRACE(row.words[0] + ", allocation " + std::to_string(n));
            const FaultyRun run = RunWith(Fault::AllocationFails, n, row.words, row.before);
            ASSERT_TRUE(run.exitCode == 0 || run.exitCode == 1) << run.errors;
            EXPECT_TRUE(run.files == (run.exitCode == 0 ? whole.files : row.before));
            EXPECT_EQ(run.errors.find("bad_alloc"), std::string::npos);
            EXPECT_EQ(run.errors.empty(), run.exitCode == 0 && whole.errors.empty()) << run.errors;
        }
    }
}

}  // namespace
}  // namespace refhost::test
