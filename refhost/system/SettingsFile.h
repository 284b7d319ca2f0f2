#pragma once

#include <string>

#include "refhost/engine/Settings.h"

namespace refhost {

/// Per-user settings in a text file, one a line: application/section/key=value. Several programs
/// share it: it is read for every value, and a save changes that value alone. For a reader a file
/// that cannot be read counts as empty.
class SettingsFile : public Settings {
 public:
    /// SettingsPath of this system.
    static std::string DefaultPath();

    explicit SettingsFile(std::string path = DefaultPath()) : path_(std::move(path)) {}

    std::string Get(const std::string& application, const std::string& section,
                    const std::string& key, const std::string& fallback) override;
    void Save(const std::string& application, const std::string& section, const std::string& key,
              const std::string& value) override;

 private:
    std::string path_;
};

}  // namespace refhost
