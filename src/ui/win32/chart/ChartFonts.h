#pragma once

#include <windows.h>

#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "platform/win32/Gdi.h"

namespace kestrel::ui::win32 {

/// The fonts of a chart's texts, each made once.
class ChartFonts {
 public:
    /// `face` is the font's name in UTF-8; the system finds the nearest.
    explicit ChartFonts(const std::string& face);

    /// A font of an em in the units of the context it will be used in.
    HFONT Of(int em, bool bold);

 private:
    std::wstring face_;
    std::map<std::pair<int, bool>, kestrel::win32::Font> fonts_;  ///< by em and weight
};

/// How wide a chart's texts are in its own font: a TextMeasure for a window of `scale` pixels to a
/// unit. A text that fits by it also fits when the chart is printed or enlarged, where letters are
/// not moved to whole pixels.
class ChartMeasure {
 public:
    ChartMeasure(const std::string& face, double scale);

    int operator()(std::string_view text, int size, bool bold);

 private:
    double Width(const std::wstring& text, int size, bool bold, double scale);

    double scale_;
    kestrel::win32::OwnDc dc_;
    ChartFonts fonts_;
};

}  // namespace kestrel::ui::win32
