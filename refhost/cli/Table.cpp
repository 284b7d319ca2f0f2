#include "refhost/cli/Table.h"

#include <algorithm>
#include <cstdint>

#include "base/OneLine.h"
#include "base/Text.h"

namespace refhost {
namespace {

std::size_t CharacterWidth(char32_t c) {
    const bool combining =
        (c >= 0x300 && c <= 0x36F) || c == 0x200B || (c >= 0xFE00 && c <= 0xFE0F);
    const bool wide = (c >= 0x1100 && c <= 0x115F) || (c >= 0x2E80 && c <= 0xA4CF) ||
                      (c >= 0xAC00 && c <= 0xD7A3) || (c >= 0xF900 && c <= 0xFAFF) ||
                      (c >= 0xFF00 && c <= 0xFF60) || (c >= 0x1F300 && c <= 0x1FAFF) ||
                      (c >= 0x20000 && c <= 0x3FFFD);
    return combining ? 0 : wide ? 2 : 1;
}

}  // namespace

std::size_t DisplayWidth(const std::string& text) {
    std::size_t width = 0;
    for (std::string_view rest = text; !rest.empty();) {
        const kestrel::Utf8Character next = kestrel::CharacterOrByte(rest);
        width += CharacterWidth(next.code);
        rest.remove_prefix(next.length);
    }
    return width;
}

void Table::Add(std::vector<std::string> cells) {
    for (std::string& cell : cells) cell = kestrel::Printable(cell);
    rows_.push_back(std::move(cells));
}

std::string Table::Text() const {
    std::vector<std::size_t> widths;
    for (std::size_t c = 0; c < columns_.size(); ++c) {
        widths.push_back(DisplayWidth(columns_[c].header));
        for (const auto& row : rows_) widths[c] = std::max(widths[c], DisplayWidth(row[c]));
    }
    std::string text;
    const auto addRow = [&](const auto& cellOf) {
        std::string line;
        for (std::size_t c = 0; c < columns_.size(); ++c) {
            const std::string& cell = cellOf(c);
            const std::string padding(widths[c] - DisplayWidth(cell), ' ');
            if (c > 0) line += "  ";
            line += columns_[c].align == Align::Right ? padding + cell : cell + padding;
        }
        text += kestrel::TrimmedEnd(line, " ");
        text += '\n';
    };
    addRow([&](std::size_t c) -> const std::string& { return columns_[c].header; });
    for (const auto& row : rows_)
        addRow([&](std::size_t c) -> const std::string& { return row[c]; });
    return text;
}

}  // namespace refhost
