#include "refhost/charts/Cloud.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>

#include "base/NumberText.h"
#include "refhost/charts/FigureText.h"
#include "ui/controls/ChartScale.h"
#include "ui/controls/ChartText.h"

namespace refhost {
namespace {

using namespace kestrel::ui;

constexpr int kPad = 16, kGap = 8, kTitleSize = 16, kTextSize = 12, kSmallSize = 11;
constexpr int kCell = 4;
constexpr int kCorner = 20;  ///< room for a line of text in a corner of the plot
constexpr Colour kMark = 0x1E26B3;
/// One, two to three, four to seven iterations in a cell, and more.
constexpr Colour kKept[] = {0xE6C9A8, 0xCF9F6B, 0xA96C38, 0x6B3F1F};
constexpr Colour kMissed[] = {0xDEDAD6, 0xBDB7B1, 0x918A83, 0x63554B};

int Whole(double value) { return static_cast<int>(std::lround(value)); }

/// The values that an axis shows.
struct Span {
    double from = 0, to = 0;

    static Span Of(const std::vector<double>& values, double least) {
        const auto [low, high] = std::minmax_element(values.begin(), values.end());
        const double air = std::max((*high - *low) * 0.08, least);
        return {*low - air, *high + air};
    }
    /// Widens it so that a target stands in it, unless all else would shrink to little.
    void ReachTo(double value) {
        const double width = to - from, air = width * 0.08;
        if (value < from && value > from - 2 * width) from = value - air;
        if (value > to && value < to + 2 * width) to = value + air;
    }
    double Share(double value) const { return (std::clamp(value, from, to) - from) / (to - from); }
};

/// Lays out one chart.
class Layout {
 public:
    Layout(const std::vector<double>& finish, const std::vector<double>& cost,
           const std::optional<CloudTarget>& target, const DateFormatter& date, int width,
           int height)
        : finish_(finish), cost_(cost), target_(target), date_(date) {
        drawing_.width = width;
        drawing_.height = height;
        days_ = Span::Of(finish, 0.5);
        money_ = Span::Of(cost, std::max(0.5, std::abs(cost.front()) * 1e-4));
        if (target) {
            days_.ReachTo(target->finish);
            money_.ReachTo(target->cost);
        }
        moneyStep_ = RoundStep((money_.to - money_.from) / 6);
        left_ = kPad + MoneyWidth() + kGap;
        right_ = std::max(left_ + 1, width - kPad);
        top_ = kPad + kTitleSize + 54;
        bottom_ = std::max(top_ + 1, height - kPad - 44);
    }

    ChartDrawing Draw(const std::string& title) {
        drawing_.title = title;
        Text(ShortenedText(title, right_ - kPad, kTitleSize, true), kPad, kPad + kTitleSize - 2,
             kTitleSize, ChartAlign::Left, 0, true);
        Text("Project cost", kPad, kPad + kTitleSize + 24, kTextSize, ChartAlign::Left,
             kChartSubtle);
        Text("Project finish", (left_ + right_) / 2, drawing_.height - kPad + 2, kTextSize,
             ChartAlign::Centre, kChartSubtle);
        DrawMoney();
        DrawDays();
        DrawCells();
        if (target_) DrawTarget();
        return std::move(drawing_);
    }

 private:
    int X(double finish) const { return left_ + Whole(days_.Share(finish) * (right_ - left_)); }
    int Y(double cost) const { return bottom_ - Whole(money_.Share(cost) * (bottom_ - top_)); }
    std::string Money(double amount) const {
        return moneyStep_ < 1 ? MoneyText(amount) : WholeMoneyText(amount);
    }
    int MoneyWidth() const {
        return std::max(TextWidth(Money(money_.from), kSmallSize),
                        TextWidth(Money(money_.to), kSmallSize));
    }

    void DrawMoney() {
        for (double n = std::ceil(money_.from / moneyStep_); n * moneyStep_ <= money_.to; ++n) {
            const int y = Y(n * moneyStep_);
            drawing_.grid.push_back({left_, y, right_, y, kChartHairline});
            Text(Money(n * moneyStep_), left_ - kGap, y + 4, kSmallSize, ChartAlign::Right,
                 kChartInk);
        }
    }

    void DrawDays() {
        const double room = TextWidth(date_(days_.to), kSmallSize) + 2 * kGap;
        const double most = std::max(1.0, (right_ - left_) / room);
        double step = 1;
        for (int i = 0; (days_.to - days_.from) / step > most; ++i) step *= i == 1 ? 3.5 : 2;
        const double monday = 2;  // a day serial: 1 January 1900
        for (double day = monday + std::ceil((days_.from - monday) / step) * step; day <= days_.to;
             day += step) {
            const int x = X(day);
            drawing_.lines.push_back({x, bottom_, x, bottom_ + 4, kChartSubtle});
            if (x + room / 2 <= drawing_.width && x - room / 2 >= 0)
                Text(date_(day), x, bottom_ + 18, kSmallSize, ChartAlign::Centre, kChartInk);
        }
        drawing_.lines.push_back({left_, bottom_, right_, bottom_, kChartInk});
    }

