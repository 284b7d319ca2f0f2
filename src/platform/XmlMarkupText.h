#pragma once

#include <string>
#include <string_view>

#include "platform/XmlCharacters.h"

namespace kestrel {

/// A document as text whose markup is ASCII, without byte order mark: UTF-16 and UTF-32 as UTF-8,
/// any other encoding as it stands. Refers to `bytes`.
class XmlMarkupText {
 public:
    explicit XmlMarkupText(std::string_view bytes);
    XmlMarkupText(const XmlMarkupText&) = delete;
    XmlMarkupText& operator=(const XmlMarkupText&) = delete;

    std::string_view Text() const { return text_; }
    /// False when the document declares another encoding: bytes above 0x7F mean then what that
    /// encoding says.
    bool IsUtf8() const { return isUtf8_; }

 private:
    void Convert(std::string_view bytes, const XmlEncodingMark& mark);

    std::string converted_;
    std::string_view text_;
    bool isUtf8_;
};

}  // namespace kestrel
