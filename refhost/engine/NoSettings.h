#pragma once

#include <string>

#include "refhost/engine/Settings.h"

namespace refhost {

/// Per-user settings that were never saved and never are.
class NoSettings : public Settings {
 public:
    std::string Get(const std::string&, const std::string&, const std::string&,
                    const std::string& fallback) override {
        return fallback;
    }
    void Save(const std::string&, const std::string&, const std::string&,
              const std::string&) override {}
};

}  // namespace refhost
