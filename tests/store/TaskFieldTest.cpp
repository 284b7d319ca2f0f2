#include "store/TaskField.h"

#include <gtest/gtest.h>

#include "support/FakeDesktop.h"
#include "support/FakeHost.h"

namespace kestrel {
namespace {

class TaskField : public testing::Test {
 protected:
    TaskField() {
        globals_.application = host_.application;
        for (int i = 0; i < 3; ++i)
            globals_.RiskFactors.push_back(std::make_shared<clsRiskFactor>());
    }

    RiskIDs Read(const std::string& field, bool inSeries) {
        RiskIDs ids{99};
        desktop_.messages.clear();
        GetTaskRiskFactors(globals_, *host_.AddTask("20", "Drawings", field), ids, inSeries);
        return ids;
    }

    test::FakeHost host_;
    test::FakeDesktop desktop_;
    modGlobals globals_{desktop_};
};

constexpr const char* kDuplicate =
    "There is a duplicate RiskFactor assigned to task 20 - Drawings and will be ignored.";

TEST_F(TaskField, KeepsFieldOrderAndTellsWhatItLeavesOut) {
    const struct {
        const char* field;
        bool inSeries;
        RiskIDs ids;
        const char* boxes;  ///< i: invalid item, d: duplicate
    } rows[] = {
        {"", true, {}, ""},
        {"(P)", false, {}, ""},
        {"3,1", true, {3, 1}, ""},
        {"3, 3", true, {3}, "d"},
        {"(3(P));(2)", false, {3}, ""},
        {"1,7,abc", true, {1}, "ii"},
        {"0,-1,4294967297", true, {}, "iii"},
        {"7,7", true, {}, "ii"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.field);
        EXPECT_EQ(Read(row.field, row.inSeries), row.ids);
        std::string boxes;
        for (const auto& message : desktop_.messages)
            boxes += message.text == kDuplicate ? 'd' : 'i';
        EXPECT_EQ(boxes, row.boxes);
    }
}

TEST_F(TaskField, TheWarningNamesTaskAndTextAndChangesNothing) {
    for (const auto answer : {MessageAnswer::Ok, MessageAnswer::Cancel}) {
        desktop_.answers = {answer};
        EXPECT_EQ(Read("1, 7x", true), RiskIDs{1});
        ASSERT_EQ(desktop_.messages.size(), 1u);
        const test::ShownMessage& box = desktop_.messages[0];
        EXPECT_EQ(box.title, "Warning");
        EXPECT_EQ(box.buttons, MessageButtons::OkCancel);
        EXPECT_EQ(
            box.text,
            "Risk Factors are stored in the task custom field (RiskFactors) as a string of numbers "
            "that refers to a Risk Factors ID. Multiple assignments are separated by commas."
            "\r\n\r\nHowever some of the text in this field for '20 - Drawings' contains an "
            "assignment that does not correspond to a Risk Category ID. This assignment text is: 7x"
            "\r\n\r\nThis can occur when the field has manually edited to store other information "
            "for about the task, the text has become corrupt or the RiskFactor number referenced "
            "does not exist.\r\n\r\nSelecting OK will delete the text that does not correspond to "
            "an existing Risk Category ID. Cancel will leave existing text in the Notes 2 field "
            "but "
            "you will not be able to assign any additional RiskFactors to this task.\r\n\r\nNote: "
            "You will receive a warning for each assignment that does not correspond to a Risk "
            "Category ID.");
        EXPECT_EQ(host_.plan->tasks.back()->texts["RiskFactors"], "1, 7x");
    }
}

TEST_F(TaskField, AllFactorsAreSeriesFirstWithoutRangeCheck) {
    RiskIDs ids{99};
    const auto task = host_.AddTask("20", "Drawings", "(1,3(P));(9,1)");
    GetAllTaskRiskFactors(globals_, *task, ids);
    EXPECT_EQ(ids, (RiskIDs{9, 1, 3}));
    EXPECT_EQ(desktop_.MessageText(), kDuplicate);
    EXPECT_EQ(host_.log.Count("UserValues.Item"), 1u);
}

TEST_F(TaskField, DeletingFactorsRenumbersEveryTaskInTheOrderGiven) {
    const struct {
        const char* before;
        std::vector<std::int32_t> deleted;
        const char* after;
    } rows[] = {
        {"(1,2,3)", {2}, "(1,2)"},
        {"(2)", {2}, ""},
        {"", {2}, ""},
        {"1,3", {2}, "(1,2)"},
        {"(2,4(P));(3,5)", {2, 3}, "(2,3)"},  // 4 had become 3
        {"(1,2,3,4)", {4, 2}, "(1,2)"},
        {"(1,2,23)", {2}, "(12)"},
        {"(see note,3)", {2}, "(see note,2)"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.before);
        const auto task = host_.AddTask("1", "A", row.before);
        RenumberTaskRiskFactors(globals_, row.deleted);
        EXPECT_EQ(task->texts["RiskFactors"], row.after);
        host_.plan->tasks.clear();
    }
    EXPECT_EQ(host_.plan->userFields.at("RiskFactors"), host::kTextField);
}

TEST_F(TaskField, AFieldIsAddedWhenTheLookUpFailsOrFindsNothing) {
    EnsureTextField(*host_.plan, "A");
    EnsureTextField(*host_.plan, "A");
    host_.log.failing = {"UserFieldDefinitions.Item"};
    EnsureTextField(*host_.plan, "B");
    EXPECT_EQ(host_.plan->userFields, (std::map<std::string, std::int16_t>{{"A", 1}, {"B", 1}}));
    host_.log.failing = {"UserFieldDefinitions.Add"};
    EXPECT_THROW(EnsureTextField(*host_.plan, "C"), HostError);
}

}  // namespace
}  // namespace kestrel
