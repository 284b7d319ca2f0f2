#pragma once

#include <unistd.h>

#include <sys/wait.h>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

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
    Workplace()
        : folder_(std::filesystem::temp_directory_path() /
                  ("kestrel-test-" + std::to_string(::getpid()))) {
        std::filesystem::remove_all(folder_);
        std::filesystem::create_directories(folder_);
    }
    ~Workplace() { std::filesystem::remove_all(folder_); }

    std::string Path(const std::string& name) const { return (folder_ / name).string(); }
    bool Exists(const std::string& name) const { return std::filesystem::exists(folder_ / name); }
    std::size_t FileCount() const {
        return static_cast<std::size_t>(
            std::distance(std::filesystem::directory_iterator(folder_), {}));
    }
    void Write(const std::string& name, const std::string& text) const {
        std::ofstream(folder_ / name, std::ios::binary) << text;
    }
    std::string Read(const std::string& name) const {
        std::ifstream file(folder_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    /// Runs `kestrel` in the folder, words as a shell takes them, settings of its own.
    RunResult Run(const std::string& words) const {
        const std::string command = "cd '" + folder_.string() + "' && XDG_CONFIG_HOME='" +
                                    folder_.string() + "' '" KESTREL_BINARY "' " + words +
                                    " </dev/null >.out 2>.err";
        const int status = std::system(command.c_str());
        RunResult result;
        result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        result.output = Read(".out");
        result.errors = Read(".err");
        std::filesystem::remove(folder_ / ".out");
        std::filesystem::remove(folder_ / ".err");
        return result;
    }

 private:
    std::filesystem::path folder_;
};

inline const std::string kExample = KESTREL_SOURCE_DIR "/examples/ferry-terminal.kplan";

}  // namespace refhost::test
