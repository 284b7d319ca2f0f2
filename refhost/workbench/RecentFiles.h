#pragma once

#include <string>
#include <vector>

#include "refhost/engine/Settings.h"

namespace refhost {

/// The files opened last, latest first, kept in the user's settings.
class RecentFiles {
 public:
    static constexpr std::size_t kMost = 8;

    explicit RecentFiles(Settings& settings) : settings_(settings) {}

    std::vector<std::string> Paths() const;
    /// Puts the path first. What stands beyond the last place is forgotten.
    void Add(const std::string& path);
    void Remove(const std::string& path);

 private:
    void Store(const std::vector<std::string>& paths);

    Settings& settings_;
};

}  // namespace refhost
