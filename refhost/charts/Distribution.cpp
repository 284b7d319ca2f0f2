#include "refhost/charts/Distribution.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>

#include "base/NumberText.h"
#include "refhost/engine/Statistics.h"
#include "ui/controls/ChartScale.h"
#include "ui/controls/ChartText.h"

namespace refhost {
namespace {

using namespace kestrel::ui;

constexpr int kPad = 16, kGap = 8, kTitleSize = 16, kTextSize = 12, kSmallSize = 11;
constexpr int kSide = 48;        ///< room for the labels of an axis
constexpr int kMarkHeight = 18;  ///< a row of marks above the plot
constexpr int kMarkGap = 5;      ///< from a mark's line to its label
constexpr Colour kBarBrush = 0xE6CDB4, kBarPen = 0xC79B6E, kCurve = 0x6B3F1F, kMark = 0x1E26B3,
                 kBehind = 0xA8A29C;

constexpr std::pair<const char*, double> kMarks[] = {
    {"P10", 0.1}, {"P50", 0.5}, {"P80", 0.8}, {"P90", 0.9}};

int Whole(double value) { return static_cast<int>(std::lround(value)); }

/// Lays out one chart.
class Layout {
 public:
    Layout(const std::vector<double>& ascending, const Histogram& histogram,
           const DistributionTexts& texts, const DistributionContext& context, int width,
           int height)
        : values_(ascending), histogram_(histogram), texts_(texts), context_(context) {
        drawing_.width = width;
        drawing_.height = height;
        left_ = kPad + kSide;
        right_ = std::max(left_ + 1, width - kPad - kSide);
        bottom_ = height - kPad - 44;
    }

    ChartDrawing Draw() {
        drawing_.title = texts_.title;
        AddText(ShortenedText(texts_.title, drawing_.width - 2 * kPad, kTitleSize, true), kPad,
                kPad + kTitleSize - 2, kTitleSize, ChartAlign::Left, 0, true);
        const int axisTitles = kPad + kTitleSize + 24;
        AddText("Share of iterations per " + texts_.barWidth, kPad, axisTitles, kTextSize,
                ChartAlign::Left, kChartSubtle);
        AddText(texts_.curve, drawing_.width - kPad, axisTitles, kTextSize, ChartAlign::Right,
                kChartSubtle);
        PlaceMarks(axisTitles + 22);
        DrawShares();
        DrawTicks();
        DrawBars();
        if (!context_.without.empty()) {
            DrawCurve(context_.without, kBehind);
            AddText("without factors", Whole(Across(Percentile(context_.without, 0.99))) + kMarkGap,
                    top_ + 14, kSmallSize, ChartAlign::Left, kChartSubtle);
        }
        DrawCurve(values_, kCurve);
        DrawMarks();
        return std::move(drawing_);
    }

 private:
    double Across(double value) const {
        const double share = (value - histogram_.first) / (histogram_.End() - histogram_.first);
        return left_ + share * (right_ - left_);
    }
    double Up(double share) const { return bottom_ - share * (bottom_ - top_); }

    struct Mark {
        std::string label;
        double value = 0;
        int row = 0;
    };

    /// Labels stand to the right of their lines, each below those that it would run into, so that
    /// no line crosses a label.
    void PlaceMarks(int firstBaseline) {
        int overhang = 0;
        for (const auto& [name, share] : kMarks) AddMark(name, Percentile(values_, share));
        if (context_.planned) AddMark("Planned", *context_.planned);
        std::stable_sort(marks_.begin(), marks_.end(),
                         [](const Mark& a, const Mark& b) { return a.value < b.value; });
        for (const Mark& mark : marks_) {
            overhang = std::max(overhang, LabelEnd(mark) - (drawing_.width - kPad));
        }
        right_ = std::max(left_ + 1, right_ - overhang);
        int rows = 0;
        for (std::size_t i = 0; i < marks_.size(); ++i) {
            for (std::size_t before = 0; before < i; ++before)
                if (LabelEnd(marks_[before]) + kGap > Whole(Across(marks_[i].value)))
                    marks_[i].row = std::max(marks_[i].row, marks_[before].row + 1);
            rows = std::max(rows, marks_[i].row + 1);
        }
        firstMark_ = firstBaseline;
        top_ = firstBaseline + (rows - 1) * kMarkHeight + 14;
        bottom_ = std::max(bottom_, top_ + 1);
    }

    void AddMark(const char* name, double value) {
        std::string label = std::string(name) + " " + texts_.value(value);
        if (value < histogram_.first) label += ", further left";
        if (value > histogram_.End()) label += ", further right";
        marks_.push_back({std::move(label), std::clamp(value, histogram_.first, histogram_.End())});
    }

    int LabelEnd(const Mark& mark) const {
        return Whole(Across(mark.value)) + kMarkGap + TextWidth(mark.label, kSmallSize, true);
    }

    void DrawMarks() {
        for (const Mark& mark : marks_) {
            const int x = Whole(Across(mark.value));
            const int baseline = firstMark_ + mark.row * kMarkHeight;
            drawing_.lines.push_back({x, baseline - 9, x, bottom_, kMark, true});
            AddText(mark.label, x + kMarkGap, baseline, kSmallSize, ChartAlign::Left, kMark, true);
        }
    }

