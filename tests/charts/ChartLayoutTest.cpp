#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "ui/controls/ChartGeometry.h"
#include "ui/controls/ChartHints.h"
#include "ui/controls/ChartScale.h"
#include "ui/controls/ChartText.h"
#include "ui/driving_risks/DrivingRisks.h"

namespace kestrel::ui {
namespace {

struct Factor {
    std::string name;
    double value;
};

Register RegisterOf(const std::vector<Factor>& factors) {
    Register result;
    for (const Factor& factor : factors) {
        auto one = std::make_shared<clsRiskFactor>();
        one->strDescription = factor.name;
        one->dblDurSens = factor.value;
        result.push_back(one);
    }
    return result;
}

std::vector<Factor> Many(int count) {
    std::vector<Factor> factors;
    for (int i = 0; i < count; ++i)
        factors.push_back({"Factor " + std::to_string(i), (i % 2 ? -1.0 : 1.0) * (i + 1) / count});
    return factors;
}

Rect TextBounds(const ChartText& text) {
    const int width = TextWidth(text.text, text.size, text.bold);
    const int left = text.align == ChartAlign::Left    ? text.x
                     : text.align == ChartAlign::Right ? text.x - width
                                                       : text.x - width / 2;
    return {left, text.baseline - text.size, width, text.size * 5 / 4};
}

bool Overlap(const Rect& a, const Rect& b) {
    return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height &&
           b.y < a.y + a.height;
}

bool Within(const Rect& a, const ChartDrawing& drawing) {
    return a.x >= 0 && a.y >= 0 && a.x + a.width <= drawing.width &&
           a.y + a.height <= drawing.height;
}

void ExpectTidy(const ChartDrawing& drawing) {
    for (std::size_t i = 0; i < drawing.texts.size(); ++i) {
        const Rect bounds = TextBounds(drawing.texts[i]);
        EXPECT_TRUE(Within(bounds, drawing)) << drawing.texts[i].text;
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_FALSE(Overlap(bounds, TextBounds(drawing.texts[j])))
                << drawing.texts[i].text << " on " << drawing.texts[j].text;
        for (const ChartBar& bar : drawing.bars)
            EXPECT_FALSE(Overlap(bounds, bar.bounds)) << drawing.texts[i].text << " on a bar";
    }
    for (std::size_t i = 0; i < drawing.bars.size(); ++i) {
        EXPECT_TRUE(Within(drawing.bars[i].bounds, drawing)) << drawing.bars[i].hint;
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_FALSE(Overlap(drawing.bars[i].bounds, drawing.bars[j].bounds));
    }
}

const ChartText* TextOf(const ChartDrawing& drawing, const std::string& text) {
    for (const ChartText& candidate : drawing.texts)
        if (candidate.text == text) return &candidate;
    return nullptr;
}

TEST(ChartLayoutTest, NothingOverlapsOrIsClipped) {
    const std::string longName(300, 'W');
    const struct {
        const char* name;
        std::vector<Factor> factors;
        std::size_t bars;
    } rows[] = {
        {"none", {}, 0},
        {"one", {{"Late", 0.4}}, 1},
        {"fifty", Many(50), 50},
        {"all zero", {{"A", 0}, {"B", 100}}, 0},
        {"positive", {{"A", 1}, {"B", 0.5}}, 2},
        {"negative", {{"A", -1}, {"B", -0.5}}, 2},
        {"tiny", {{"A", 0.00031}, {"B", -0.00001}}, 2},
        {"long names", {{longName, 0.9}, {"A", -0.3}, {longName, -0.1}}, 3},
        {"scripts", {{"Задержка поставки", 0.6}, {"鋼材の納期", -0.3}, {"تأخر تسليم", 0.5}}, 3},
    };
    for (const auto& row : rows)
        for (const ChartSize size : {ChartSize{420, 260}, ChartSize{550, 380}, ChartSize{}}) {
            SCOPED_TRACE(std::string(row.name) + " " + std::to_string(size.width));
            Chart chart("chart");
            DrawTornado(chart, RegisterOf(row.factors), Measure::Duration, 50, "Plan");
            const ChartSize best = size.width > 0 ? size : ComfortableSize(chart);
            const ChartDrawing drawing = DrawingOf(chart, best.width, best.height);
            EXPECT_EQ(drawing.bars.size(), row.bars);
            ExpectTidy(drawing);
        }
}

TEST(ChartLayoutTest, BarsGoDownByRankAndAwayFromZero) {
    Chart chart("chart");
    const Register factors = RegisterOf({{"Up", 0.4}, {"Down", -0.8}});
    DrawTornado(chart, factors, Measure::Duration, 10, "Plan");
    const ChartDrawing drawing = DrawingOf(chart, 600, 300);
    ASSERT_EQ(drawing.bars.size(), 2u);
    const Rect first = drawing.bars[0].bounds, second = drawing.bars[1].bounds;
    EXPECT_EQ(drawing.bars[0].hint, "2 - Down: -80.0%");
    EXPECT_LT(first.y, second.y);
    EXPECT_NEAR(first.width, 2 * second.width, 1);
    EXPECT_NEAR(first.x + first.width, second.x, 1);
    EXPECT_EQ(drawing.bars[0].brush, 0x0000FFu) << "red";
    EXPECT_EQ(drawing.bars[0].pen, 0u);
    EXPECT_NE(TextOf(drawing, "-80.0%"), nullptr);

    DrawTornado(chart, factors, Measure::Duration, 1, "Plan");
    EXPECT_EQ(DrawingOf(chart, 600, 300).bars.size(), 1u) << "nothing of the earlier drawing";
}

TEST(ChartLayoutTest, AttributesDecideWhatIsDrawn) {
    Chart chart("chart");
    DrawTornado(chart, RegisterOf({{"A", 0.4}, {"B", 0.2}}), Measure::Cost, 10, "Plan");
    DrawTornado(chart, RegisterOf({{"A", 0.4}, {"B", 0.2}}), Measure::Duration, 10, "Plan");
    const std::uint64_t before = chart.Changes();
    ChartAttributes& channel = chart.Channel(0).attributes;
    EXPECT_GT(chart.Changes(), before);
    const int height = DrawingOf(chart, 600, 300).bars[0].bounds.height;
    channel.Set("BarWidth", 0.25);
    channel.Set("BarPenUseChannelColor", true);
    channel.Set("BarBrushStyle", 1);
    chart.YAxis(0).attributes.Set("GridLinesVisible", true);
    chart.XAxis(0).attributes.Set("ReverseScale", false);
    const ChartDrawing drawing = DrawingOf(chart, 600, 300);
    EXPECT_NEAR(drawing.bars[0].bounds.height * 2, height, 1);
    EXPECT_EQ(drawing.bars[0].pen, drawing.bars[0].brush);
    EXPECT_FALSE(drawing.bars[0].hasBrush);
    EXPECT_GT(drawing.bars[0].bounds.y, drawing.bars[1].bounds.y);
    EXPECT_FALSE(drawing.grid.empty());

    EXPECT_THROW(channel.Set("BarWidth", true), std::invalid_argument);
    EXPECT_THROW(channel.Set("BarWith", 0.5), std::invalid_argument);
    EXPECT_THROW(chart.YAxis(1), std::out_of_range);
    chart.Attributes().Set("XYAxesReverse", false);
    EXPECT_THROW(DrawingOf(chart, 600, 300), std::invalid_argument);
}

TEST(ChartTextTest, NamesAreShortenedBetweenCharacters) {
    const struct {
        const char* text;
        int width;
        const char* shown;
    } rows[] = {
        {"Short", 200, "Short"},
        {"鋼材の納期", 48, "鋼材の…"},
        {"Ab cd", 34, "Ab…"},
        {"e\xCC\x81"
         "e\xCC\x81"
         "WWWW",
         28,
         "e\xCC\x81"
         "e\xCC\x81…"},
        {"WWW", 0, "…"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(ShortenedText(row.text, row.width, 12), row.shown);
    }
    const auto tenEach = [](std::string_view text, int, bool) {
        return 10 * static_cast<int>(text.size());
    };
    EXPECT_EQ(ShortenedText("abcdefgh", 60, 12, false, tenEach), "abc…") << "three bytes are …";
}

TEST(ChartHintsTest, ThinBarsAndShortenedNamesCanBePointedAt) {
    Chart chart("chart");
    const std::string name(200, 'n');
    DrawTornado(chart, RegisterOf({{name, 1}, {"B", 0.001}}), Measure::Duration, 10, "Plan");
    const ChartDrawing drawing = DrawingOf(chart, 600, 80);
    const std::vector<ChartHint> hints = HintsOf(drawing);
    ASSERT_EQ(hints.size(), 3u);
    for (std::size_t i = 0; i < 2; ++i) {
        const Rect& bar = drawing.bars[i].bounds;
        EXPECT_EQ(hints[i].text, drawing.bars[i].hint);
        EXPECT_GE(std::min(hints[i].area.width, hints[i].area.height), 8);
        EXPECT_TRUE(hints[i].area.Contains(bar.x, bar.y));
        EXPECT_TRUE(hints[i].area.Contains(bar.x + bar.width - 1, bar.y + bar.height - 1));
    }
    EXPECT_EQ(hints[2].text, "1 - " + name);
    EXPECT_LE(hints[2].area.x + hints[2].area.width, drawing.bars[0].bounds.x);
    EXPECT_GT(hints[2].area.width, 100);
}

TEST(ChartScaleTest, TicksAreRoundAndFew) {
    const struct {
        double min, max;
        int count;
        const char* labels;
    } rows[] = {
        {-0.8, 0.5, 8, "-80% -60% -40% -20% 0% 20% 40% "},
        {0, 1, 5, "0% 20% 40% 60% 80% 100% "},
        {0, 0.00031, 4, "0.00% 0.01% 0.02% 0.03% "},
        {0, 0, 4, ""},
    };
    for (const auto& row : rows) {
        std::string labels;
        for (const ChartTick& tick : PercentTicks(row.min, row.max, row.count))
            labels += tick.label + " ";
        EXPECT_EQ(labels, row.labels);
    }
}

}  // namespace
}  // namespace kestrel::ui
