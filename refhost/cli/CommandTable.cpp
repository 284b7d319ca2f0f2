#include "refhost/cli/Commands.h"

namespace refhost {
namespace {

const OptionRule kPlanOutput = {"-o", "PLAN", Use::Plan,
                                "where the changed plan is written; may be the plan itself"};

const OptionRule kKeepDates = {"--keep-dates", "", Use::Switch,
                               "lets no task start earlier than in the project file"};
const OptionRule kCosts = {"--costs", "hundredths|whole", Use::Value,
                           "unit of a project file's money; by default hundredths, unless rate\n"
                           "and work of its assignments show whole units"};
const OptionRule kDates = {"--dates", "", Use::Switch,
                           "lists the tasks of a project file that moved, by size of the shift"};

const std::vector<OptionRule> kAnalyseOptions = {
    {"--iterations", "N", Use::Value, "how many; by default what the plan says"},
    {"--seed", "S", Use::Value, "of the random stream; by default what the plan says"},
    {"--json", "FILE", Use::Output, "the figures as one JSON object"},
    {"--trace", "FILE", Use::Output, "every iteration as one JSON object a line"},
    {"--chart", "FILE.svg", Use::Output,
     "the tornado chart (SVG), and beside it FILE-finish.svg, the distribution\nof the finish"},
    {"--save", "FILE", Use::Plan,
     "the plan with the factors' new sensitivities; may be the plan itself"},
    kKeepDates,
    kCosts,
};

const std::vector<OptionRule> kShowOptions = {
    {"--cost", "", Use::Switch, "what drives the cost instead of the finish"},
    {"--top", "N", Use::Value, "how many factors; by default 10"},
    {"--chart", "FILE.svg", Use::Output, "writes the tornado chart (SVG)"},
};

const std::vector<OptionRule> kFactorsOptions = {
    {"--load", "FILE", Use::Input,
     "replaces the register by the factors of a file, unless tasks carry some"},
    {"--save", "FILE", Use::Output, "writes the register as a template for other plans"},
    kPlanOutput,
};

const std::vector<OptionRule> kAssignOptions = {
    {"--series", "1,3", Use::Value, "the factors in series"},
    {"--parallel", "2", Use::Value, "the factors in parallel"},
    kPlanOutput,
};

}  // namespace

const std::vector<Command>& Commands() {
    static const std::vector<Command> commands = {
        {"analyse",
         "Monte Carlo analysis: finish, cost, and the factors that drive them",
         "Prints the deterministic, mean, P10, P50, P80 and P90 finish and cost and the ranked "
         "risk\nfactors. The same plan, seed and number of iterations give the same figures "
         "everywhere.\nWhen - takes the JSON, the trace or the plan, the report goes to standard "
         "error.\n",
         {{{"PLAN", Use::Plan}}, kAnalyseOptions},
         Analyse},
        {"import",
         "project file in the common XML format to plan file",
         "Standard error tells, once per kind and with a count, what can move dates or money and\n"
         "what a plan file cannot hold, how money was read, and how many tasks keep the dates\n"
         "that the project file gives them.\n",
         {{{"PROJECT", Use::Input}},
          {{"-o", "PLAN", Use::Output, "the plan file", true}, kDates, kKeepDates, kCosts}},
         Import},
        {"show",
         "the driving risks of the last analysis: ranked table and tornado chart",
         "Ranks by the square of the correlation, so that a factor that helps counts like one "
         "that\nharms. Reads what 'kestrel analyse --save' stored in the plan.\n",
         {{{"PLAN", Use::Plan}}, kShowOptions},
         Show},
        {"factors",
         "lists the register of risk factors, or exchanges it with a template file",
         "Impacts are percentages of the unchanged value; 100% leaves it as it is.\n",
         {{{"PLAN", Use::Plan}}, kFactorsOptions},
         Factors},
        {"assign",
         "shows or sets the risk factors of a task",
         "TASK is the task's ID; a summary stands for every task below it. With --series or\n"
         "--parallel the task carries exactly the factors named, a group not named being emptied;\n"
         "an empty list (--series '') clears it. Series factors multiply, of parallel ones the\n"
         "largest counts.\n",
         {{{"PLAN", Use::Plan}, {"TASK", Use::Value}}, kAssignOptions},
         Assign},
        {"save",
         "saves the register and all assignments to a file",
         "Another plan takes them over with 'kestrel load'.\n",
         {{{"PLAN", Use::Plan}, {"FILE", Use::Output}}, {}},
         Save},
        {"load",
         "replaces the register and all assignments by those of a file",
         "Tasks are found by their ID; those that the plan lacks are skipped.\n",
         {{{"PLAN", Use::Plan}, {"FILE", Use::Input}},
          {{"--yes", "", Use::Switch, "does not ask before overwriting"}, kPlanOutput}},
         Load},
        {"check",
         "lists every complaint about register, assignments and network",
         "One complaint a line on standard output; none when all is well.\n",
         {{{"PLAN", Use::Plan}}, {kDates, kKeepDates, kCosts}},
         Check},
    };
    return commands;
}

}  // namespace refhost
