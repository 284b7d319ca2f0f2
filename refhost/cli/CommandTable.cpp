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

const OptionRule kIterations = {"--iterations", "N", Use::Value,
                                "how many; by default what the plan says"};
const OptionRule kSeed = {"--seed", "S", Use::Value,
                          "of the random stream; by default what the plan says"};
const OptionRule kPercentile = {"--percentile", "P", Use::Value,
                                "which percentile is compared, 0 to 100; by default 80"};
const OptionRule kThreads = {"--threads", "N", Use::Value,
                             "analyses at a time; by default one a core. The figures are the same"};

const std::vector<OptionRule> kAnalyseOptions = {
    kIterations,
    kSeed,
    {"--json", "FILE", Use::Output, "the figures as one JSON object"},
    {"--trace", "FILE", Use::Output, "every iteration as one JSON object a line"},
    {"--chart", "FILE.svg", Use::Output,
     "the tornado chart (SVG), and beside it FILE-finish.svg, the distribution\nof the finish"},
    {"--save", "FILE", Use::Plan,
     "the plan with the factors' new sensitivities; may be the plan itself"},
    {"--criticality", "", Use::Switch, "how often each task decides when the plan finishes"},
    {"--target-finish", "DATE", Use::Value,
     "the chance to finish by then (2027-10-01T17:00; a date alone: its end)"},
    {"--target-cost", "MONEY", Use::Value,
     "the chance to cost no more; with one target the other is as planned, and\n"
     "the chance of both is told too"},
    kKeepDates,
    kCosts,
};

const std::vector<OptionRule> kPrioritiseOptions = {
    kIterations,
    kSeed,
    kPercentile,
    {"--cost", "", Use::Switch, "of the cost instead of the finish"},
    kThreads,
    {"--json", "FILE", Use::Output, "the figures as one JSON object"},
    {"--chart", "FILE.svg", Use::Output,
     "the sequence as a staircase, the single savings as bars (SVG)"},
};

const std::vector<OptionRule> kReportOptions = {
    {"-o", "FILE.html", Use::Output, "the page", true},
    {"--assumptions", "LIST", Use::Value,
     "what the page tells of the assumptions: percentages (of the factors),\n"
     "distributions (of the tasks' durations), assignments (of factors to tasks),\n"
     "parted by commas"},
    kPercentile,
    kIterations,
    kSeed,
    kThreads,
};

const std::vector<OptionRule> kShowOptions = {
    {"--cost", "", Use::Switch, "what drives the cost instead of the finish"},
    {"--top", "N", Use::Value, "how many factors; by default 10"},
    {"--chart", "FILE.svg", Use::Output, "writes the tornado chart (SVG)"},
};

const std::vector<OptionRule> kFactorsOptions = {
    {"--load", "FILE", Use::Input,
     "replaces the register by the factors of a file, unless tasks carry some;\n"
     "from a table (*.csv, *.tsv) also then, as long as those keep their numbers"},
    {"--save", "FILE", Use::Output,
     "writes the register as a template for other plans, or as a table"},
    kPlanOutput,
};

const std::vector<OptionRule> kAssignOptions = {
    {"--series", "1,3", Use::Value, "the factors in series"},
    {"--parallel", "2", Use::Value, "the factors in parallel"},
    {"--add", "FACTORS", Use::Value,
     "adds to what the tasks carry: 1,3 in series, '(2(P))' in parallel, or both as\n"
     "'(2(P));(1,3)'"},
    {"--remove", "1,3", Use::Value, "takes factors away, in whichever group they are"},
    {"--from", "FILE.csv", Use::Input,
     "a table (*.csv, *.tsv) with the columns Task and Risk Factors, which holds a\n"
     "task's field as this command shows it"},
    {"--list", "FILE.csv", Use::Output,
     "writes a table of every task: its UID in the project file that it came from,\n"
     "ID, name and field text, for the planner's own program"},
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
        {"prioritise",
         "what each risk factor costs: the finish or the cost without it",
         "Runs the same analysis again, with the same draws, in which a factor never occurs: one\n"
         "factor at a time, and in sequence, each step without the factor that saves most of "
         "those\nleft. What is saved is the difference of the percentile, in calendar days or "
         "money.\n",
         {{{"PLAN", Use::Plan}}, kPrioritiseOptions},
         PrioritiseFactors},
        {"report",
         "everything on one page to hand over: results, what each factor costs, critical tasks",
         "The page is one HTML file that needs nothing else: for a browser, a telephone, A4 paper\n"
         "and a word processor. The same plan, seed and iterations give the same bytes.\n",
         {{{"PLAN", Use::Plan}}, kReportOptions},
         WriteReport},
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
         "lists the register of risk factors, or exchanges it with a template or table file",
         "Impacts are percentages of the unchanged value; 100% leaves it as it is.\n",
         {{{"PLAN", Use::Plan}}, kFactorsOptions},
         Factors},
        {"assign",
         "shows or sets the risk factors of tasks",
         "TASKS are IDs (1110,1120) and ranges in plan order (1100-1190); a summary stands for "
         "all\ntasks below it. With --series or --parallel the tasks carry exactly the factors "
         "named, a\ngroup not named being emptied; an empty list (--series '') clears it. Series "
         "factors\nmultiply, of parallel ones the largest counts. What has changed is listed.\n",
         {{{"PLAN", Use::Plan}, {"TASKS", Use::Value, false}}, kAssignOptions},
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
