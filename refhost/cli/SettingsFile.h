#pragma once

#include <map>
#include <string>

#include "refhost/engine/Settings.h"

namespace refhost {

/// Per-user settings in a text file, one a line: application/section/key=value. It is read when
/// first needed and replaced whole on every save. A file that cannot be read counts as empty.
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
    void Load();

    std::string path_;
    bool loaded_ = false;
    std::map<std::string, std::string> values_;
};

}  // namespace refhost
