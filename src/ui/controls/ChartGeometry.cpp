#include "ui/controls/ChartGeometry.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "base/NumberText.h"
#include "ui/controls/ChartScale.h"

namespace kestrel::ui {
namespace {

constexpr int kPad = 16, kGap = 8, kTitleSize = 16, kTextSize = 12, kSmallest = 9;
constexpr int kNameGap = 12;  ///< from a name to the plot
constexpr int kTickLength = 4;
constexpr int kBelowPlot = 56;         ///< ticks, their labels and the axis title
constexpr int kComfortableStep = 26;   ///< from bar to bar
constexpr double kLineHeight = 1.4;    ///< of the font size, scripts with high letters included
constexpr double kMostForNames = 0.4;  ///< of the width
constexpr int kMostTicks = 10;

int Whole(double value) { return static_cast<int>(std::lround(value)); }

/// Lays out one chart, from the outside to the inside.
class Layout {
 public:
    Layout(const Chart& chart, int width, int height, const TextMeasure& measure)
        : chart_(chart), measure_(measure) {
        drawing_.width = width;
        drawing_.height = height;
        drawing_.font = chart.Attributes().Text("TitleFontName");
        drawing_.title = chart.Attributes().Text("TitleText");
        const std::string& document = chart.Attributes().Text("PrintDocumentName");
        if (!document.empty()) drawing_.title += " - " + document;
    }

    ChartDrawing Draw() {
        DrawTitle();
        FindRows();
        FindColumns();
        DrawValueAxis();
        DrawNames();
        for (int c = 0; c < chart_.ChannelCount(); ++c) DrawBars(chart_.Channel(c));
        DrawZeroLine();
        DrawEmptyText();
        return std::move(drawing_);
    }

 private:
    /// @name Scales
    ///@{
    double AcrossOf(double value) const {
        return left_ + (value - min_) / span_ * (right_ - left_);
    }
    double DownOf(double position) const {
        const ChartAttributes& axis = chart_.XAxis(0).attributes;
        const double share = (position - axis.Number("Min")) / axis.Number("Span");
        return axis.Flag("ReverseScale") ? top_ + share * (bottom_ - top_)
                                         : bottom_ - share * (bottom_ - top_);
    }
    ///@}

    void DrawTitle() {
        const ChartAttributes& attributes = chart_.Attributes();
        AddText(attributes.Text("TitleText"), kPad, kPad + kTitleSize - 2, kTitleSize,
                ChartAlign::Left, attributes.ColourOf("TitleFontColor"), drawing_.width - 2 * kPad,
                attributes.Flag("TitleFontBold"));
        top_ = kPad + kTitleSize + Whole(attributes.Number("TitleMargin") * kTitleSize / 2);
        bottom_ = std::max(top_ + 1, drawing_.height - kBelowPlot);
    }

    void FindRows() {
        const double span = chart_.XAxis(0).attributes.Number("Span");
        step_ = span > 0 ? (bottom_ - top_) / span : bottom_ - top_;
        nameSize_ = std::clamp(static_cast<int>(step_ / kLineHeight), kSmallest, kTextSize);
        every_ = std::max(1, static_cast<int>(std::ceil(nameSize_ * kLineHeight / step_)));
    }

    void FindColumns() {
        int names = 0;
        for (const ChartTick& tick : Names())
            names = std::max(names, measure_(tick.label, nameSize_, false));
        names_ = std::min(names, static_cast<int>(drawing_.width * kMostForNames));

        const ChartAttributes& axis = chart_.YAxis(0).attributes;
        min_ = axis.Number("Min");
        span_ = axis.Number("Span");
        if (!(span_ > 0)) span_ = 1;
        int before = 0, behind = kPad;  // values stand outside their bars
        for (int c = 0; c < chart_.ChannelCount(); ++c)
            for (const ChartPoint& point : chart_.Channel(c).points) {
                int& room = point.y < 0 ? before : behind;
                if (ShowsValues(chart_.Channel(c)))
                    room = std::max(room, measure_(PercentText(point.y), nameSize_, false) + kGap);
            }
        left_ = kPad + names_ + (names_ > 0 ? kNameGap : 0) + before;
        right_ = std::max(left_ + 1, drawing_.width - kPad - behind);
    }

    void DrawValueAxis() {
        const ChartAttributes& axis = chart_.YAxis(0).attributes;
        const Colour ink = axis.ColourOf("LabelsFontColor");
        drawing_.lines.push_back({left_, bottom_, right_, bottom_, kChartHairline});
        for (const ChartTick& tick : FittingTicks()) {
            const int x = Whole(AcrossOf(tick.position));
            if (axis.Flag("GridLinesVisible"))
                drawing_.grid.push_back({x, top_, x, bottom_, kChartHairline});
            drawing_.lines.push_back({x, bottom_, x, bottom_ + kTickLength, kChartSubtle});
            AddText(tick.label, x, bottom_ + kTickLength + kTextSize + 2, kTextSize - 1,
                    ChartAlign::Centre, ink);
        }
        AddText(axis.Text("Title"), std::max((left_ + right_) / 2, drawing_.width / 2),
                drawing_.height - kPad + 2, kTextSize, ChartAlign::Centre, kChartSubtle,
                drawing_.width - 2 * kPad);
    }

