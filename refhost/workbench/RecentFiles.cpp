#include "refhost/workbench/RecentFiles.h"

namespace refhost {
namespace {

constexpr const char* kApplication = "Kestrel";
constexpr const char* kSection = "RecentFiles";

}  // namespace

std::vector<std::string> RecentFiles::Paths() const {
    std::vector<std::string> paths;
    for (std::size_t place = 1; place <= kMost; ++place) {
        std::string path = settings_.Get(kApplication, kSection, std::to_string(place), "");
        if (!path.empty()) paths.push_back(std::move(path));
    }
    return paths;
}

void RecentFiles::Add(const std::string& path) {
    std::vector<std::string> paths = Paths();
    std::erase(paths, path);
    paths.insert(paths.begin(), path);
    if (paths.size() > kMost) paths.resize(kMost);
    Store(paths);
}

void RecentFiles::Remove(const std::string& path) {
    std::vector<std::string> paths = Paths();
    if (std::erase(paths, path) > 0) Store(paths);
}

void RecentFiles::Store(const std::vector<std::string>& paths) {
    for (std::size_t place = 1; place <= kMost; ++place) {
        const std::string key = std::to_string(place);
        const std::string path = place <= paths.size() ? paths[place - 1] : "";
        if (settings_.Get(kApplication, kSection, key, "") != path)
            settings_.Save(kApplication, kSection, key, path);
    }
}

}  // namespace refhost
