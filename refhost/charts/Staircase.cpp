#include "refhost/charts/Staircase.h"

#include <algorithm>
#include <cmath>

#include "ui/controls/ChartScale.h"
#include "ui/controls/ChartText.h"

namespace refhost {
namespace {

using namespace kestrel::ui;

constexpr int kPad = 16, kGap = 8, kTitleSize = 16, kHeadSize = 13, kTextSize = 12, kSmallSize = 11;
constexpr int kBar = 14, kNarrow = 600;
constexpr Colour kStep = 0xC79B6E, kStepPen = 0x8A5A2B, kTotal = 0xDBD5D1, kTotalPen = 0xA09890;
constexpr Colour kRise = 0x4A4AD9, kRisePen = 0x1E26B3;

int Whole(double value) { return static_cast<int>(std::lround(value)); }

/// Lays out one chart from top to bottom.
class Layout {
 public:
    Layout(const Staircase& staircase, int width)
        : staircase_(staircase), narrow_(width < kNarrow) {
        drawing_.width = width;
        drawing_.title = staircase.title;
        right_ = width - kPad;
        left_ = kPad + (narrow_ ? 0 : LabelWidth() + kGap);
    }

    ChartDrawing Draw() {
        y_ = kPad + kTitleSize - 2;
        Text(ShortenedText(staircase_.title, right_ - kPad, kTitleSize, true), kPad, kTitleSize,
             kChartInk, true);
        Head(staircase_.subtitle, kTextSize, false, 20);
        Section(staircase_.rows, false);
        if (!staircase_.singles.empty()) {
            Head(staircase_.singlesTitle, kHeadSize, true, 30);
            Section(staircase_.singles, true);
        }
        drawing_.height = y_ + kPad;
        return std::move(drawing_);
    }

 private:
    int LabelWidth() const {
        int widest = 0;
        for (const auto* rows : {&staircase_.rows, &staircase_.singles})
            for (const StaircaseRow& row : *rows)
                widest = std::max(widest, TextWidth(row.label, kTextSize));
        return std::min(widest, drawing_.width * 2 / 5);
    }

    void Head(const std::string& text, int size, bool bold, int down) {
        y_ += down;
        Text(ShortenedText(text, right_ - kPad, size, bold), kPad, size,
             bold ? kChartInk : kChartSubtle, bold);
    }

    /// The values that a section shows, with room beside them for the notes.
    void Scale(const std::vector<StaircaseRow>& rows, bool aroundZero) {
        low_ = high_ = aroundZero ? 0 : rows.front().to;
        int notes = 0;
        for (const StaircaseRow& row : rows) {
            low_ = std::min(low_, row.to);
            high_ = std::max(high_, row.to);
            if (!row.total && !aroundZero) {
                low_ = std::min(low_, row.from);
                high_ = std::max(high_, row.from);
            }
            notes = std::max(notes, TextWidth(row.note, kSmallSize));
        }
        if (high_ <= low_) high_ = low_ + 1;
        if (!aroundZero) low_ -= (high_ - low_) * 0.08;  // so that the lowest level shows a bar
        plotRight_ = std::max(left_ + 40, right_ - notes - kGap);
    }
    int Across(double value) const {
        return Whole(left_ + (value - low_) / (high_ - low_) * (plotRight_ - left_));
    }

    void Section(const std::vector<StaircaseRow>& rows, bool aroundZero) {
        Scale(rows, aroundZero);
        y_ += 10;
        const int top = y_;
        int before = 0;
        barRows_.clear();
        for (const StaircaseRow& row : rows) {
            if (narrow_) Label(row, kPad, y_ + 12, right_ - kPad, ChartAlign::Left);
            const int bar = narrow_ ? y_ + 17 : y_ + 4;
            if (!narrow_)
                Label(row, left_ - kGap, bar + 11, left_ - kGap - kPad, ChartAlign::Right);
            const int from = aroundZero ? Across(0) : row.total ? left_ : Across(row.from);
            const bool worse = !row.total && (aroundZero ? row.to < 0 : row.to > row.from);
            Bar(row, worse, std::min(from, Across(row.to)), std::max(from, Across(row.to)), bar);
            if (!narrow_ && !aroundZero && &row != rows.data())
                drawing_.lines.push_back({before, bar - 8, before, bar, kTotalPen});
            barRows_.push_back(bar);
            before = Across(row.to);
            y_ += narrow_ ? 36 : 22;
        }
        Ticks(top, aroundZero);
        if (aroundZero) {
            Upright(drawing_.lines, Across(0), top, kChartInk);
        }
        y_ += 18;
    }

