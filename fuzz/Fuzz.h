#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <string_view>

#include "support/FakeDesktop.h"

/// What the fuzz targets share. Each target is one file that defines LLVMFuzzerTestOneInput.
namespace kestrel::fuzz {

/// Ends the program when something does not hold: that is how a finding is told.
inline void Require(bool holds, const std::string& what) {
    if (holds) return;
    std::fprintf(stderr, "does not hold: %s\n", what.c_str());
    std::abort();
}

/// A desktop whose files are in memory. Every "yes" is given unless answers are prepared.
class MemoryDesktop : public test::FakeDesktop {
 public:
    std::map<std::string, std::string> files;
    bool agrees = true;

    bool FileIsThere(const std::string& path) override { return files.contains(path); }
    std::string ReadFile(const std::string& path) override {
        const auto found = files.find(path);
        if (found == files.end()) throw DataError(path + ": there is no such file.");
        return found->second;
    }
    void WriteFile(const std::string& path, std::string_view bytes) override {
        files[path] = bytes;
    }

    using Desktop::ShowMessage;
    MessageAnswer ShowMessage(const std::string& text, MessageButtons buttons,
                              const std::string& title) override {
        Require(!text.empty(), "a message says something");
        if (agrees && buttons != MessageButtons::Ok)
            answers = {buttons == MessageButtons::YesNo ? MessageAnswer::Yes : MessageAnswer::Ok};
        return FakeDesktop::ShowMessage(text, buttons, title);
    }
};

/// The input as a sequence of decisions; zeros once it has ended.
class Input {
 public:
    Input(const std::uint8_t* data, std::size_t size)
        : rest_(reinterpret_cast<const char*>(data), size) {}

    bool AtEnd() const { return rest_.empty(); }
    unsigned Byte() {
        if (rest_.empty()) return 0;
        const auto byte = static_cast<unsigned char>(rest_.front());
        rest_.remove_prefix(1);
        return byte;
    }
    int Below(int count) { return static_cast<int>(Byte()) % count; }
    std::string_view Text(std::size_t length) {
        const std::string_view text = rest_.substr(0, length);
        rest_.remove_prefix(text.size());
        return text;
    }
    std::string_view Rest() { return Text(rest_.size()); }

 private:
    std::string_view rest_;
};

}  // namespace kestrel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
