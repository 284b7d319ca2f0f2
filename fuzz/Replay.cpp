#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <vector>

#include "fuzz/Fuzz.h"
#include "platform/Files.h"

/// Runs a target on files, and on all files of folders: what a build without fuzzer does with it.
int main(int count, char** words) {
    std::vector<std::filesystem::path> paths;
    for (int i = 1; i < count; ++i) {
        if (!std::filesystem::is_directory(words[i])) {
            paths.emplace_back(words[i]);
            continue;
        }
        for (const auto& entry : std::filesystem::directory_iterator(words[i]))
            paths.push_back(entry.path());
    }
    if (paths.empty()) {
        std::fprintf(stderr, "usage: %s FILE-OR-FOLDER...\n", words[0]);
        return 2;
    }
    std::sort(paths.begin(), paths.end());
    for (const std::filesystem::path& path : paths) {
        std::fprintf(stderr, "%s\n", path.c_str());  // the last one named is the one that failed
        const std::string bytes = kestrel::ReadWholeFile(path.string());
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    }
}