    /// From the top of a section to its axis; past labels that stand above their bars.
    void Upright(std::vector<ChartLine>& lines, int x, int top, Colour colour) const {
        if (!narrow_) return lines.push_back({x, top, x, y_, colour});
        for (const int bar : barRows_) lines.push_back({x, bar - 2, x, bar + kBar + 2, colour});
    }

    void Label(const StaircaseRow& row, int x, int baseline, int width, ChartAlign align) {
        const std::string shown = ShortenedText(row.label, width, kTextSize);
        drawing_.texts.push_back({shown, shown == row.label ? "" : row.label, x, baseline,
                                  kTextSize, align, row.total, kChartInk});
    }

    void Bar(const StaircaseRow& row, bool worse, int from, int to, int y) {
        ChartBar bar;
        bar.bounds = {from, y, std::max(1, to - from), kBar};
        bar.brush = row.total ? kTotal : worse ? kRise : kStep;
        bar.pen = row.total ? kTotalPen : worse ? kRisePen : kStepPen;
        bar.hint = row.label + (row.note.empty() ? "" : ": " + row.note);
        drawing_.bars.push_back(std::move(bar));
        drawing_.texts.push_back({row.note, "", to + kGap / 2 + 2, y + 11, kSmallSize,
                                  ChartAlign::Left, row.total, kChartInk});
    }

    /// Round values as many as have room; of dates Mondays a whole number of weeks apart.
    void Ticks(int top, bool aroundZero) {
        const bool dates = staircase_.dates && !aroundZero;
        const auto text = [&](double value) {
            return aroundZero && staircase_.dates ? ShownNumber(value) : staircase_.tick(value);
        };
        const int widest =
            std::max(TextWidth(text(low_), kSmallSize), TextWidth(text(high_), kSmallSize)) +
            2 * kGap;
        const double least = (high_ - low_) * widest / std::max(1, plotRight_ - left_);
        const double step = dates ? std::ceil(least / 7) * 7 : RoundStep(least);
        const double origin = dates ? 2 : 0;  // day 2 since 1899-12-30 is a Monday
        for (double n = std::ceil((low_ - origin) / step); origin + n * step <= high_; ++n) {
            const double value = origin + n * step;
            const int x = Across(value);
            Upright(drawing_.grid, x, top, kChartHairline);
            drawing_.texts.push_back(
                {text(value), "", x, y_ + 14, kSmallSize, ChartAlign::Centre, false, kChartSubtle});
        }
        drawing_.lines.push_back({left_, y_, plotRight_, y_, kChartSubtle});
    }
    static std::string ShownNumber(double value) {
        std::string digits = std::to_string(value);
        digits.erase(digits.find_last_not_of('0') + 1);
        if (digits.back() == '.') digits.pop_back();
        return digits == "-0" ? "0" : digits;
    }

    void Text(const std::string& text, int x, int size, Colour colour, bool bold) {
        drawing_.texts.push_back({text, "", x, y_, size, ChartAlign::Left, bold, colour});
    }

    const Staircase& staircase_;
    const bool narrow_;
    ChartDrawing drawing_;
    std::vector<int> barRows_;  ///< upper edges of the section's bars
    int y_ = 0, left_ = 0, right_ = 0, plotRight_ = 0;
    double low_ = 0, high_ = 1;
};

}  // namespace

ChartDrawing DrawStaircase(const Staircase& staircase, int width) {
    return Layout(staircase, width).Draw();
}

}  // namespace refhost
