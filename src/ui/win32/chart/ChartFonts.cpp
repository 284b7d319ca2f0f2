#include "ui/win32/chart/ChartFonts.h"

#include <algorithm>
#include <cmath>

#include "platform/win32/WideText.h"

namespace kestrel::ui::win32 {
namespace {

constexpr double kFineScale = 10;  ///< at which moving letters to whole pixels does not count

}  // namespace

ChartFonts::ChartFonts(const std::string& face)
    : face_(kestrel::win32::Wide(face).substr(0, LF_FACESIZE - 1)) {}

HFONT ChartFonts::Of(int em, bool bold) {
    kestrel::win32::Font& font = fonts_[{em, bold}];
    if (!font)
        font = kestrel::win32::Font(CreateFontW(-em, 0, 0, 0, bold ? FW_BOLD : FW_NORMAL, FALSE,
                                                FALSE, FALSE, DEFAULT_CHARSET, OUT_TT_PRECIS,
                                                CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY,
                                                VARIABLE_PITCH | FF_SWISS, face_.c_str()));
    return font.Get();
}

ChartMeasure::ChartMeasure(const std::string& face, double scale)
    : scale_(scale), dc_(CreateCompatibleDC(nullptr)), fonts_(face) {}

int ChartMeasure::operator()(std::string_view text, int size, bool bold) {
    const std::wstring wide = kestrel::win32::Wide(text);
    return static_cast<int>(
        std::ceil(std::max(Width(wide, size, bold, scale_), Width(wide, size, bold, kFineScale))));
}

double ChartMeasure::Width(const std::wstring& text, int size, bool bold, double scale) {
    const HFONT font = fonts_.Of(static_cast<int>(std::lround(size * scale)), bold);
    const kestrel::win32::Selection selection(dc_.Get(), font);
    SIZE extent{};
    GetTextExtentPoint32W(dc_.Get(), text.data(), static_cast<int>(text.size()), &extent);
    return static_cast<double>(extent.cx) / scale;
}

}  // namespace kestrel::ui::win32