    bool InTime(std::size_t i) const { return target_ && finish_[i] <= target_->finish; }
    bool Within(std::size_t i) const { return target_ && cost_[i] <= target_->cost; }

    void DrawCells() {
        struct Cell {
            int kept = 0, missed = 0;
        };
        const int columns = right_ / kCell + 1, rows = bottom_ / kCell + 1;
        std::vector<Cell> cells(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows));
        for (std::size_t i = 0; i < finish_.size(); ++i) {
            const int place = X(finish_[i]) / kCell * rows + Y(cost_[i]) / kCell;
            Cell& cell = cells[static_cast<std::size_t>(place)];
            ++(InTime(i) && Within(i) ? cell.kept : cell.missed);
        }
        for (std::size_t place = 0; place < cells.size(); ++place) {
            const Cell& cell = cells[place];
            const int count = cell.kept + cell.missed;
            if (count == 0) continue;
            const int column = static_cast<int>(place) / rows, row = static_cast<int>(place) % rows;
            ChartBar bar;
            bar.bounds = {column * kCell, row * kCell, kCell, kCell};
            const int shade = count < 2 ? 0 : count < 4 ? 1 : count < 8 ? 2 : 3;
            bar.brush = (cell.kept >= cell.missed ? kKept : kMissed)[shade];
            bar.hasPen = false;
            drawing_.bars.push_back(std::move(bar));
        }
    }

    void DrawTarget() {
        int shares[2][2] = {};
        for (std::size_t i = 0; i < finish_.size(); ++i) ++shares[InTime(i)][Within(i)];
        const auto corner = [&](const char* what, int count, bool right, int baseline) {
            const double share = count / static_cast<double>(finish_.size());
            Text(what + (" " + kestrel::PercentText(share)), right ? right_ - 4 : left_ + 4,
                 baseline, kSmallSize, right ? ChartAlign::Right : ChartAlign::Left, kChartInk,
                 true);
        };
        corner("In time, too dear", shares[1][0], false, top_ + kCorner - 6);
        corner("Late and too dear", shares[0][0], true, top_ + kCorner - 6);
        corner("Both kept", shares[1][1], false, bottom_ - 6);
        corner("Late, within the cost", shares[0][1], true, bottom_ - 6);

        const int x = X(target_->finish), y = Y(target_->cost);
        drawing_.lines.push_back({x, top_ - 12, x, bottom_, kMark, true});
        drawing_.lines.push_back({left_, y, right_, y, kMark, true});
        std::string finish = date_(target_->finish);
        if (target_->finish > days_.to) finish += ", further right";
        if (target_->finish < days_.from) finish += ", further left";
        const int half = TextWidth(finish, kSmallSize, true) / 2;
        Text(finish, std::clamp(x, kPad + half, std::max(kPad + half, right_ - half)), top_ - 16,
             kSmallSize, ChartAlign::Centre, kMark, true);
        std::string cost = Money(target_->cost);
        if (target_->cost > money_.to) cost += ", further up";
        if (target_->cost < money_.from) cost += ", further down";
        // Below the line where the corner's text stands above it.
        const int above = y - 5 < top_ + 2 * kCorner ? y + 13 : y - 5;
        Text(cost, right_ - 4, above > bottom_ - kCorner ? bottom_ - kCorner - 4 : above,
             kSmallSize, ChartAlign::Right, kMark, true);
    }

    void Text(const std::string& text, int x, int baseline, int size, ChartAlign align,
              Colour colour, bool bold = false) {
        drawing_.texts.push_back({text, "", x, baseline, size, align, bold, colour});
    }

    const std::vector<double>& finish_;
    const std::vector<double>& cost_;
    const std::optional<CloudTarget>& target_;
    const DateFormatter& date_;
    ChartDrawing drawing_;
    Span days_, money_;
    double moneyStep_ = 1;
    int left_ = 0, top_ = 0, right_ = 0, bottom_ = 0;  ///< of the plot
};

}  // namespace

ChartDrawing DrawCloud(const std::vector<double>& finish, const std::vector<double>& cost,
                       const std::optional<CloudTarget>& target, const std::string& title,
                       const DateFormatter& date, int width, int height) {
    if (finish.empty() || cost.size() != finish.size())
        throw std::invalid_argument("a cloud needs a finish and a cost for each iteration");
    return Layout(finish, cost, target, date, width, height).Draw(title);
}

}  // namespace refhost
