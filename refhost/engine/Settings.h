#pragma once

#include <string>

namespace refhost {

/// Where the host keeps per-user settings, under three names each.
class Settings {
 public:
    virtual ~Settings() = default;
    virtual std::string Get(const std::string& application, const std::string& section,
                            const std::string& key, const std::string& fallback) = 0;
    virtual void Save(const std::string& application, const std::string& section,
                      const std::string& key, const std::string& value) = 0;
};

}  // namespace refhost
