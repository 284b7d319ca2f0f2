#pragma once

#include <atomic>
#include <chrono>
#include <filesystem>
#include <string>

namespace kestrel::test {

/// A new, empty folder whose name holds a blank and letters beyond ASCII; removed at the end with
/// all that is in it.
class TemporaryFolder {
 public:
    TemporaryFolder() {
        static std::atomic<int> count{0};
        do {
            const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
            path_ = std::filesystem::temp_directory_path() /
                    std::filesystem::path(u8"kestrel Größe µ\u0416 ");
            path_ += std::to_string(now) + "-" + std::to_string(++count);
        } while (!std::filesystem::create_directory(path_));
    }
    ~TemporaryFolder() {
        std::error_code ignored;  // what is left over harms nobody
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }
    /// The path of something in it, in UTF-8.
    std::string operator/(const std::string& name) const { return Utf8(path_) + "/" + name; }

    std::size_t EntryCount() const {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(path_),
                                                      std::filesystem::directory_iterator()));
    }

 private:
    static std::string Utf8(const std::filesystem::path& path) {
        const std::u8string text = path.u8string();
        return {text.begin(), text.end()};
    }

    std::filesystem::path path_;
};

}  // namespace kestrel::test
