#include <gtest/gtest.h>

#include "store/RegisterDocument.h"
#include "store/SaveLoadCommands.h"
#include "support/FakeDesktop.h"
#include "support/FakeHost.h"
#include "support/TemporaryFolder.h"

namespace kestrel::test {
namespace {

constexpr const char* kOverwrite =
    "The Risk Factors and Risks Assigned to Tasks will be overwritten by selecting the Load Risk "
    "Factors and Assignments Option";

class SaveLoadTest : public testing::Test {
 protected:
    SaveLoadTest() { globals.application = host.application; }

    void StoreFactors(int count) {
        for (int i = 0; i < count; ++i)
            globals.RiskFactors.push_back(std::make_shared<clsRiskFactor>());
        SaveRegisterToPlan(globals.RiskFactors, *host.plan);
    }
    void Save() {
        desktop.chosenFiles = {path};
        SaveRiskFactorsToFile(globals);
    }
    void Load(const std::string& content,
              std::deque<MessageAnswer> answers = {MessageAnswer::Yes}) {
        desktop.WriteFile(path, content);
        desktop.chosenFiles = {path};
        desktop.answers = std::move(answers);
        LoadRiskFactorsFromFile(globals);
    }
    std::string Written() { return desktop.ReadFile(path); }

    FakeHost host;
    FakeDesktop desktop;
    modGlobals globals{desktop};
    TemporaryFolder folder;
    std::string path = folder / "all.xml";
};

TEST_F(SaveLoadTest, WritesOneTaskElementForEachTaskWithAssignments) {
    StoreFactors(3);
    host.plan->texts["RiskFactors"].insert(host.plan->texts["RiskFactors"].size() - 14,
                                           "<Task><ID>old</ID></Task>");
    host.AddTask("10", "Dig", "(2(P));(1,3)");
    host.AddTask("20", "Wait");
    host.AddTask("30", "Fill", "(1,7)");
    Save();
    const std::string text = Written();
    const std::string tasks =
        "</RiskFactor><Task><ID>10</ID>"
        "<AssignedRiskFactor>1<InSeries>1</InSeries></AssignedRiskFactor>"
        "<AssignedRiskFactor>3<InSeries>1</InSeries></AssignedRiskFactor>"
        "<AssignedRiskFactor>2<InSeries>0</InSeries></AssignedRiskFactor></Task>"
        "<Task><ID>30</ID>"
        "<AssignedRiskFactor>1<InSeries>1</InSeries></AssignedRiskFactor></Task></RiskFactors>";
    EXPECT_NE(text.find(tasks), std::string::npos) << text;
    ASSERT_EQ(desktop.messages.size(), 1u);
    EXPECT_EQ(desktop.messages[0].title, "Warning") << "factor 7 does not exist";
    EXPECT_EQ(desktop.saveDialogs[0].title, "Save Risk Factors and Assignments");
    EXPECT_EQ(desktop.saveDialogs[0].defaultExtension, "XML");
    EXPECT_EQ(desktop.saveDialogs[0].filters[0].first, "RiskFactors (*.xml)");
}

TEST_F(SaveLoadTest, WritesNothingWithoutANameOrARegister) {
    SaveRiskFactorsToFile(globals);
    host.AddTask("10", "Dig");
    EXPECT_THROW(Save(), DataError);
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(SaveLoadTest, LoadReplacesRegisterAndAllAssignments) {
    StoreFactors(1);
    auto dig = host.AddTask("10", "Dig", "(1)");
    auto wait = host.AddTask("20", "Wait", "(1)");
    const std::string content =
        "<RiskFactors Version=\"RiskFactors9\"><RiskFactor/>\n<Task><ID>10</ID>"
        "<AssignedRiskFactor>\n 3\n <InSeries>1</InSeries></AssignedRiskFactor>"
        "<AssignedRiskFactor>1<InSeries>0</InSeries></AssignedRiskFactor>"
        "<AssignedRiskFactor>2<InSeries>0</InSeries></AssignedRiskFactor>"
        "<AssignedRiskFactor/></Task>"
        "<Task><ID>99</ID></Task></RiskFactors>";
    Load(content);
    EXPECT_EQ(dig->texts["RiskFactors"], "(1,2(P));(3)");
    EXPECT_EQ(wait->texts["RiskFactors"], "");
    EXPECT_EQ(host.plan->texts["RiskFactors"].substr(0, 55),
              "<RiskFactors Version=\"RiskFactors9\"><RiskFactor/><Task>");
    EXPECT_EQ(host.plan->userFields["RiskFactors"], host::kTextField);
    EXPECT_EQ(desktop.MessageText(), kOverwrite);
    EXPECT_EQ(globals.RiskFactors.size(), 1u) << "read again when next needed";
}

TEST_F(SaveLoadTest, NoOrACancelledDialogLeavesThePlanAlone) {
    StoreFactors(1);
    auto dig = host.AddTask("10", "Dig", "(1)");
    const std::string before = host.plan->texts["RiskFactors"];
    LoadRiskFactorsFromFile(globals);
    EXPECT_TRUE(desktop.messages.empty());
    desktop.WriteFile(path, "<RiskFactors/>");
    desktop.chosenFiles = {path};
    LoadRiskFactorsFromFile(globals);
    EXPECT_EQ(desktop.MessageText(), kOverwrite);
    EXPECT_EQ(host.plan->texts["RiskFactors"], before);
    EXPECT_EQ(dig->texts["RiskFactors"], "(1)");
}

TEST_F(SaveLoadTest, AFileThatIsNoRegisterIsRefusedBeforeAnythingChanges) {
    StoreFactors(1);
    const std::string before = host.plan->texts["RiskFactors"];
    for (const char* content :
         {"no xml", "<Other><RiskFactors/></Other>", "", "<RiskFactors xmlns=\"urn:other\"/>"}) {
        SCOPED_TRACE(content);
        desktop.messages.clear();
        Load(content, {MessageAnswer::Ok});
        ASSERT_EQ(desktop.messages.size(), 1u);
        EXPECT_EQ(desktop.messages[0].text, "The file " + path +
                                                " is not a valid Risk Factors file or may be "
                                                "corrupted and cannot be loaded. ");
        EXPECT_EQ(desktop.messages[0].buttons, MessageButtons::OkCancel);
        EXPECT_EQ(host.plan->texts["RiskFactors"], before);
    }
}

TEST_F(SaveLoadTest, WhatWasSavedLoadsIntoAnotherPlan) {
    StoreFactors(3);
    host.AddTask(" 10", "Dig", "(2(P));(1,3)");
    host.AddTask("20", "Wait", "(3)");
    Save();
    FakeHost other;
    other.AddTask("10", "Dug");
    auto dig = other.AddTask(" 10", "Dig", "(9)");
    auto wait = other.AddTask("20", "Wait");
    globals.application = other.application;
    Load(Written());
    EXPECT_EQ(dig->texts["RiskFactors"], "(2(P));(1,3)");
    EXPECT_EQ(wait->texts["RiskFactors"], "(3)");
    Save();
    const std::string once = Written();
    Load(once);
    Save();
    EXPECT_EQ(Written(), once) << "tasks do not pile up";
}

}  // namespace
}  // namespace kestrel::test
