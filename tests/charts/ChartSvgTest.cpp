#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "refhost/charts/FinishDistribution.h"
#include "support/FakeDesktop.h"
#include "ui/controls/ChartSvg.h"
#include "ui/controls/ChartText.h"
#include "ui/driving_risks/DrivingRisks.h"

namespace refhost {
namespace {

using namespace kestrel::ui;
using kestrel::SelectElements;

std::string SvgOfOneFactor(const std::string& name) {
    auto factor = std::make_shared<kestrel::clsRiskFactor>();
    factor->strDescription = name;
    factor->dblDurSens = 0.5;
    Chart chart("chart");
    DrawTornado(chart, {factor}, Measure::Duration, 10, "Plan");
    return ChartSvgText(chart, 800, 300);
}

TEST(ChartSvgTest, AnyNameGivesADocumentThatHoldsItWhole) {
    kestrel::test::FakeDesktop desktop;
    const std::string longName(120, 'x');
    const struct {
        std::string name, read;
    } rows[] = {
        {"<b>\"Bold\" & 'brave'</b> ]]>", "<b>\"Bold\" & 'brave'</b> ]]>"},
        {"&amp;", "&amp;"},
        {"鋼材の納期 تأخر Задержка", "鋼材の納期 تأخر Задержка"},
        {"bell\x01", "bell\xEF\xBF\xBD"},
        {longName, longName},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const auto document = desktop.ParseXml(SvgOfOneFactor(row.name));
        EXPECT_EQ(document.root.TextContent().find(row.read) != std::string::npos, true);
        ASSERT_NE(document.root.Attribute("viewBox"), nullptr);
        EXPECT_EQ(*document.root.Attribute("viewBox"), "0 0 800 300");
    }
}

class FinishDistributionTest : public testing::Test {
 protected:
    static std::string Date(double serial) {
        return "day " + std::to_string(static_cast<int>(std::floor(serial)));
    }
    static ChartDrawing Draw(std::vector<double> finish, const DistributionContext& context = {}) {
        return FinishDistribution(std::move(finish), "Finish", Date, 800, 440, context);
    }
};

TEST_F(FinishDistributionTest, MarksStandAtTheirPercentiles) {
    std::vector<double> finish;
    for (int i = 100; i >= 0; --i) finish.push_back(46000 + i);
    const ChartDrawing drawing = Draw(finish);
    std::vector<std::string> marks;
    for (const ChartText& text : drawing.texts)
        if (text.text[0] == 'P' && text.text[1] != 'r') marks.push_back(text.text);
    EXPECT_EQ(marks, (std::vector<std::string>{"P10 day 46010", "P50 day 46050", "P80 day 46080",
                                               "P90 day 46090"}));
    const auto& curve = drawing.curves.at(0).points;
    std::vector<int> dashed;
    for (const ChartLine& line : drawing.lines)
        if (line.dashed) dashed.push_back(line.x1);
    ASSERT_EQ(dashed.size(), 4u);
    EXPECT_NEAR(curve.at(51).first, dashed[1], 1) << "the curve meets the mark half way up";
    EXPECT_NEAR(curve.at(51).second, (curve.front().second + curve.back().second) / 2, 0.01);
}

TEST_F(FinishDistributionTest, EveryIterationIsInABarAndNothingIsClipped) {
    std::vector<double> years, hours, leftTail;
    for (int i = 0; i < 1000; ++i) {
        years.push_back(40000 + i * 3.7);
        hours.push_back(46000 + i / 10000.0);
        leftTail.push_back(46000 + std::sqrt(i * 100.0));
    }
    leftTail.resize(2000, 46320);
    const struct {
        const char* name;
        std::vector<double> finish;
        int mostBars;
    } rows[] = {{"years", years, 40},
                {"hours", hours, 40},
                {"left tail", leftTail, 40},
                {"a single date", std::vector<double>(500, 46000.7), 1},
                {"a single iteration", {46000.0}, 1}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const ChartDrawing drawing = Draw(row.finish, {.planned = 9000, .without = {}});
        EXPECT_TRUE(std::any_of(drawing.texts.begin(), drawing.texts.end(), [](const auto& text) {
            return text.text == "Planned day 9000, further left";
        }));
        std::size_t counted = 0;
        for (const ChartBar& bar : drawing.bars)
            counted += std::stoul(bar.hint.substr(bar.hint.find(": ") + 2));
        EXPECT_EQ(counted, row.finish.size());
        EXPECT_LE(drawing.bars.size(), static_cast<std::size_t>(row.mostBars));
        for (const ChartText& text : drawing.texts) {
            const int width = TextWidth(text.text, text.size, text.bold);
            const int left = text.align == ChartAlign::Left    ? text.x
                             : text.align == ChartAlign::Right ? text.x - width
                                                               : text.x - width / 2;
            EXPECT_GE(left, 0) << text.text;
            EXPECT_LE(left + width, drawing.width) << text.text;
        }
    }
    EXPECT_THROW(Draw({}), std::invalid_argument);
}

}  // namespace
}  // namespace refhost
