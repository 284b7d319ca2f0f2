#include "ui/controls/ChartHints.h"

#include <algorithm>

#include "ui/controls/ChartText.h"

namespace kestrel::ui {
namespace {

constexpr int kLeastSide = 8;

Rect Grown(Rect area) {
    const int across = std::max(0, kLeastSide - area.width);
    const int down = std::max(0, kLeastSide - area.height);
    return {area.x - across / 2, area.y - down / 2, area.width + across, area.height + down};
}

Rect AreaOf(const ChartText& text) {
    const int width = TextWidth(text.text, text.size, text.bold);
    const int left = text.align == ChartAlign::Left     ? text.x
                     : text.align == ChartAlign::Centre ? text.x - width / 2
                                                        : text.x - width;
    return {left, text.baseline - text.size, width, text.size + text.size / 3};
}

}  // namespace

std::vector<ChartHint> HintsOf(const ChartDrawing& drawing) {
    std::vector<ChartHint> hints;
    for (const ChartBar& bar : drawing.bars)
        if (!bar.hint.empty()) hints.push_back({Grown(bar.bounds), bar.hint});
    for (const ChartText& text : drawing.texts)
        if (!text.hint.empty()) hints.push_back({AreaOf(text), text.hint});
    return hints;
}

}  // namespace kestrel::ui
