#pragma once

#include <sys/wait.h>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "TestPaths.h"
#include "platform/Files.h"
#include "support/TemporaryFolder.h"

namespace refhost::test {

/// What a run of the program gave.
struct RunResult {
    int exitCode = -1;
    std::string output;  ///< standard output
    std::string errors;  ///< standard error
};

/// A folder of its own for each test, with the program to run in it.
class Workplace {
 public:
    std::string Path(const std::string& name) const { return folder_ / name; }
    bool Exists(const std::string& name) const { return std::filesystem::exists(Path(name)); }
    std::size_t FileCount() const { return folder_.EntryCount(); }
    void Write(const std::string& name, const std::string& text) const {
        kestrel::ReplaceWholeFile(Path(name), text);
    }
    std::string Read(const std::string& name) const { return kestrel::ReadWholeFile(Path(name)); }

    /// Runs `kestrel` in the folder, words as a shell takes them, settings of its own; the shell
    /// does `before` first.
    RunResult Run(const std::string& words, const std::string& input = "/dev/null",
                  const std::string& before = ":") const {
        const std::string command = "cd '" + Path("") + "'; " + before + "; XDG_CONFIG_HOME='" +
                                    Path("") + "' '" KESTREL_BINARY_DIR "/kestrel' " + words +
                                    " <" + input + " >.out 2>.err";
        const int status = std::system(command.c_str());
        RunResult result;
        result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        result.output = Read(".out");
        result.errors = Read(".err");
        std::filesystem::remove(Path(".out"));
        std::filesystem::remove(Path(".err"));
        return result;
    }

 private:
    kestrel::test::TemporaryFolder folder_;
};

inline const std::string kExample = KESTREL_SOURCE_DIR "/examples/ferry-terminal.kplan";

inline const std::string kSmall =
    "<Plan Version=\"1\" Name=\"Small\" Start=\"2026-01-05T08:00:00\">"
    "<Texts><Text Name=\"RiskFactors\">&lt;RiskFactors Version=\"RiskFactors1.00\"&gt;"
    "&lt;RiskFactor ID=\"1\"&gt;&lt;Name&gt;Frost&lt;/Name&gt;&lt;Minimum&gt;100&lt;/Minimum&gt;"
    "&lt;MostLikely&gt;110&lt;/MostLikely&gt;&lt;Maximum&gt;150&lt;/Maximum&gt;"
    "&lt;Probability&gt;50&lt;/Probability&gt;&lt;/RiskFactor&gt;&lt;/RiskFactors&gt;</Text></"
    "Texts>"
    "<Tasks><Task ID=\"A\" Name=\"Dig\" Type=\"0\" Duration=\"4800\"><CostItem Name=\"x\" "
    "Cost=\"10\"/></Task>"
    "<Task ID=\"B\" Name=\"Pour\" Type=\"0\" Duration=\"960\"><Link From=\"A\" Type=\"FS\" "
    "Lag=\"0\"/></Task></Tasks></Plan>";

}  // namespace refhost::test
