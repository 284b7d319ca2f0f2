#include "util/modToolBox.h"

#include <gtest/gtest.h>

#include "support/FakeDesktop.h"
#include "support/FakeHost.h"

namespace kestrel {
namespace {

using test::FakeDesktop;
using test::FakeHost;

TEST(ToolBox, BrowsingCleansThePath) {
    FakeDesktop desktop;
    desktop.chosenFiles = {std::string(" C:\\a b.xml \0\0", 14)};
    EXPECT_EQ(BrowseForFile(desktop, "Title", {}, "C:\\"), "C:\\a b.xml");
    EXPECT_EQ(BrowseForFile(desktop, "Title", {}, ""), "");
}

TEST(ToolBox, HostVersionIsComparedPartByPart) {
    const struct {
        std::int32_t version[3];
        bool passes;
    } rows[] = {{{8, 0, 100}, true},  {{8, 0, 99}, false}, {{8, 1, 0}, true},
                {{7, 9, 500}, false}, {{9, 0, 0}, true},   {{8, 0, 101}, true}};
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.version));
        FakeHost host;
        FakeDesktop desktop;
        std::copy(std::begin(row.version), std::end(row.version), host.application->version);
        EXPECT_EQ(CheckHostVersion(*host.application, desktop, 8, 0, 100, false), row.passes);
        EXPECT_TRUE(desktop.messages.empty());
        CheckHostVersion(*host.application, desktop, 8, 0, 100, true);
        EXPECT_EQ(desktop.messages.empty(), row.passes);
    }
}

TEST(ToolBox, ListsAreCutAtTheirSeparator) {
    const struct {
        const char* list;
        int index;
        const char* separator;
        const char* item;
    } rows[] = {
        {"4,5,6", 1, ",", "4"}, {"4,5,6", 2, ",", "5"},  {"4,5,6", 3, ",", "6"},
        {"4,5,6", 4, ",", ""},  {"4,5,6", 0, ",", ""},   {"12.5%", 1, "%", "12.5"},
        {"12.5%", 2, "%", ""},  {"a , b", 2, ",", " b"}, {"a--b--c", 2, "--", "b"},
        {"", 1, ",", ""},       {"abc", 1, "", "abc"},   {"a---b", 2, "--", "-b"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.list << " at " << row.index);
        EXPECT_EQ(GetListItem(row.list, row.index, row.separator), row.item);
    }
    EXPECT_EQ(CountListItems("4,5,6", ","), 3);
    EXPECT_EQ(CountListItems("", ","), 1);
    EXPECT_EQ(CountListItems("a--b---", "--"), 3);
    EXPECT_EQ(CountListItems("abc", ""), 1);
}

}  // namespace
}  // namespace kestrel
