#include "support/AddInTest.h"
#include "ui/controls/CheckBox.h"
#include "ui/controls/OptionButton.h"
#include "ui/controls/TextBox.h"

namespace kestrel::test {
namespace {

/// The options dialog, opened through the "options" command.
class OptionsTest : public AddInTest {
 protected:
    /// All options, in the order in which OK stores them.
    std::string AllStored() const {
        return Stored("FileLocation") + " " + Stored("OptionSetting") + " " +
               Stored("CalculationOption") + " " + Stored("ShowIterations");
    }
    void Open(const std::function<void(User&)>& script) {
        runner.script = script;
        addin.LaunchOptions();
    }
    /// Numbers of the buttons that are selected: "1" to "3", then "S" or "A"; "-" for none.
    static std::string Selected(User& user) {
        std::string names;
        for (const auto& [name, sign] : {std::pair{"OptionButton1", '1'},
                                         {"OptionButton2", '2'},
                                         {"OptionButton3", '3'},
                                         {"OptionSimple", 'S'},
                                         {"OptionAdvanced", 'A'}})
            if (user.Get<ui::OptionButton>(name).Selected()) names += sign;
        return names;
    }
};

TEST_F(OptionsTest, ShowsWhatIsStoredAndOkStoresNoChoiceThatWasNotMade) {
    const struct {
        const char* option;
        const char* calculation;
        const char* iterations;
        const char* selected;
        bool fileEnabled;
        const char* storedByOk;
    } cases[] = {
        {"", "", "", "2S", false, "C:\\Host\\Samples\\SampleRiskFactors.xml 2 1 FALSE"},
        {"1", "2", "TRUE", "1A", true, "C:\\Host\\Samples\\SampleRiskFactors.xml 1 2 TRUE"},
        {"3", "1", "True", "3S", false, "C:\\Host\\Samples\\SampleRiskFactors.xml 3 1 FALSE"},
        {"4", "02", "x", "", true, "C:\\Host\\Samples\\SampleRiskFactors.xml 4 02 FALSE"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.option << "," << c.calculation);
        host.application->settings.clear();
        if (*c.option) Option("OptionSetting", c.option);
        if (*c.calculation) Option("CalculationOption", c.calculation);
        if (*c.iterations) Option("ShowIterations", c.iterations);
        Open([&](User& user) {
            EXPECT_EQ(Selected(user), c.selected);
            EXPECT_EQ(user.Get<ui::TextBox>("txtFileName").Enabled(), c.fileEnabled);
            EXPECT_EQ(user.Get<Control>("cmdBrowse").Enabled(), c.fileEnabled);
            EXPECT_EQ(user.Get<ui::CheckBox>("chkIterations").Checked(),
                      std::string(c.iterations) == "TRUE");
            user.Click("cmdOk");
            EXPECT_FALSE(user.TheForm().IsOpen());
        });
        EXPECT_EQ(AllStored(), c.storedByOk);
    }
}

TEST_F(OptionsTest, AnEmptyGridStillKeepsTheFileThatWasTyped) {
    Option("OptionSetting", "1");
    Option("FileLocation", "D:\\a");
    Open([](User& user) {
        user.Click("txtFileName");
        user.Type("b.xml");
        user.PressLetter('E', false, true);
        EXPECT_FALSE(user.Get<ui::TextBox>("txtFileName").Enabled());
        user.PressLetter('C', false, true);
        user.PressLetter('S', false, true);
        user.Click("OptionButton3");
        user.Press(Key::Enter);
    });
    EXPECT_EQ(AllStored(), "D:\\ab.xml 3 2 TRUE");
}

TEST_F(OptionsTest, CancelAndEscStoreNothing) {
    for (const bool byKey : {false, true}) {
        Open([&](User& user) {
            user.Click("OptionButton3");
            user.Click("OptionAdvanced");
            user.Click("chkIterations");
            if (byKey)
                user.Press(Key::Escape);
            else
                user.Click("cmdCancel");
            EXPECT_FALSE(user.TheForm().IsOpen());
        });
    }
    EXPECT_TRUE(host.application->settings.empty());
}

TEST_F(OptionsTest, BrowsingStartsInTheSamplesAndCancellingKeepsTheFile) {
    Option("OptionSetting", "1");
    Option("FileLocation", "old.xml");
    Open([&](User& user) {
        user.Click("cmdBrowse");
        EXPECT_EQ(user.Get<ui::TextBox>("txtFileName").Text(), "old.xml");
        desktop.chosenFiles = {"new.xml"};
        user.Click("cmdBrowse");
        user.Click("OptionButton2");
        desktop.chosenFiles = {"never.xml"};
        user.Click("cmdBrowse");
        user.Click("cmdOk");
    });
    EXPECT_EQ(Stored("FileLocation"), "new.xml");
    ASSERT_EQ(desktop.openDialogs.size(), 2u) << "the button is off with the second choice";
    EXPECT_EQ(desktop.openDialogs[0].title, "Risk Factors");
    EXPECT_EQ(desktop.openDialogs[0].initialFolder, "C:\\Host\\Samples\\");
    ASSERT_EQ(desktop.openDialogs[0].filters.size(), 2u);
    EXPECT_EQ(desktop.openDialogs[0].filters[0],
              std::make_pair(std::string("Risk Factors (*.xml)"), std::string("*.xml")));
}

TEST_F(OptionsTest, FailuresKeepTheDialogOrNeverOpenIt) {
    Open([&](User& user) {
        host.log.failing = {"Application.SaveSetting"};
        user.Click("cmdOk");
        EXPECT_TRUE(user.TheForm().IsOpen());
    });
    host.log.failing = {"Application.GetSetting"};
    addin.LaunchOptions();
    EXPECT_EQ(runner.shown, 1);
    EXPECT_EQ(desktop.messages.size(), 2u) << "each is told";
}

}  // namespace
}  // namespace kestrel::test
