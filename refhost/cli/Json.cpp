#include "refhost/cli/Json.h"

#include <array>
#include <charconv>

#include "base/Checked.h"

namespace refhost {

JsonWriter& JsonWriter::Key(std::string_view name) {
    Separate();
    Quote(name);
    text_ += ':';
    comma_ = false;
    return *this;
}

JsonWriter& JsonWriter::Text(std::string_view value) {
    Separate();
    Quote(value);
    return *this;
}

JsonWriter& JsonWriter::Double(double value) {
    std::array<char, 32> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(),
                                   kestrel::Checked(value), std::chars_format::general, 17)
                         .ptr;
    return Plain({digits.data(), static_cast<std::size_t>(end - digits.data())});
}

JsonWriter& JsonWriter::Break() {
    break_ = true;
    return *this;
}

JsonWriter& JsonWriter::Open(char bracket) {
    Separate();
    text_ += bracket;
    comma_ = false;
    return *this;
}

JsonWriter& JsonWriter::Close(char bracket) {
    if (break_) text_ += '\n';
    break_ = false;
    text_ += bracket;
    comma_ = true;
    return *this;
}

JsonWriter& JsonWriter::Plain(std::string_view value) {
    Separate();
    text_ += value;
    return *this;
}

void JsonWriter::Separate() {
    if (comma_) text_ += ',';
    if (break_) text_ += '\n';
    break_ = false;
    comma_ = true;
}

void JsonWriter::Quote(std::string_view value) {
    constexpr std::string_view kHex = "0123456789abcdef";
    text_ += '"';
    for (const char c : value) {
        if (c == '"' || c == '\\') {
            text_ += '\\';
            text_ += c;
        } else if (static_cast<unsigned char>(c) < 0x20) {
            text_ += "\\u00";
            text_ += kHex[static_cast<unsigned char>(c) >> 4];
            text_ += kHex[static_cast<unsigned char>(c) & 15];
        } else {
            text_ += c;
        }
    }
    text_ += '"';
}

}  // namespace refhost
