#include "editor/EditorTest.h"

namespace kestrel::test {
namespace {

constexpr const char* kTwoFactors =
    "<RiskFactors Version=\"RiskFactors1.1\">"
    "<RiskFactor><Name>Rain</Name><Minimum>90.00%</Minimum><MostLikely>100%</MostLikely>"
    "<Maximum>110.5%</Maximum><Probability>25%</Probability></RiskFactor>"
    "<RiskFactor><Name></Name><Minimum>100</Minimum><MostLikely>100</MostLikely>"
    "<Maximum>100</Maximum><Probability>5</Probability><CorrelatedTo>1</CorrelatedTo></RiskFactor>"
    "</RiskFactors>";

TEST_F(EditorTest, APlanWithoutFactorsStartsAsTheOptionSays) {
    const std::string path = File("default.xml", kTwoFactors);
    const struct {
        const char* option;
        const char* location;
        std::string chosen;
        const char* rows;
        int dialogs;
    } cases[] = {
        {"1", path.c_str(), "", "Rain Risk Factor1  ", 0},
        {"1", "/nowhere.xml", path, "Rain Risk Factor1  ", 1},
        {"1", "/nowhere.xml", "", " ", 1},
        {"2", "", path, "Rain Risk Factor1  ", 1},
        {"2", "", "", " ", 1},
        {"3", path.c_str(), "", " ", 0},
        {"x", path.c_str(), "", " ", 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.option << " " << c.location << " " << c.chosen);
        desktop.openDialogs.clear();
        desktop.messages.clear();
        Option("OptionSetting", c.option);
        Option("FileLocation", c.location);
        desktop.chosenFiles = {c.chosen};
        Edit([&](User&) {
            EXPECT_EQ(Column(0), c.rows);
            EXPECT_EQ(Column(Grid::kRowHeader).substr(0, 2), "1.");
        });
        EXPECT_EQ(desktop.openDialogs.size(), static_cast<std::size_t>(c.dialogs));
        EXPECT_EQ(desktop.MessageText(), std::string(c.location) == "/nowhere.xml"
                                             ? "The file '/nowhere.xml' does not exist."
                                             : "");
    }
    EXPECT_EQ(runner.shown, 7);
}

TEST_F(EditorTest, ReplacesARegisterThatCannotBeReadOnlyWhenTheUserAgrees) {
    Option("OptionSetting", "3");
    for (const std::string unreadable : {"<RiskFactors>", "<Notes/>", "<r><RiskFactor/></r>"}) {
        SCOPED_TRACE(unreadable);
        host.plan->texts["RiskFactors"] = unreadable;
        desktop.messages.clear();
        runner.shown = 0;
        Edit([](User& user) { user.Click("cmdOKRisk"); });
        EXPECT_EQ(runner.shown, 0);
        ASSERT_EQ(desktop.messages.size(), 1u);
        EXPECT_NE(desktop.messages[0].text.find("(its text \"RiskFactors\") cannot be read: "),
                  std::string::npos);
        EXPECT_EQ(host.plan->texts["RiskFactors"], unreadable);
        desktop.answers = {MessageAnswer::Yes};
        Edit([](User& user) { user.Click("cmdOKRisk"); });
        EXPECT_EQ(host.plan->texts["RiskFactors"], "<RiskFactors Version=\"RiskFactors1.00\"/>");
    }
}

TEST_F(EditorTest, OpenDialogsStartWhereThePlansAre) {
    Option("OptionSetting", "2");
    Edit([](User& user) { user.Click("cmdLoadFile"); });
    desktop.registry[{"Software\\Schedulon Software\\Schedulon8x\\Options", "PlanPath"}] = {
        1, std::string("D:\\Plans\0", 9)};
    Edit([](User&) {});
    ASSERT_EQ(desktop.openDialogs.size(), 3u);
    EXPECT_EQ(desktop.openDialogs[0].title, "Risk Factors");
    EXPECT_EQ(desktop.openDialogs[0].filters[0].first, "Risk Factors (*.xml)");
    EXPECT_EQ(desktop.openDialogs[1].filters[0].first, "RiskFactors (*.xml)");
    EXPECT_EQ(desktop.openDialogs[1].filters[0].second, "*.xml");
    EXPECT_EQ(desktop.openDialogs[1].initialFolder, "C:\\Host\\Samples\\");
    EXPECT_EQ(desktop.openDialogs[2].initialFolder, "D:\\Plans");

    Option("OptionSetting", "1");
    Option("FileLocation", "/nowhere.xml");
    const std::string path = File("other.xml", kTwoFactors);
    desktop.chosenFiles = {path};
    Edit([](User&) {});
    EXPECT_EQ(desktop.openDialogs[3].initialFolder, "C:\\Host\\Samples\\");
    EXPECT_EQ(Stored("FileLocation"), path) << "chosen for a missing default, it becomes that";
}

TEST_F(EditorTest, AFileThatIsRefusedLeavesTheGridAsItWas) {
    StoreFactors(2);
    const struct {
        const char* name;
        const char* content;
        const char* message;  ///< % stands for the path
    } cases[] = {
        {"later.xml", "<RiskFactors Version=\"RiskFactors1.2\"/>",
         "The file % is not a valid Risk Factors file or may be corrupted and cannot be loaded "
         "into Quillon Risk Analysis"},
        {"versionless.xml", "<RiskFactors><RiskFactor/></RiskFactors>",
         "The file '%' is not a valid Risk Factors file."},
        {"text.xml", "Rain, 90", "The file '%' is not a valid Risk Factors file."},
        {"broken.xml", "<RiskFactors Version=\"RiskFactors1.00\"><RiskFactor/></RiskFactors>", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const std::string path = File(c.name, c.content);
        std::string message = c.message;
        if (const auto at = message.find('%'); at != std::string::npos)
            message.replace(at, 1, path);
        desktop.messages.clear();
        desktop.chosenFiles = {path};
        Edit([&](User& user) {
            user.ClickCell("Tabulon1", 2, 3);
            user.Click("cmdLoadFile");
            EXPECT_EQ(Column(0), "F1 F2  ");
            EXPECT_EQ(Current(), "2,3");
        });
        if (!*c.message)
            message =
                "The risk factors file could not be loaded; the rows in this "
                "window are as they were.\r\n\r\nRisk factor 1: ";
        EXPECT_EQ(desktop.MessageText().substr(0, message.size()), message);
        EXPECT_EQ(desktop.messages.size(), 1u);

        runner.shown = 0;
        const std::string stored = std::exchange(host.plan->texts["RiskFactors"], "");
        Option("OptionSetting", "1");
        Option("FileLocation", path);
        Edit([](User&) {});
        EXPECT_EQ(runner.shown, 0) << "while it opens, a refusal closes the window";
        host.plan->texts["RiskFactors"] = stored;
    }
    desktop.chosenFiles = {"/nowhere.xml"};
    Edit([&](User& user) {
        user.Click("cmdLoadFile");
        EXPECT_EQ(Column(0), "F1 F2  ");
    });
}

TEST_F(EditorTest, FactorsInUseAreNotReplaced) {
    StoreFactors(1);
    host.AddTask("1", "Dig");
    host.AddTask("2", "Fill", "(1)");
    Edit([&](User& user) { user.Click("cmdLoadFile"); });
    EXPECT_TRUE(desktop.openDialogs.empty());
    EXPECT_EQ(desktop.MessageText(),
              "This file cannot be used to replace the existing risk Risk Factors as some of the "
              "existing risk Risk Factors have been assigned to tasks");
    EXPECT_EQ(host.plan->userFields["RiskFactors"], host::kTextField);
}

TEST_F(EditorTest, ATemplateKeepsTheTextsAndLoadsBack) {
    StoreFactors(3, [](int i, clsRiskFactor& f) {
        f.dblMax = 100 + i / 8.0;
        f.CorrelatedTo = i == 3 ? 1 : 0;
    });
    const std::string path = folder / "template.xml";
    std::string shown;
    Edit([&](User& user) {
        desktop.chosenFiles = {path, path};
        TypeInto(user, 2, kCostMaxColumn, "120.5");
        user.Click("cmdSave");
        for (int column = 0; column < kRiskColumns; ++column) shown += Column(column);
        desktop.answers = {MessageAnswer::Yes};
        user.ClickCell("Tabulon1", 3, 7);
        user.Press(Key::Delete);
        user.ClickCell("Tabulon1", 3, 2);
        user.Click("cmdLoadFile");
        std::string loaded;
        for (int column = 0; column < kRiskColumns; ++column) loaded += Column(column);
        EXPECT_EQ(loaded, shown);
        EXPECT_EQ(Current(), "3,2");
        EXPECT_FALSE(grid->Editable(3, kLikelihoodColumn));
    });
    EXPECT_EQ(desktop.saveDialogs[0].title, "Risk Factors Template File");
    EXPECT_EQ(desktop.saveDialogs[0].defaultExtension, "XML");
    EXPECT_EQ(desktop.saveDialogs[0].initialFolder, "C:\\Host\\Samples\\");
    const std::string content = desktop.ReadFile(path);
    EXPECT_NE(content.find(
                  "<RiskFactors Version=\"RiskFactors1.00\"><RiskFactor><Name>F1</Name>"
                  "<Minimum>100.00%</Minimum><MostLikely>100.00%</MostLikely>"
                  "<Maximum>100.13%</Maximum><CostMinimum>100.00%</CostMinimum>"
                  "<CostMostLikely>100.00%</CostMostLikely><CostMaximum>100.00%</CostMaximum>"
                  "<Probability>100.00%</Probability><CorrelatedTo>0</CorrelatedTo></RiskFactor>"),
              std::string::npos);
    EXPECT_NE(content.find("<CostMaximum>120.50%</CostMaximum>"), std::string::npos);
}

TEST_F(EditorTest, AShorterFileStartsAtItsFirstRow) {
    StoreFactors(5);
    desktop.chosenFiles = {File("two.xml", kTwoFactors)};
    Edit([&](User& user) {
        user.ClickCell("Tabulon1", 5, 3);
        user.Click("cmdLoadFile");
        EXPECT_EQ(Column(0), "Rain Risk Factor1  ");
        EXPECT_EQ(Current(), "1,0");
    });
}

TEST_F(EditorTest, SavingWithoutANameWarnsAndAFailureIsTold) {
    StoreFactors(1);
    Edit([&](User& user) {
        user.Click("cmdSave");
        desktop.chosenFiles = {"/no folder/factors.xml"};
        user.Click("cmdSave");
        TypeInto(user, 1, kDurMinColumn, "1:2");
        user.Click("cmdSave");
    });
    ASSERT_EQ(desktop.messages.size(), 3u);
    EXPECT_EQ(desktop.messages[1].text.find("The risk factors could not be saved to a file"), 0u);
    EXPECT_EQ(desktop.saveDialogs.size(), 2u) << "a file that nobody could load is not written";
    EXPECT_EQ(desktop.messages[0].text, "Cannot create File as no File Name exists");
    EXPECT_EQ(desktop.messages[0].title, "Warning No File Name Assigned");
}

}  // namespace
}  // namespace kestrel::test
