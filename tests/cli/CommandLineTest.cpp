#include "cli/CommandLine.h"

#include <gmock/gmock.h>

#include <thread>

#include "TestPaths.h"
#include "refhost/system/SettingsFile.h"
#include "util/modToolBox.h"

namespace refhost::test {
namespace {

using testing::HasSubstr;
using testing::Not;

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    return text.replace(text.find(from), from.size(), to);
}

std::ptrdiff_t Lines(const std::string& text) { return std::count(text.begin(), text.end(), '\n'); }

TEST(CommandLine, GivesTheSameBytesForTheSameSeedAndTouchesNoPlanUnasked) {
    const Workplace place;
    place.Write("plan.kplan", kSmall);
    ASSERT_EQ(place.Run("assign plan.kplan A --series 1 -o plan.kplan").exitCode, 0);
    const std::string before = place.Read("plan.kplan");
    for (const char* run : {"1", "2"})
        ASSERT_EQ(
            place
                .Run(std::string("analyse plan.kplan --iterations 300 --seed 18446744073709551615 "
                                 "--json j") +
                     run + " --trace t" + run)
                .exitCode,
            0);
    EXPECT_EQ(place.Read("j1"), place.Read("j2"));
    EXPECT_EQ(place.Read("t1"), place.Read("t2"));
    EXPECT_EQ(Lines(place.Read("t1")), 300);
    EXPECT_EQ(place.Read("plan.kplan"), before);
}

TEST(CommandLine, PricesAFactorAsTheAnalysisOfAPlanInWhichItNeverOccurs) {
    const Workplace place;
    const std::string plan = kestrel::ReadWholeFile(kExample);
    place.Write("plan.kplan", plan);
    place.Write("edited.kplan", Replaced(plan, "&lt;Probability&gt;40", "&lt;Probability&gt;-1"));
    const std::string run = " --iterations 150 --json ";
    for (const char* threads : {"1", "2", "7"})
        ASSERT_EQ(
            place.Run("prioritise plan.kplan --threads " + (threads + run) + threads).exitCode, 0);
    const std::string priced = place.Read("1");
    EXPECT_EQ(place.Read("2"), priced);
    EXPECT_EQ(place.Read("7"), priced);

    ASSERT_EQ(place.Run("analyse edited.kplan" + run + "edited").exitCode, 0);
    const auto figure = [](const std::string& text, const std::string& key) {
        const std::size_t at = text.find("\"" + key + "\":") + key.size() + 3;
        return text.substr(at, text.find_first_of(",}", at) - at);
    };
    EXPECT_EQ(figure(priced, "without"), figure(place.Read("edited"), "p80"));
}

TEST(CommandLine, SavesThePlanWithItsResultsUntilThePlanChanges) {
    const Workplace place;
    place.Write("plan.kplan", kSmall);
    place.Run("assign plan.kplan A --parallel 1 -o plan.kplan");
    ASSERT_EQ(place.Run("analyse plan.kplan --iterations 200 --save plan.kplan").exitCode, 0);
    const std::string saved = place.Read("plan.kplan");
    EXPECT_THAT(saved, HasSubstr("UpToDate=\"true\""));
    EXPECT_THAT(saved, HasSubstr("Iterations=\"200\""));
    EXPECT_THAT(saved, Not(HasSubstr("DurSens&gt;100&lt;")));
    EXPECT_THAT(saved, HasSubstr("Duration=\"4800\"")) << "durations are put back";
    place.Run("assign plan.kplan A --series 1 -o plan.kplan");
    EXPECT_THAT(place.Read("plan.kplan"), Not(HasSubstr("UpToDate=\"true\"")));
}

TEST(CommandLine, RefusesBadInputInOneSentenceAndLeavesNoFile) {
    const struct {
        int exitCode;
        const char* words;
        const char* told;  ///< every part of it between "|"
        std::string plan = kSmall;
    } rows[] = {
        {1, "analyse plan.kplan --json out", "plan.kplan: line 1|mend", kSmall.substr(0, 200)},
        {1, "analyse absent.kplan --json out", "absent.kplan"},
        {1, "analyse plan.kplan --json out", "loop|A - Dig|B - Pour|remove",
         Replaced(kSmall, "<CostItem Name=\"x\" Cost=\"10\"/>",
                  "<Link From=\"B\" Type=\"SS\" Lag=\"0\"/>")},
        {1, "analyse plan.kplan --json out --trace out2 --save out3",
         "Task A - Dig carries risk factor 4, but the register holds 1.",
         Replaced(kSmall, "<CostItem",
                  "<UserValue Name=\"RiskFactors\">(1,4)</UserValue><CostItem")},
        {1, "analyse plan.kplan --save out", "its text \"RiskFactors\"|cannot be read",
         Replaced(kSmall, "&lt;/RiskFactors&gt;", "")},
        {1, "analyse plan.kplan --json out", "Risk factor 1|Maximum",
         Replaced(kSmall, "&lt;Maximum&gt;150", "&lt;Maximum&gt;wide")},
        {1, "assign plan.kplan Z --series 1 -o out", "no task 'Z'"},
        {1, "assign plan.kplan A --series 1,2 -o out", "no risk factor 2|holds 1"},
        {1, "assign plan.kplan A --series 1 --parallel 1 -o out", "both"},
        {2, "assign plan.kplan A --series one -o out", "'one'|usage"},
        {1, "load plan.kplan plan.kplan -o out", "not a valid"},
        {1, "analyse plan.kplan --iterations 5 --json no/such/folder", "no/such/folder"},
        {2, "analyze plan.kplan", "analyze|--help"},
        {2, "analyse plan.kplan --json plan.kplan", "--json|PLAN|usage"},
        {2, "save plan.kplan ./plan.kplan", "FILE|PLAN"},
        {2, "import plan.kplan -o plan.kplan", "-o|PROJECT"},
        {2, "load plan.kplan a -o a", "-o|FILE"},
        {2, "analyse plan.kplan --json x --save ./x", "--json|--save|one file"},
        {2, "analyse plan.kplan --chart x.svg --json x-finish.svg", "--chart|--json|one file"},
        {2, "load - - --yes", "only once"},
        {2, "check -- plan.kplan --yes", "'--yes' is one word too many"},
        {1, "analyse plan.kplan --iterations 1000000000 --json out", "GB of memory"},
        {1, "analyse plan.kplan --iterations 3 --json out --trace /dev/full", "/dev/full"},
        {1, "analyse plan.kplan", "\\nkestrel: forged|[...]|plan.kplan",
         Replaced(kSmall, "\"4800\"", "\"&#10;kestrel: forged" + std::string(100'000, 'x') + "\"")},
        {2, "assign plan.kplan", "TASKS is missing|usage"},
        {2, "analyse plan.kplan --fast", "--fast|usage"},
        {2, "analyse plan.kplan --iterations 0", "--iterations|from 1"},
        {2, "analyse plan.kplan --target-finish soon --json out", "'soon'|2027-10-01T17:00"},
        {2, "prioritise plan.kplan --percentile 101 --json out", "'101'|0 to 100"},
        {1, "prioritise plan.kplan --json out", "Task A - Dig carries risk factor 4",
         Replaced(kSmall, "<CostItem",
                  "<UserValue Name=\"RiskFactors\">(1,4)</UserValue><CostItem")},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.words);
        const Workplace place;
        place.Write("plan.kplan", row.plan);
        const RunResult result = place.Run(row.words);
        EXPECT_EQ(result.exitCode, row.exitCode);
        EXPECT_EQ(result.output, "");
        for (int i = 1; i <= kestrel::CountListItems(row.told, "|"); ++i)
            EXPECT_THAT(result.errors, HasSubstr(kestrel::GetListItem(row.told, i, "|")));
        if (row.exitCode == 1) {
            EXPECT_EQ(Lines(result.errors), 1) << result.errors;
            EXPECT_LT(result.errors.size(), 1000u);
        }
        EXPECT_EQ(place.FileCount(), 1u) << "nothing but the plan";
        EXPECT_EQ(place.Read("plan.kplan"), row.plan);
    }
}

TEST(CommandLine, ChecksAPlanAndListsEveryComplaint) {
    const Workplace place;
    std::string plan = Replaced(kSmall, "&lt;Probability&gt;50", "&lt;Probability&gt;120");
    plan = Replaced(plan, "&lt;Minimum&gt;100", "&lt;Minimum&gt;130");
    plan = Replaced(plan, "<CostItem", "<Link From=\"B\" Type=\"FS\" Lag=\"0\"/><CostItem");
    plan = Replaced(plan, "</Task></Tasks>",
                    "<UserValue Name=\"RiskFactors\">1, 1,9</UserValue></Task></Tasks>");
    place.Write("plan.kplan", plan);
    const RunResult result = place.Run("check plan.kplan");
    EXPECT_EQ(result.exitCode, 0);
    for (const char* text :
         {"probability of 120", "duration impact are out of order (130, 110, 150)",
          "Task B - Pour carries risk factor 1 twice", "carries '9'", "loop"})
        EXPECT_THAT(result.output, HasSubstr(text));
    EXPECT_EQ(Lines(result.output), 5);
    EXPECT_EQ(place.Run("check '" + kExample + "'").output, "");
}

TEST(CommandLine, TakesRegisterAndAssignmentsOverToACopyWithTheSameAnalysis) {
    const Workplace place;
    std::filesystem::copy_file(kExample, place.Path("example.kplan"));
    std::string bare = place.Read("example.kplan");
    bare.erase(bare.find("<Texts>"), bare.find("</Texts>") + 8 - bare.find("<Texts>"));
    const std::string open = "<UserValue Name=\"RiskFactors\">";
    for (std::size_t at; (at = bare.find(open)) != std::string::npos;)
        bare.erase(at, bare.find("</UserValue>", at) + 12 - at);
    place.Write("bare.kplan", bare);

    ASSERT_EQ(place.Run("save example.kplan all.xml").exitCode, 0);
    EXPECT_EQ(place.Run("load bare.kplan all.xml -o bare.kplan").exitCode, 1) << "not confirmed";
    EXPECT_EQ(place.Read("bare.kplan"), bare);
    ASSERT_EQ(place.Run("load bare.kplan all.xml --yes -o bare.kplan").exitCode, 0);
    place.Run("analyse example.kplan --iterations 100 --json a");
    place.Run("analyse bare.kplan --iterations 100 --json b");
    EXPECT_EQ(place.Read("a"), place.Read("b"));
    EXPECT_GT(place.Read("a").size(), 1000u);
}

TEST(CommandLine, ExchangesTheRegisterWithATemplate) {
    const Workplace place;
    place.Write("plan.kplan", kSmall);
    ASSERT_EQ(place.Run("factors plan.kplan --save template.xml").exitCode, 0);
    EXPECT_THAT(place.Read("template.xml"), HasSubstr("<MostLikely>110.00%</MostLikely>"));
    place.Write("other.kplan", Replaced(kSmall, "Frost", "Strike"));
    ASSERT_EQ(place.Run("factors other.kplan --load template.xml -o other.kplan").exitCode, 0);
    EXPECT_THAT(place.Run("factors other.kplan").output, HasSubstr("Frost"));
    place.Run("factors other.kplan --load '" KESTREL_BINARY_DIR
              "/Samples/SampleRiskFactors.xml' -o sample.kplan --save sample.csv");
    EXPECT_EQ(Lines(place.Read("sample.csv")), 1 + 12);
    EXPECT_EQ(place.Run("check sample.kplan").output, "");
    place.Run("assign other.kplan A --series 1 -o other.kplan");
    const RunResult refused = place.Run("factors other.kplan --load template.xml -o out");
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_THAT(refused.errors, HasSubstr("have been assigned to tasks"));
    EXPECT_FALSE(place.Exists("out"));
}

TEST(CommandLine, ExchangesTheRegisterAsATableThatNoSpreadsheetRuns) {
    const Workplace place;
    place.Write("plan.kplan", kSmall);
    place.Write("in.csv",
                "\xEF\xBB\xBF likelihood;Description;DUR MAX\r\n"
                "12,5 %;=1+1;150\r\n\r\n;\"@a;\"\"b\"\"\n\xD7\x90 <i>\";130.25%\r\n"
                "50;'-x;\r\n");
    ASSERT_EQ(place.Run("factors plan.kplan --load in.csv -o a.kplan --save a.csv").exitCode, 0);
    EXPECT_EQ(place.Read("a.csv"),
              "Description,Dur Min,Dur Likely,Dur Max,Cost Min,Cost Likely,Cost Max,Likelihood,"
              "Likelihood Correlated to\r\n"
              "\"'=1+1\",100%,100%,150%,100%,100%,100%,12.5%,0\r\n"
              "\"'@a;\"\"b\"\"\n\xD7\x90 <i>\",100%,100%,130.25%,100%,100%,100%,100%,0\r\n"
              "\"'-x\",100%,100%,100%,100%,100%,100%,50%,0\r\n");
    ASSERT_EQ(place.Run("factors a.kplan --load a.csv -o b.kplan --save b.tsv").exitCode, 0);
    EXPECT_EQ(place.Read("b.kplan"), place.Read("a.kplan")) << "what it wrote changes nothing";
    ASSERT_EQ(place.Run("assign a.kplan A-B --series 2 -o a.kplan").exitCode, 0);

    const struct {
        const char* table;
        const char* told;
    } rows[] = {
        {"Description,Dur Min\nFrost,wide\nFog,\"9,5\"\n",
         "t.csv: line 2, column Dur Min: 'wide'|line 3, column Dur Min: '9,5'"},
        {"Description;Dur Max\nFrost;90\n", "line 2, column Dur Max: '90%' is less than"},
        {"Description,Likelihood Correlated to\nFrost,1\n", "column Likelihood Correlated to: '1'"},
        {"Description,Cause\nFrost,cold\n", "line 1|'Cause'"},
        {"Description\n\"Frost\n", "line 2|none closes it"},
        {"Description\nFr\xF6st\n", "line 2|UTF-8"},
        {"Description\n=1+1\n", "risk factor 2|take it from the tasks"},
    };
    for (const auto& row : rows) {
        place.Write("t.csv", row.table);
        const RunResult refused = place.Run("factors a.kplan --load t.csv -o out");
        EXPECT_EQ(refused.exitCode, 1);
        for (int i = 1; i <= kestrel::CountListItems(row.told, "|"); ++i)
            EXPECT_THAT(refused.errors, HasSubstr(kestrel::GetListItem(row.told, i, "|")));
        EXPECT_FALSE(place.Exists("out"));
    }
}

TEST(CommandLine, AssignsToManyTasksAndListsWhatHasChanged) {
    const Workplace place;
    place.Write("from.csv", "Task,Risk Factors\n1110,\"(2(P));(4,5)\"\n1120,\n");
    place.Write("bad.csv", "Task,Risk Factors\n9999,1\n1110,1x\n");
    const struct {
        const char* words;
        int exitCode;
        const char* told;
    } rows[] = {
        {"1110-1120 --series 3", 0, "1110 - |-> (3)|1120 - "},
        {"1110,1120 --add \"(2(P));(1)\"", 0, "(3) -> (2(P));(3,1)"},
        {"1110 --add 2 --remove 3", 0, "(2(P));(3,1) -> (1,2)|1 of 1 task changed"},
        {"1100 --remove 1,2,3", 0, "1110 - |1120 - |-> no risk factors"},
        {"--from from.csv", 0, "-> (2(P));(4,5)|2 tasks changed"},
        {"--from bad.csv", 1, "line 2, column Task: |line 3, column Risk Factors: '1x'"},
        {"1120-1110 --add 1", 1, "stands before"},
        {"1110 --add 1 --series 2", 2, "--add"},
    };
    std::string plan = kExample;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.words);
        const RunResult result = place.Run("assign '" + plan + "' " + row.words + " -o plan.kplan");
        EXPECT_EQ(result.exitCode, row.exitCode) << result.errors;
        for (int i = 1; i <= kestrel::CountListItems(row.told, "|"); ++i)
            EXPECT_THAT(result.output + result.errors,
                        HasSubstr(kestrel::GetListItem(row.told, i, "|")));
        plan = "plan.kplan";
    }
}

TEST(CommandLine, ImportsAProjectFileAndAnalysesIt) {
    const Workplace place;
    place.Write("small.kplan", kSmall);
    place.Run("factors small.kplan --save template.xml");
    const RunResult imported =
        place.Run("import '" KESTREL_SOURCE_DIR "/tests/data/quay.xml' -o plan.kplan");
    ASSERT_EQ(imported.exitCode, 0);
    EXPECT_THAT(imported.errors,
                HasSubstr("11 of 12 tasks keep their dates; the largest shift is 2 days earlier, "
                          "12 Lighting; the finish stays\n"));
    EXPECT_THAT(imported.errors, HasSubstr("money is read as hundredths, as rate and work of 2"));
    const RunResult kept = place.Run("import '" KESTREL_SOURCE_DIR
                                     "/tests/data/quay.xml' -o kept.kplan --keep-dates --dates "
                                     "--costs whole");
    EXPECT_THAT(kept.errors, HasSubstr("all 12 tasks keep their dates; the finish stays\n"));
    EXPECT_EQ(Lines(kept.output), 1) << "no task moved";
    EXPECT_THAT(place.Read("kept.kplan"), HasSubstr("Cost=\"1250050\""));
    EXPECT_EQ(place.Run("check kept.kplan --dates").exitCode, 2);
    EXPECT_THAT(place.Run("check '" KESTREL_SOURCE_DIR "/tests/data/quay.xml' --dates").output,
                HasSubstr("12  Lighting  2026-04-01 08:00  2026-03-30 08:00"));
    EXPECT_EQ(place.Run("check plan.kplan").output, "");
    ASSERT_EQ(place.Run("factors plan.kplan --load template.xml -o plan.kplan").exitCode, 0);
    ASSERT_EQ(place.Run("assign plan.kplan 9 --series 1 -o plan.kplan").exitCode, 0);
    EXPECT_THAT(place.Run("assign plan.kplan --list -").output,
                HasSubstr("UID,ID,Name,RiskFactors\r\n11,1,Early works,\r\n"));
    EXPECT_THAT(place.Run("assign plan.kplan --list -").output,
                HasSubstr("\r\n19,9,Curing,(1)\r\n"));
    const RunResult result = place.Run("analyse plan.kplan --iterations 100");
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    EXPECT_THAT(result.output, HasSubstr("Frost"));
}

TEST(CommandLine, ReadsAndWritesStreamsAndMindsSignals) {
    const std::string longRun =
        "analyse plan.kplan --iterations 9000000 --trace t & p=$!; sleep 1; ";
    const struct {
        const char* name;
        std::string words;
        bool writesTrace;
    } rows[] = {
        {"a lost standard error is no other file",
         "analyse plan.kplan --iterations 9 --trace t 2>&- ;:", true},
        {"a lost standard output", "analyse plan.kplan --iterations 9 --trace t >&- ;:", false},
        {"a full standard output",
         "analyse plan.kplan --iterations 9 --trace t >/dev/full;:", false},
        {"an interrupt that was ignored",
         longRun + "kill -INT $p; sleep 1; kill -0 $p && echo on >t;"
                   "kill $p; wait $p;:",
         true},
        {"an end from outside", longRun + "kill $p; wait $p;:", false},
        {"a device",
         "analyse plan.kplan --iterations 9 --trace t --json /dev/null --chart /dev/null", true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const Workplace place;
        place.Write("plan.kplan", kSmall);
        place.Run(row.words);
        EXPECT_EQ(place.Exists("t"), row.writesTrace);
        EXPECT_EQ(place.FileCount(), row.writesTrace ? 2u : 1u);
    }
    const Workplace place;
    place.Write("plan.kplan", kSmall);
    EXPECT_THAT(place.Run("save - -", "plan.kplan").output, HasSubstr("Frost"));
    EXPECT_THAT(place.Run("--version").output, HasSubstr("kestrel "));
}

TEST(CommandLine, SetsEveryTaskBelowASummaryAndHeedsNoDefaultFile) {
    const Workplace place;
    std::string plan =
        Replaced(kSmall, "<Tasks>", "<Tasks><Task ID=\"S\" Name=\"All\" Type=\"1\">");
    place.Write("plan.kplan", Replaced(plan, "</Tasks>", "</Task></Tasks>"));
    const RunResult result = place.Run("assign plan.kplan S --series 1 -o plan.kplan");
    EXPECT_THAT(result.output,
                HasSubstr("B - Pour: no risk factors -> (1)\n2 of 3 tasks changed."));
    EXPECT_THAT(place.Run("assign plan.kplan B").output, HasSubstr("series    1  Frost"));

    place.Run("factors plan.kplan --save t.xml");
    plan = Replaced(kSmall, "<Texts>", "<Texts><!--");
    place.Write("empty.kplan", Replaced(plan, "</Texts>", "--></Texts>"));
    std::filesystem::create_directory(place.Path("kestrel"));
    place.Write(
        "kestrel/settings",
        "RiskFactors/RiskFactors/OptionSetting=1\nRiskFactors/RiskFactors/FileLocation=no\n");
    EXPECT_EQ(place.Run("factors empty.kplan --load t.xml -o out").exitCode, 0);
    EXPECT_THAT(place.Run("factors out").output, HasSubstr("Frost"));
}

TEST(CommandLine, KeepsTheReportApartFromAFileOnStandardOutput) {
    const Workplace place;
    place.Write("plan.kplan", kSmall);
    const RunResult result = place.Run("analyse plan.kplan --iterations 10 --json -");
    EXPECT_EQ(result.output[0], '{');
    EXPECT_EQ(result.output.back(), '\n');
    EXPECT_THAT(result.output, Not(HasSubstr("iterations, seed")));
    EXPECT_THAT(result.errors, HasSubstr("Deterministic"));
}

TEST(CommandLine, OptionsThatSeveralProgramsSaveAtOnceAllStay) {
    const Workplace place;
    const auto save = [&place](const std::string& program) {
        SettingsFile settings(place.Path("settings"));
        for (int i = 0; i < 50; ++i) settings.Save("Kestrel", program, std::to_string(i), "=\n");
    };
    std::thread other(save, "window");
    save("command line");
    other.join();
    SettingsFile settings(place.Path("settings"));
    for (const char* program : {"window", "command line"})
        for (int i = 0; i < 50; ++i)
            EXPECT_EQ(settings.Get("Kestrel", program, std::to_string(i), "lost"), "=\n") << i;
}

}  // namespace
}  // namespace refhost::test
