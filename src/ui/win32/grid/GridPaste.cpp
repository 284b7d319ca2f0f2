#include "ui/win32/grid/GridPaste.h"

#include <algorithm>
#include <string_view>

namespace kestrel::ui::win32 {
namespace {

/// The clipboard, open for reading while it lives, unless somebody else has it.
class ClipboardReader {
 public:
    explicit ClipboardReader(HWND window) : open_(OpenClipboard(window) != FALSE) {}
    ClipboardReader(const ClipboardReader&) = delete;
    ClipboardReader& operator=(const ClipboardReader&) = delete;
    ~ClipboardReader() {
        if (open_) CloseClipboard();
    }

    std::wstring Text() const {
        const HANDLE data = open_ ? GetClipboardData(CF_UNICODETEXT) : nullptr;
        const auto* text = data ? static_cast<const wchar_t*>(GlobalLock(data)) : nullptr;
        if (!text) return {};
        // The block may be larger than the text, or end without a NUL.
        std::wstring_view all(text, GlobalSize(data) / sizeof(wchar_t));
        std::wstring copy(all.substr(0, all.find(L'\0')));
        GlobalUnlock(data);
        return copy;
    }

 private:
    bool open_;
};

}  // namespace

std::u32string PastedCell(HWND window) {
    const std::wstring all = ClipboardReader(window).Text();
    std::wstring_view text = all;
    text = text.substr(0, text.find_first_of(L"\t\r\n"));
    text.remove_prefix(std::min(text.find_first_not_of(L' '), text.size()));
    text = text.substr(0, text.find_last_not_of(L' ') + 1);

    std::u32string characters;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t code = text[i];
        if (i + 1 < text.size() && IS_SURROGATE_PAIR(text[i], text[i + 1]))
            code = 0x10000 + ((code - 0xD800) << 10) + (static_cast<char32_t>(text[++i]) - 0xDC00);
        characters += code;
    }
    return characters;
}

}  // namespace kestrel::ui::win32
