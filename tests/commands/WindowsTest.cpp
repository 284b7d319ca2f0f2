#include <set>

#include "support/AddInTest.h"

namespace kestrel::test {
namespace {

TEST_F(AddInTest, EveryWindowHasItsHelpItsAccessKeysAndClosesByEsc) {
    StoreFactors(1);
    host.AddTask("1", "Dig");
    const struct {
        const char* name;
        void (clsKestrelDll::*open)();
        const char* assignView;
        const char* topic;
    } rows[] = {
        {"editor", &clsKestrelDll::LaunchEdit, "1", "Defining_Risk_Factors"},
        {"assignment", &clsKestrelDll::LaunchAssign, "1", "Assigning_Risk_Factors_to_tasks"},
        {"lists", &clsKestrelDll::LaunchAssign, "2", "Assigning_Risk_Factors_to_tasks"},
        {"options", &clsKestrelDll::LaunchOptions, "1",
         "Risk_Factors_behavior_during_Risk_Analysis"},
        {"driving risks", &clsKestrelDll::LaunchShow, "1", "Analysing_the_effect_of_Risk_Factors"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Option("AssignView", row.assignView);
        desktop.helpTopics.clear();
        desktop.messages.clear();
        runner.shown = 0;
        runner.script = [&](User& user) {
            std::multiset<char32_t> keys;
            for (const Control* control : user.TheForm().Controls())
                if (control->Mnemonic() != 0) keys.insert(control->Mnemonic());
            EXPECT_FALSE(keys.empty());
            for (const char32_t key : keys)
                EXPECT_EQ(keys.count(key), 1u) << static_cast<std::uint32_t>(key);

            user.Click("cmdHelp");
            desktop.helpFails = true;
            user.Click("cmdHelp");
            desktop.helpFails = false;
            host.log.failing = {"Application.Path"};
            user.Click("cmdHelp");
            host.log.failing.clear();
            EXPECT_TRUE(user.TheForm().IsOpen());
            user.Press(Key::Escape);
            EXPECT_FALSE(user.TheForm().IsOpen());
        };
        (addin.*row.open)();
        EXPECT_EQ(runner.shown, 1);
        EXPECT_EQ(desktop.helpTopics, std::vector<std::string>{"C:\\Host\\Help.chm::/" +
                                                               std::string(row.topic) + ".html"});
        const std::string told =
            "There was a problem opening the Risk Factors on-line help.\r\n"
            "Please contact Support for assistance.";
        EXPECT_EQ(desktop.MessageText(), told + " | " + told);
    }
}

}  // namespace
}  // namespace kestrel::test
