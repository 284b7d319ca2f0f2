#include <gtest/gtest.h>

#include "store/GridRegister.h"
#include "ui/editor/CellRules.h"
#include "ui/editor/RiskGrid.h"

namespace kestrel::ui {
namespace {

TEST(CellRulesTest, PercentagesAreNormalisedAndOddFormsLeftAsTyped) {
    const struct {
        const char* typed;
        const char* left;
    } cases[] = {
        {"5", "5.00%"},     {"7.5", "7.50%"},    {"", "100.00%"},     {"  ", "100.00%"},
        {"50%", "50.00%"},  {"12.5%", "12.50%"}, {"12.34", "12.34%"}, {"12.345%", "12.345%"},
        {".5", ".5%"},      {"12.", "12.%"},     {"5%5", "5.00%"},    {"%", ".00%"},
        {"1:2", "1:2.00%"}, {"1.2.3", "1.2.3%"}, {"1..", "1..0%"},    {"5%.", "5%."},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.typed);
        EXPECT_EQ(NormalisedPercent(c.typed), c.left);
        EXPECT_EQ(NormalisedPercent(c.left), c.left) << "leaving the row again changes nothing";
    }
}

TEST(CellRulesTest, EachColumnAcceptsItsCharacters) {
    std::string accepted[3];
    const int columns[] = {kDescriptionColumn, kDurLikelyColumn, kCorrelatedToColumn};
    for (int i = 0; i < 3; ++i)
        for (char32_t code = 1; code < 300; ++code)
            if (AcceptsCharacter(columns[i], false, code)) accepted[i] += static_cast<char>(code);
    EXPECT_EQ(accepted[0].size(), 95u) << "all printable ones but '|', and Backspace";
    EXPECT_EQ(accepted[0].find('|'), std::string::npos);
    EXPECT_EQ(accepted[1], "\b%&'(.0123456789:");
    EXPECT_EQ(accepted[2], "\b%&'(0123456789:");
    for (const int column : {kLikelihoodColumn, kCorrelatedToColumn})
        EXPECT_FALSE(AcceptsCharacter(column, true, U'1')) << column;
}

TEST(RiskGridTest, BlankCellsGetDefaultsAndUnnamedFactorsARunningNumber) {
    Grid grid("Tabulon1");
    SetUpRiskGrid(grid);
    for (const char* name : {"", "Frost", ""})
        grid.SetText(AppendNumberedRow(grid), kDescriptionColumn, name);
    AppendNumberedRow(grid);
    FillBlankCells(grid);
    EXPECT_EQ(grid.Text(1, kDescriptionColumn), "Risk Factor1");
    EXPECT_EQ(grid.Text(3, kDescriptionColumn), "Risk Factor2");
    EXPECT_EQ(grid.Text(2, kLikelihoodColumn), "100.00%");
    EXPECT_EQ(grid.Text(2, kCorrelatedToColumn), "0");
    EXPECT_FALSE(RowHasContent(grid, 4));
}

}  // namespace
}  // namespace kestrel::ui
