#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace refhost {

/// Writes one JSON value piece by piece; commas come by themselves. Doubles have 17 significant
/// digits, enough to read back the same bits.
class JsonWriter {
 public:
    JsonWriter& BeginObject() { return Open('{'); }
    JsonWriter& EndObject() { return Close('}'); }
    JsonWriter& BeginArray() { return Open('['); }
    JsonWriter& EndArray() { return Close(']'); }
    JsonWriter& Key(std::string_view name);
    JsonWriter& Text(std::string_view value);
    JsonWriter& Double(double value);
    JsonWriter& Whole(std::int64_t value) { return Plain(std::to_string(value)); }
    JsonWriter& Whole(std::uint64_t value) { return Plain(std::to_string(value)); }
    JsonWriter& Bool(bool value) { return Plain(value ? "true" : "false"); }
    /// Starts a new line before the next piece, for the reader's sake.
    JsonWriter& Break();

    const std::string& Result() const { return text_; }
    void Clear() {
        text_.clear();
        comma_ = false;
    }

 private:
    JsonWriter& Open(char bracket);
    JsonWriter& Close(char bracket);
    JsonWriter& Plain(std::string_view value);
    void Separate();
    void Quote(std::string_view value);

    std::string text_;
    bool comma_ = false;
    bool break_ = false;
};

}  // namespace refhost
