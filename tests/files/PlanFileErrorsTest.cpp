#include <gtest/gtest.h>

#include "base/Errors.h"
#include "tests/files/PlanText.h"

namespace refhost {
namespace {

std::string MessageOf(const std::string& bytes) {
    try {
        Parse(bytes);
    } catch (const kestrel::DataError& error) {
        return error.what();
    }
    return "no error";
}

TEST(PlanFile, NamesFileLinePlaceAndRemedyOfWhatIsWrong) {
    const std::string task = "<Task ID=\"1\" Name=\"A\" Type=\"0\" Duration=\"1\"/>";
    const auto withAttributes = [](const std::string& attributes) {
        return PlanText("<Tasks>\n<Task " + attributes + "/></Tasks>");
    };
    const struct {
        std::string bytes;
        const char* message;
    } cases[] = {
        {withAttributes("ID='1' Name='A' Type='0' Duration='1' Foo='2'"),
         "crane.kplan:3: unknown attribute 'Foo' of Task; remove it or correct its name."},
        {PlanText("<Tasks xmlns='urn:x'/>"), "crane.kplan:2: unknown attribute 'xmlns' of Tasks"},
        {WithTask("<Resource/>"), "crane.kplan:3: unknown element 'Resource' in Task; remove it"},
        {PlanText("<Tasks>\n" + task + " x </Tasks>"), "crane.kplan:2: text 'x' in Tasks"},
        {WithTask("<UserValue Name='F'><b/></UserValue>"), "crane.kplan:3: element 'b' in UserVal"},
        {PlanText("<Calendar/>\n<Calendar/><Tasks/>"),
         "crane.kplan:3: second Calendar in Plan; keep only one of them."},
        {PlanText(""), "crane.kplan:1: element 'Tasks' in Plan is missing; add it."},
        {PlanText("<Tasks/>\n<Tasks/>"), "crane.kplan:3: second Tasks in Plan"},
        {"<Plan Version='2' Future='1'/>", "crane.kplan:1: the plan file has version '2'"},
        {"<Plan Version='1' Name='' Start='2026-01-05T08:00:30'><Tasks/></Plan>",
         "crane.kplan:1: attribute 'Start' of Plan is '2026-01-05T08:00:30'; write a date"},
        {"<Plan Version='1' Name='' Start='2026-02-29T08:00:00'><Tasks/></Plan>",
         "crane.kplan:1: attribute 'Start'"},
        {"<Plan Version='1' Name='' Start='2026-01-05T24:00:00'><Tasks/></Plan>",
         "crane.kplan:1: attribute 'Start'"},
        {"<Plan Version='1' Name='' Start='1899-12-30T08:00:00'><Tasks/></Plan>",
         "crane.kplan:1: attribute 'Start'"},
        {"<Plot/>", "crane.kplan:1: the root element is 'Plot'; choose a plan file"},

        {withAttributes("Name='A' Type='0' Duration='1'"),
         "crane.kplan:3: attribute 'ID' of Task is missing; add it."},
        {withAttributes("ID='' Name='A' Type='0' Duration='1'"), "crane.kplan:3: attribute 'ID'"},
        {withAttributes("ID='1' Type='0' Duration='1'"), "crane.kplan:3: attribute 'Name' of Task"},
        {withAttributes("ID='1' Name='A' Duration='1'"), "crane.kplan:3: attribute 'Type' of Task"},
        {withAttributes("ID='1' Name='A' Type='2' Duration='1'"),
         "crane.kplan:3: attribute 'Type' of Task is '2'; write 0 for an ordinary task"},
        {withAttributes("ID='1' Name='A' Type='0'"), "crane.kplan:3: attribute 'Duration' of Task"},
        {withAttributes("ID='1' Name='A' Type='0' Duration='-1'"), "'Duration' of Task is '-1'"},
        {withAttributes("ID='1' Name='A' Type='0' Duration='2147483648'"), "'2147483648'; write"},
        {withAttributes("ID='1' Name='A' Type='1' Duration='x'"), "'Duration' of Task is 'x'"},
        {PlanText("<Tasks>" + task + "\n" + task + "</Tasks>"),
         "crane.kplan:3: second Task with the ID '1'; give each task an ID of its own."},
        {WithTask("<Task ID='2' Name='' Type='0' Duration='1'/>"),
         "crane.kplan:3: the task '1' is ordinary but has a Task inside it; make it a summary"},

        {WithTask("<Link From='9' Type='FS' Lag='0'/>"),
         "crane.kplan:3: a Link comes from the task '9', which the plan does not have"},
        {WithTask("<Link From='1' Type='XX' Lag='0'/>"), "crane.kplan:3: attribute 'Type' of Link"},
        {WithTask("<Link From='1' Type='FS' Lag='0.5'/>"), "crane.kplan:3: attribute 'Lag' of"},
        {WithTask("<CostItem Name='L' Cost='12a'/>"), "crane.kplan:3: attribute 'Cost' of CostIt"},
        {WithTask("<CostItem Name='L' Cost='1e999'/>"), "crane.kplan:3: attribute 'Cost' of Cost"},
        {WithTask("<Distribution Shape='1' Minimum='1' MostLikely='2' Maximum='3'/>"),
         "crane.kplan:3: attribute 'Shape' of Distribution is '1'; write 0"},
        {WithTask("<UserValue Name='F'>1</UserValue>\n<UserValue Name='F'/>"),
         "crane.kplan:4: second UserValue named 'F'; keep only one of them."},
        {PlanText("<UserFields><UserField Name='F'/>\n<UserField Name='F'/></UserFields><Tasks/>"),
         "crane.kplan:3: second UserField named 'F'"},
        {PlanText("<Analysis Iterations='0'/><Tasks/>"), "crane.kplan:2: attribute 'Iterations'"},
        {PlanText("<Analysis Seed='-1'/><Tasks/>"), "crane.kplan:2: attribute 'Seed'"},
        {PlanText("<Analysis UpToDate='1'/><Tasks/>"), "crane.kplan:2: attribute 'UpToDate'"},

        {WithCalendar("<Day Name='Lundi'/>"), "crane.kplan:3: attribute 'Name' of Day is 'Lundi'"},
        {WithCalendar("<Day Name='Friday'/>\n<Day Name='Friday'/>"),
         "crane.kplan:4: second Day named 'Friday'"},
        {WithCalendar("<Day Name='Friday'><Shift From='08:00' To='24:01'/></Day>"),
         "crane.kplan:3: attribute 'To' of Shift is '24:01'; write a time from 00:00 to 24:00."},
        {WithCalendar("<Day Name='Friday'><Shift From='17:00' To='08:00'/></Day>"),
         "crane.kplan:3: the shift from 17:00 to 08:00 does not end after it starts"},
        {WithCalendar("<Day Name='Friday'><Shift From='08:00' To='12:00'/>\n"
                      "<Shift From='11:59' To='13:00'/></Day>"),
         "crane.kplan:4: the shift from 11:59 to 13:00 overlaps the one from 08:00 to 12:00"},
        {WithCalendar("<Holiday Date='2026-12-25'/>\n<WorkingDay Date='2026-12-25'>"
                      "<Shift From='08:00' To='12:00'/></WorkingDay>"),
         "crane.kplan:4: the date 2026-12-25 is a Holiday or WorkingDay already"},
        {WithCalendar("<Holiday Date='2026-13-25'/>"), "crane.kplan:3: attribute 'Date' of Holida"},
        {WithCalendar("<Holiday Date='2026-12-25'><Shift From='08:00' To='12:00'/></Holiday>"),
         "crane.kplan:3: unknown element 'Shift' in Holiday"},
        {WithResults("<Finish>1 2</Finish><Cost>1</Cost>"),
         "crane.kplan:3: element 'Cost' holds 1 numbers, but needs one per iteration"},
        {WithResults("<Finish>1 2 </Finish>\n<Cost>1 x</Cost>"),
         "crane.kplan:4: 'x' in Cost cannot be used; remove the element Results"},
        {WithResults("<Finish>-2000000000</Finish><Cost>1</Cost>"),
         "crane.kplan:3: '-2000000000' in Finish cannot be used"},
        {WithResults("<Cost>1</Cost>"), "crane.kplan:2: element 'Finish' in Results is missing"},
        {WithResults("<Finish>1</Finish><Cost>1</Cost>\n<FactorCosts Measure='days'/>"),
         "crane.kplan:4: attribute 'Measure' of FactorCosts is 'days'; write finish or cost"},
        {"<Plan", "crane.kplan: "},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.bytes);
        const std::string message = MessageOf(c.bytes);
        EXPECT_NE(message.find(c.message), std::string::npos) << message;
        EXPECT_TRUE(message.starts_with("crane.kplan:")) << message;
    }
}

}  // namespace
}  // namespace refhost
