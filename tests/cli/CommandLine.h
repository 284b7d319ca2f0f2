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

}  // namespace refhost::test
