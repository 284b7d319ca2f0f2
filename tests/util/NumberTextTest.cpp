#include "base/NumberText.h"

#include <gtest/gtest.h>

#include <limits>

#include "base/Errors.h"

namespace kestrel {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(NumberText, GeneralTextIsShortestOfFifteenDigits) {
    const struct {
        double value;
        const char* text;
    } rows[] = {
        {0, "0"},
        {-0.0, "0"},
        {100, "100"},
        {-12.5, "-12.5"},
        {0.1 + 0.2, "0.3"},
        {1.0 / 3, "0.333333333333333"},
        {1e-7, "1E-07"},
        {0.0001, "0.0001"},
        {123456789012345, "123456789012345"},
        {1e15, "1E+15"},
        {1.5e300, "1.5E+300"},
        {-1.7976931348623157e308, "-1.79769313486231E+308"},
    };
    for (const auto& row : rows) EXPECT_EQ(GeneralText(row.value), row.text);
}

TEST(NumberText, FixedTextRoundsTheDecimalTextHalfAwayFromZero) {
    const struct {
        double value;
        int decimals;
        const char* text;
    } rows[] = {
        {1.005, 2, "1.01"},   {0.285, 2, "0.29"},
        {-1.005, 2, "-1.01"}, {2.5, 0, "3"},
        {0.5, 0, "1"},        {9.995, 2, "10.00"},
        {0.999, 2, "1.00"},   {0.004999, 2, "0.00"},
        {-0.004, 2, "0.00"},  {-0.0, 2, "0.00"},
        {0.05, 1, "0.1"},     {0.049, 1, "0.0"},
        {0, 3, "0.000"},      {1e20, 1, "100000000000000000000.0"},
        {1e-300, 2, "0.00"},  {123456.789, 2, "123456.79"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(FixedText(row.value, row.decimals), row.text);
    }
}

TEST(NumberText, PercentTextShiftsTheDecimalText) {
    EXPECT_EQ(PercentText(1.1), "110.0%");
    EXPECT_EQ(PercentText(0.0005), "0.1%");  // 0.05 % exactly; 0.0005 * 100 in binary is below
    EXPECT_EQ(PercentText(1.0045), "100.5%");
    EXPECT_EQ(PercentText(-0.0001), "0.0%");
    EXPECT_EQ(PercentText(0), "0.0%");
}

TEST(NumberText, WhatIsNotFiniteNeverBecomesText) {
    for (const double value : {kInfinity, -kInfinity, kNaN}) {
        EXPECT_THROW(GeneralText(value), ArithmeticError);
        EXPECT_THROW(FixedText(value, 2), ArithmeticError);
        EXPECT_THROW(PercentText(value), ArithmeticError);
    }
}

TEST(NumberText, ParseNumberTakesTheWholeText) {
    const struct {
        const char* text;
        double value;
    } good[] = {{"12.5", 12.5}, {" \t-3\n", -3}, {"+4", 4},     {".5", 0.5},
                {"5.", 5},      {"1E-07", 1e-7}, {"1e3", 1000}, {"-.25", -0.25}};
    for (const auto& row : good) EXPECT_EQ(ParseNumber(row.text), row.value) << row.text;

    for (const char* text : {"", " ", "12a", "1,5", "nan", "inf", "-inf", "0x10", "1e", "+-1",
                             "--1", "1 2", ".", "1e999", "1e-999", "%"})
        EXPECT_THROW(ParseNumber(text), DataError) << text;
}

TEST(NumberText, LeadingNumberNeverRaises) {
    const struct {
        const char* text;
        double value;
    } rows[] = {{"12abc", 12}, {"abc", 0},   {"", 0},         {"  7", 7}, {"-2.5x", -2.5},
                {"+", 0},      {"1e999", 0}, {"infinity", 0}, {"3e", 3},  {"0x10", 0}};
    for (const auto& row : rows) EXPECT_EQ(LeadingNumber(row.text), row.value) << row.text;
}

TEST(NumberText, IntegersRoundHalfToEvenAndStayInRange) {
    EXPECT_EQ(ToInt32(2.5), 2);
    EXPECT_EQ(ToInt32(3.5), 4);
    EXPECT_EQ(ToInt32(-0.5), 0);
    EXPECT_EQ(ToInt32(2147483647.4), 2147483647);
    EXPECT_EQ(ToInt32(2147483647.5), std::nullopt);
    EXPECT_EQ(ToInt32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(ToInt32(kNaN), std::nullopt);
    EXPECT_EQ(ToInt32(kInfinity), std::nullopt);
    EXPECT_EQ(ToInt16(32767.5), std::nullopt);
    EXPECT_EQ(ToInt16(-32768.5), -32768);
}

}  // namespace
}  // namespace kestrel