    double Tallest() const {
        return *std::max_element(histogram_.counts.begin(), histogram_.counts.end()) /
               static_cast<double>(values_.size());
    }

    void DrawShares() {
        const double step = std::max(0.01, RoundStep(Tallest() / 5));  // whole percents
        const double steps = std::ceil(Tallest() / step - 1e-9);
        scale_ = steps * step;
        for (double n = 0; n <= steps; ++n)
            AddText(kestrel::FixedText(n * step * 100, 0) + "%", left_ - kGap,
                    Whole(Up(n / steps)) + 4, kSmallSize, ChartAlign::Right, kChartInk);
        for (const ChartTick& tick : PercentTicks(0, 1, 5)) {
            const int y = Whole(Up(tick.position));
            drawing_.grid.push_back({left_, y, right_, y, kChartHairline});
            AddText(tick.label, right_ + kGap, y + 4, kSmallSize, ChartAlign::Left, kCurve);
        }
    }

    /// A value below as many bar edges as have room.
    void DrawTicks() {
        const int bars = static_cast<int>(histogram_.counts.size());
        const double barWidth = static_cast<double>(right_ - left_) / bars;
        int widest = 0;
        for (int i = 0; i <= bars; ++i)
            widest = std::max(widest, TextWidth(texts_.value(histogram_.Edge(i)), kSmallSize));
        const int every = std::max(1, static_cast<int>(std::ceil((widest + 2 * kGap) / barWidth)));
        for (int i = 0; i <= bars; i += every) {
            const int x = Whole(Across(histogram_.Edge(i)));
            if (x + widest / 2 > drawing_.width - kPad) break;
            drawing_.lines.push_back({x, bottom_, x, bottom_ + 4, kChartSubtle});
            AddText(texts_.value(histogram_.Edge(i)), x, bottom_ + 18, kSmallSize,
                    ChartAlign::Centre, kChartInk);
        }
        drawing_.lines.push_back({left_, bottom_, right_, bottom_, kChartInk});
        AddText(texts_.axis, (left_ + right_) / 2, drawing_.height - kPad + 2, kTextSize,
                ChartAlign::Centre, kChartSubtle);
    }

    void DrawBars() {
        for (std::size_t i = 0; i < histogram_.counts.size(); ++i) {
            const int count = histogram_.counts[i];
            if (count == 0) continue;
            const int edge = static_cast<int>(i);
            const int x = Whole(Across(histogram_.Edge(edge)));
            const int y = std::min(bottom_ - 1,
                                   Whole(Up(count / static_cast<double>(values_.size()) / scale_)));
            ChartBar bar;
            bar.bounds = {x, y, std::max(1, Whole(Across(histogram_.Edge(edge + 1))) - x),
                          bottom_ - y};
            bar.brush = kBarBrush;
            bar.pen = kBarPen;
            bar.hint = texts_.value(histogram_.Edge(edge)) + ": " + std::to_string(count) + " of " +
                       std::to_string(values_.size()) + " iterations";
            drawing_.bars.push_back(std::move(bar));
        }
    }

    /// Through the percentiles themselves, so that it meets the marks where it should.
    void DrawCurve(const std::vector<double>& ascending, Colour colour) {
        ChartCurve curve;
        curve.colour = colour;
        const auto add = [&](double value, double share) {
            const double within = std::clamp(value, histogram_.first, histogram_.End());
            curve.points.emplace_back(Across(within), Up(share));
        };
        add(histogram_.first, 0);
        add(ascending.front(), 0);
        for (int percent = 1; percent <= 100; ++percent)
            add(Percentile(ascending, percent / 100.0), percent / 100.0);
        add(histogram_.End(), 1);
        drawing_.curves.push_back(std::move(curve));
    }

    void AddText(const std::string& text, int x, int baseline, int size, ChartAlign align,
                 Colour colour, bool bold = false) {
        drawing_.texts.push_back({text, "", x, baseline, size, align, bold, colour});
    }

    const std::vector<double>& values_;  ///< ascending
    const Histogram& histogram_;
    const DistributionTexts& texts_;
    const DistributionContext& context_;
    ChartDrawing drawing_;
    std::vector<Mark> marks_;
    int firstMark_ = 0;                                ///< baseline of the highest label
    int left_ = 0, top_ = 0, right_ = 0, bottom_ = 0;  ///< of the plot
    double scale_ = 1;                                 ///< share at the top of the left axis
};

}  // namespace

ChartDrawing DrawDistribution(const std::vector<double>& ascending, const Histogram& histogram,
                              const DistributionTexts& texts, int width, int height,
                              const DistributionContext& context) {
    if (ascending.empty()) throw std::invalid_argument("a distribution needs at least one value");
    Histogram wide = histogram;
    if (context.planned) wide.ReachTo(*context.planned);
    if (!context.without.empty()) wide.ReachTo(context.without.front());
    return Layout(ascending, wide, texts, context, width, height).Draw();
}

}  // namespace refhost
