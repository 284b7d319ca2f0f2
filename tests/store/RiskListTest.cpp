#include "store/RiskList.h"

#include <gtest/gtest.h>

#include "base/Errors.h"

namespace kestrel {
namespace {

TEST(RiskList, FieldTextIsSplitIntoItsGroups) {
    const struct {
        const char* field;
        const char* parallel;
        const char* series;
    } rows[] = {
        {"", "", ""},
        {"(P)", "", ""},
        {"1,2,4", "", "1,2,4"},
        {"(2,5)", "", "2,5"},
        {"(2,5(P))", "2,5", ""},
        {"(1,3(P));(2,5)", "1,3", "2,5"},
        {" (1(P)) ; ( 2 , 5 ) ", "1", " 2 , 5 "},
        {" (1(P)) ", " 1 ", ""},         // only what stands beside ";" is trimmed
        {"(2);(1(P))", "2", "1P"},       // the marker counts wherever it stands
        {"(1(P));(2);(3)", "1", "2;3"},  // only the first ";" separates
        {"(1);(2)", "", "1;2"},
        {"(1p(P))", "1p", ""},
        {"(1(p))", "", "1p"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.field);
        EXPECT_EQ(GetRiskList(row.field, false), row.parallel);
        EXPECT_EQ(GetRiskList(row.field, true), row.series);
    }
}

TEST(RiskList, FieldTextIsMadeOfItsGroupsAndWrapsThemInPlace) {
    const struct {
        std::string parallel, series, field;
    } rows[] = {
        {"", "", ""},
        {" 1,2 ", "", "(1,2(P))"},
        {"", "2,5", "(2,5)"},
        {"1,3", "2,5", "(1,3(P));(2,5)"},
    };
    for (auto row : rows) {
        SCOPED_TRACE(row.field);
        EXPECT_EQ(MakeRiskFieldText(row.parallel, row.series), row.field);
        EXPECT_EQ(
            row.parallel + (row.parallel.empty() || row.series.empty() ? "" : ";") + row.series,
            row.field);
    }
}

TEST(RiskList, ItemsAreLeadingNumbersInTextOrder) {
    const struct {
        const char* list;
        RiskIDs ids;
    } rows[] = {
        {"", {}},
        {" , ,", {}},
        {"3,1,2", {3, 1, 2}},
        {" 3 ,3,12abc,", {3, 12}},
        {"abc,2.5,3.5,-1", {0, 2, 4, -1}},
        {"2147483647,2147483648,1e300", {2147483647, 0}},
    };
    for (const auto& row : rows) EXPECT_EQ(ListedIDs(row.list), row.ids) << row.list;
}

TEST(RiskList, AnIDCountsOnlyBetweenDelimiters) {
    const struct {
        const char* list;
        std::int32_t id;
        bool contains;
        const char* removed;
    } rows[] = {
        {"", 1, false, ""},        {"2", 2, true, ""},
        {"1,2,3", 1, true, "2,3"}, {"1,2,3", 2, true, "1,3"},
        {"1,2,3", 3, true, "1,2"}, {"12,21,2", 2, true, "121"},  // ",2" goes wherever it stands
        {"1,2,23", 2, true, "13"}, {"2,12,3", 2, true, "13"},
        {"2,2,2", 2, true, "2"},   {"1, 12", 12, false, ""},
        {"1 ,12", 1, false, ""},   {"12,21", 2, false, ""},
        {"(2)", 2, true, ")"},     {"111,11", 11, true, "111"},
        {"5", 55, false, ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.list << " and " << row.id);
        EXPECT_EQ(RiskListContains(row.list, row.id), row.contains);
        EXPECT_EQ(RemoveRiskFromList(row.list, row.id), row.removed);
    }
}

TEST(RiskList, RenumberingLowersWhatStandsAbove) {
    const struct {
        const char* list;
        const char* renumbered;
    } rows[] = {{"", ""},
                {" ", ""},
                {"1,2,3,4", "1,2,2,3"},
                {" 3 , 1", "2,1"},
                {"2", "2"},
                {"1,,5", "1,,4"},
                {"2.5,3.5", "2,3"},
                {"32768", "32767"},
                {"12abc,3;4", "11,2"},
                {"1, see note ,5", "1, see note ,4"},
                {"4,99999999999,1e999", "3,99999999999,1e999"}};
    for (const auto& row : rows)
        EXPECT_EQ(RenumberRiskList(row.list, 2), row.renumbered) << row.list;
}

}  // namespace
}  // namespace kestrel
