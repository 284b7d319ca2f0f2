#pragma once

#include <map>
#include <string>

#include "refhost/engine/Settings.h"

namespace refhost::test {

/// Settings of the user, by their key alone, that last as long as the object.
struct MemorySettings : Settings {
    std::map<std::string, std::string> values;

    std::string Get(const std::string&, const std::string&, const std::string& key,
                    const std::string& fallback) override {
        const auto found = values.find(key);
        return found == values.end() ? fallback : found->second;
    }
    void Save(const std::string&, const std::string&, const std::string& key,
              const std::string& value) override {
        values[key] = value;
    }
};

}  // namespace refhost::test