    /// As many round values as have room for their labels.
    std::vector<ChartTick> FittingTicks() const {
        const ChartAxis& axis = chart_.YAxis(0);
        if (axis.attributes.Flag("TickListCustom")) return axis.customTicks;
        std::vector<ChartTick> ticks;
        for (int count = kMostTicks; count > 0; --count) {
            ticks = PercentTicks(min_, min_ + span_, count);
            int widest = 0;
            for (const ChartTick& tick : ticks)
                widest = std::max(widest, measure_(tick.label, kTextSize - 1, false));
            if (ticks.size() < 2 ||
                AcrossOf(ticks[1].position) - AcrossOf(ticks[0].position) >= widest + kGap)
                break;
        }
        return ticks;
    }

    const std::vector<ChartTick>& Names() const { return chart_.XAxis(0).customTicks; }

    void DrawNames() {
        const ChartAttributes& axis = chart_.XAxis(0).attributes;
        if (!axis.Flag("TickListCustom")) return;
        for (std::size_t i = 0; i < Names().size(); i += static_cast<std::size_t>(every_)) {
            const int middle = Whole(DownOf(Names()[i].position));
            AddText(Names()[i].label, kPad + names_, middle + nameSize_ * 3 / 8, nameSize_,
                    ChartAlign::Right, axis.ColourOf("LabelsFontColor"), names_);
        }
        if (axis.Flag("GridLinesVisible"))
            for (const ChartTick& tick : Names()) {
                const int middle = Whole(DownOf(tick.position));
                drawing_.grid.push_back({left_, middle, right_, middle, kChartHairline});
            }
    }

    /// Where bars are crowded a value would run into the next bar.
    bool ShowsValues(const ChartChannel& channel) const {
        return every_ == 1 && channel.attributes.Flag("ValueLabelsVisible");
    }

    void DrawBars(const ChartChannel& channel) {
        const ChartAttributes& attributes = channel.attributes;
        if (!attributes.Flag("BarEnabled")) return;
        const int thickness = std::max(1, Whole(attributes.Number("BarWidth") * step_));
        for (const ChartPoint& point : channel.points) {
            const double middle = DownOf(point.x);
            if (point.y != 0) AddBar(attributes, point, Whole(middle - thickness / 2.0), thickness);
            if (ShowsValues(channel)) AddValue(point.y, Whole(middle));
        }
    }

    void AddBar(const ChartAttributes& attributes, const ChartPoint& point, int y, int height) {
        const double zero = AcrossOf(0), end = AcrossOf(point.y);
        ChartBar bar;
        bar.bounds = {Whole(std::min(zero, end)), y, std::max(1, Whole(std::abs(end - zero))),
                      height};
        bar.brush = attributes.ColourOf("Color");
        bar.pen = attributes.Flag("BarPenUseChannelColor") ? bar.brush
                                                           : attributes.ColourOf("BarPenColor");
        bar.hasBrush = attributes.Number("BarBrushStyle") == 0;
        bar.hasPen = attributes.Number("BarPenStyle") == 0;
        for (const ChartTick& tick : Names())
            if (tick.position == point.x) bar.hint = tick.label + ": " + PercentText(point.y);
        drawing_.bars.push_back(bar);
    }

    void AddValue(double value, int middle) {
        const int end = Whole(AcrossOf(value));
        AddText(PercentText(value), value < 0 ? end - kGap + 2 : end + kGap - 1,
                middle + nameSize_ * 3 / 8, nameSize_,
                value < 0 ? ChartAlign::Right : ChartAlign::Left, kChartInk);
    }

    void DrawZeroLine() {
        if (min_ > 0 || min_ + span_ < 0) return;
        const int zero = Whole(AcrossOf(0));
        drawing_.lines.push_back({zero, top_, zero, bottom_, kChartInk});
    }

    void DrawEmptyText() {
        for (int c = 0; c < chart_.ChannelCount(); ++c)
            if (!chart_.Channel(c).points.empty()) return;
        AddText(chart_.Attributes().Text("EmptyText"), (left_ + right_) / 2, (top_ + bottom_) / 2,
                kTextSize + 1, ChartAlign::Centre, kChartSubtle, right_ - left_ - 2 * kGap);
    }

    void AddText(const std::string& text, int x, int baseline, int size, ChartAlign align,
                 Colour colour, int room = 0, bool bold = false) {
        if (text.empty()) return;
        ChartText shape;
        shape.text = room > 0 ? ShortenedText(text, room, size, bold, measure_) : text;
        if (shape.text != text) shape.hint = text;
        shape.x = x;
        shape.baseline = baseline;
        shape.size = size;
        shape.align = align;
        shape.bold = bold;
        shape.colour = colour;
        drawing_.texts.push_back(std::move(shape));
    }

    const Chart& chart_;
    const TextMeasure& measure_;
    ChartDrawing drawing_;
    int left_ = 0, top_ = 0, right_ = 0, bottom_ = 0;  ///< of the plot
    double min_ = 0, span_ = 1;                        ///< of the values
    double step_ = 0;                                  ///< height of 1 on the x axis
    int names_ = 0;                                    ///< width of their column
    int nameSize_ = kTextSize;
    int every_ = 1;  ///< of so many names one is shown
};

}  // namespace

ChartDrawing DrawingOf(const Chart& chart, int width, int height, const TextMeasure& measure) {
    if (!chart.Attributes().Flag("XYAxesReverse"))
        throw std::invalid_argument("a chart is drawn with its axes exchanged only");
    return Layout(chart, width, height, measure).Draw();
}

ChartSize ComfortableSize(const Chart& chart) {
    const double steps = chart.XAxis(0).attributes.Number("Span");
    const int rows = std::max(6, static_cast<int>(steps));
    return {800, kPad + 2 * kTitleSize + kBelowPlot + rows * kComfortableStep};
}

}  // namespace kestrel::ui
