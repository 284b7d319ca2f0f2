#include "refhost/cli/Commands.h"

#include <exception>
#include <iostream>

#include "base/Errors.h"

namespace refhost {
namespace {

std::string UsageLine(const Command& command) {
    return std::string("usage: kestrel ") + command.name + " " + command.usage + "\n";
}

std::string CommandHelp(const Command& command) {
    return UsageLine(command) + "\n" + command.summary + "\n\n" + command.details;
}

std::string ProgramHelp() {
    std::string text =
        "usage: kestrel COMMAND PLAN ...\n\n"
        "Risk factors for project plans: analyses a plan file (*.kplan) or a project file in the\n"
        "common XML format, and keeps its risk factors and their assignments.\n\n";
    for (const Command& command : Commands()) {
        std::string name = command.name;
        name.resize(12, ' ');
        text += "  " + name + command.summary + "\n";
    }
    return text +
           "\n'kestrel COMMAND --help' tells more. Where a file is written, - is standard output.\n"
           "A plan is only changed where -o or --save says so.\n"
           "Exit code: 0 done, 1 could not (one sentence on standard error), 2 wrong usage.\n";
}

bool AsksForHelp(const std::string& word) { return word == "--help" || word == "-h"; }

const Command* FindCommand(const std::string& name) {
    for (const Command& command : Commands())
        if (name == command.name) return &command;
    return nullptr;
}

int RunCommand(const Command& command, const std::vector<std::string>& words) {
    try {
        command.run(Arguments(words, command.rules));
        return 0;
    } catch (const UsageError& error) {
        std::cerr << "kestrel " << command.name << ": " << error.what() << "\n"
                  << UsageLine(command);
        return 2;
    } catch (const std::exception& error) {
        std::cerr << "kestrel: " << error.what() << "\n";
        return 1;
    }
}

}  // namespace

const std::vector<Command>& Commands() {
    static const std::vector<Command> commands = {
        {"analyse",
         "PLAN [--iterations N] [--seed S] [--json FILE] [--trace FILE] [--chart FILE.svg] "
         "[--save FILE] [--criticality] [--target-finish DATE] [--target-cost MONEY]",
         "Monte Carlo analysis: finish, cost, and the factors that drive them",
         "Prints the deterministic, mean, P10, P50, P80 and P90 finish and cost and the ranked "
         "risk\n"
         "factors. The same plan, seed and number of iterations give the same figures "
         "everywhere.\n\n"
         "  --iterations N  how many; by default what the plan says\n"
         "  --seed S        of the random stream; by default what the plan says\n"
         "  --json FILE     the figures as one JSON object\n"
         "  --trace FILE    every iteration as one JSON object a line\n"
         "  --chart FILE    the tornado chart (SVG), and beside it FILE-finish.svg, the "
         "distribution\n"
         "                  of the finish\n"
         "  --save FILE     the plan with the factors' new sensitivities\n"
         "  --criticality   how often each task decides when the plan finishes\n"
         "  --target-finish DATE, --target-cost MONEY\n"
         "                  the chances to finish by then (2027-10-01T17:00; a date alone: its "
         "end),\n"
         "                  to cost no more, and of both; one left out is as planned\n\n"
         "When - takes the JSON, the trace or the plan, the report goes to standard error.\n",
         {{"PLAN"},
          {"--iterations", "--seed", "--json", "--trace", "--chart", "--save", "--target-finish",
           "--target-cost", "--costs"},
          {"--criticality", "--keep-dates"}},
         Analyse},
        {"prioritise",
         "PLAN [--iterations N] [--seed S] [--percentile 80] [--cost] [--threads N] [--json FILE] "
         "[--chart FILE.svg]",
         "what each risk factor costs: the finish or the cost without it",
         "Runs the same analysis again, with the same draws, in which a factor never occurs: one\n"
         "factor at a time, and in sequence, each step without the factor that saves most of "
         "those\n"
         "left. What is saved is the difference of the percentile, in calendar days or money.\n\n"
         "  --iterations N  how many; by default what the plan says\n"
         "  --seed S        of the random stream; by default what the plan says\n"
         "  --percentile P  which percentile is compared, 0 to 100; by default 80\n"
         "  --cost          of the cost instead of the finish\n"
         "  --threads N     analyses at a time; by default one a core. The figures are the same\n"
         "  --json FILE     the figures as one JSON object\n"
         "  --chart FILE    the sequence as a staircase, the single savings as bars (SVG)\n",
         {{"PLAN"},
          {"--iterations", "--seed", "--percentile", "--threads", "--json", "--chart"},
          {"--cost"}},
         PrioritiseFactors},
        {"report",
         "PLAN -o FILE.html [--assumptions percentages,distributions,assignments] "
         "[--percentile 80] [--iterations N] [--seed S] [--threads N]",
         "everything on one page to hand over: results, what each factor costs, critical tasks",
         "The page is one HTML file that needs nothing else: for a browser, a telephone, A4 paper\n"
         "and a word processor. The same plan, seed and iterations give the same bytes.\n\n"
         "  --assumptions LIST  what the page tells of the assumptions: the factors' percentages,\n"
         "                      each task's duration distribution, each task's factors\n"
         "  --percentile P      at which the factors' costs are compared, 0 to 100; by default 80\n"
         "  --iterations N, --seed S, --threads N    as in prioritise\n",
         {{"PLAN"},
          {"-o", "--assumptions", "--percentile", "--iterations", "--seed", "--threads"},
          {}},
         WriteReport},
        {"import",
         "PROJECT -o PLAN [--dates] [--keep-dates] [--costs hundredths|whole]",
         "project file in the common XML format to plan file",
         "Standard error tells, once per kind and with a count, what can move dates or money and\n"
         "what a plan file cannot hold, how money was read, and how many tasks keep the dates "
         "that\n"
         "the project file gives them.\n\n"
         "  --dates       lists the tasks that moved, by size of the shift\n"
         "  --keep-dates  lets no task start earlier than in the project file\n"
         "  --costs UNIT  of the file's money: hundredths, as the format's own program writes it, "
         "or\n"
         "                whole units; by default what rate and work of its assignments show\n\n"
         "--keep-dates and --costs hold for 'analyse' and 'check' of a project file too.\n",
         {{"PROJECT"}, {"-o", "--costs"}, {"--dates", "--keep-dates"}},
         Import},
        {"show",
         "PLAN [--cost] [--top N] [--chart FILE.svg]",
         "the driving risks of the last analysis: ranked table and tornado chart",
         "Ranks by the square of the correlation, so that a factor that helps counts like one "
         "that\n"
         "harms. Reads what 'kestrel analyse --save' stored in the plan.\n\n"
         "  --cost        what drives the cost instead of the finish\n"
         "  --top N       how many factors; by default 10\n"
         "  --chart FILE  writes the tornado chart (SVG)\n",
         {{"PLAN"}, {"--top", "--chart"}, {"--cost"}},
         Show},
        {"factors",
         "PLAN [--load FILE] [--save FILE] [-o PLAN]",
         "lists the register of risk factors, or exchanges it with a template or table file",
         "Impacts are percentages of the unchanged value; 100% leaves it as it is.\n\n"
         "  --load FILE  replaces the register by the factors of a file, unless tasks carry some;\n"
         "               from a table (*.csv, *.tsv) also then, as long as those keep their "
         "numbers\n"
         "  --save FILE  writes the register as a template for other plans, or as a table\n"
         "  -o PLAN      where the changed plan is written; may be the plan itself\n",
         {{"PLAN"}, {"--load", "--save", "-o"}, {}},
         Factors},
        {"assign",
         "PLAN [TASKS] [--series 1,3] [--parallel 2] [--add FACTORS] [--remove 1,3] "
         "[--from FILE.csv] [--list FILE.csv] [-o PLAN]",
         "shows or sets the risk factors of tasks",
         "TASKS are IDs (1110,1120) and ranges in plan order (1100-1190); a summary stands for "
         "all\n"
         "tasks below it. With --series or --parallel the tasks carry exactly the factors named, "
         "a\n"
         "group not named being emptied; an empty list (--series '') clears it. Series factors\n"
         "multiply, of parallel ones the largest counts. What has changed is listed.\n\n"
         "  --add FACTORS  adds to what the tasks carry: 1,3 in series, '(2(P))' in parallel, or\n"
         "                 both as '(2(P));(1,3)'\n"
         "  --remove 1,3   takes factors away, in whichever group they are\n"
         "  --from FILE    a table (*.csv, *.tsv) with the columns Task and Risk Factors, which\n"
         "                 holds a task's field as this command shows it\n"
         "  --list FILE    writes a table of every task: its UID in the project file that it came\n"
         "                 from, ID, name and field text, for the planner's own program\n"
         "  -o PLAN        where the changed plan is written; may be the plan itself\n",
         {{"PLAN", "[TASKS]"},
          {"--series", "--parallel", "--add", "--remove", "--from", "--list", "-o"},
          {}},
         Assign},
        {"save",
         "PLAN FILE",
         "saves the register and all assignments to a file",
         "Another plan takes them over with 'kestrel load'.\n",
         {{"PLAN", "FILE"}, {}, {}},
         Save},
        {"load",
         "PLAN FILE [--yes] [-o PLAN]",
         "replaces the register and all assignments by those of a file",
         "Tasks are found by their ID; those that the plan lacks are skipped.\n\n"
         "  --yes    does not ask before overwriting\n"
         "  -o PLAN  where the changed plan is written; may be the plan itself\n",
         {{"PLAN", "FILE"}, {"-o"}, {"--yes"}},
         Load},
        {"check",
         "PLAN [--dates]",
         "lists every complaint about register, assignments and network",
         "One complaint a line on standard output; none when all is well.\n\n"
         "  --dates  lists first the tasks of a project file that moved; see 'kestrel import'\n",
         {{"PLAN"}, {"--costs"}, {"--dates", "--keep-dates"}},
         Check},
    };
    return commands;
}

int RunCommandLine(const std::vector<std::string>& words) {
    if (words.empty()) {
        std::cerr << ProgramHelp();
        return 2;
    }
    if (AsksForHelp(words[0]) || words[0] == "help") {
        std::cout << ProgramHelp();
        return 0;
    }
    const Command* command = FindCommand(words[0]);
    if (!command) {
        std::cerr << "kestrel: there is no command '" << words[0]
                  << "'; 'kestrel --help' lists them\n";
        return 2;
    }
    const std::vector<std::string> rest(words.begin() + 1, words.end());
    for (const std::string& word : rest)
        if (AsksForHelp(word)) {
            std::cout << CommandHelp(*command);
            return 0;
        }
    return RunCommand(*command, rest);
}

}  // namespace refhost
