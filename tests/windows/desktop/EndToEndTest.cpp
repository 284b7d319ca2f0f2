#include <gtest/gtest.h>

#include "TestPaths.h"
#include "host/clsKestrelDll.h"
#include "platform/win32/Clipboard.h"
#include "platform/win32/WideText.h"
#include "refhost/files/PlanFile.h"
#include "support/ScriptedRunner.h"
#include "windows/desktop/DesktopStage.h"

namespace refhost::win32 {
namespace {

using kestrel::test::WindowUser;

/// One factor a row, cell by cell as it is typed; Tab goes on from the last cell to the next row.
constexpr const char* kFactors[][9] = {
    {"Permit comes late", "100", "130", "180", "100", "100", "100", "40", "0"},
    {"Storms on the lake", "100", "115", "150", "100", "105", "120", "35", "0"},
    {"Barge on standby", "100", "100", "100", "100", "125", "170", "35", "2"},
    {"Rot in the old footings", "100", "120", "160", "100", "110", "140", "30", "0"},
    {"Timber price moves", "100", "100", "100", "95", "110", "130", "60", "0"},
    {"Carpenters are short", "100", "110", "140", "100", "105", "115", "45", "0"},
};

std::string RegisterText(HostPlan& plan) { return plan.GetText("RiskFactors"); }

/// The figures that the add-in linked into this program gives the plan of a file, analysed as the
/// file says.
std::string AnalysedRegister(DesktopStage& stage, const std::string& path) {
    PlanData data = ReadPlan(stage.desktop, path).plan;
    const AnalysisSettings settings = data.analysis;
    ReferenceHost host(stage.settings, ".");
    host.Open(std::make_shared<HostPlan>(std::move(data)));
    kestrel::test::ScriptedRunner runner;
    kestrel::clsKestrelDll addIn([&] { return host::ApplicationPtr(&host, [](auto*) {}); },
                                 stage.desktop, runner);
    addIn.LaunchStartSchedulon();
    RunAnalysis(host, settings);
    return RegisterText(*host.OpenPlan());
}

class EndToEndTest : public testing::Test {
 protected:
    void TypeFactors(WindowUser& user) {
        user.Press(VK_F4);
        // An empty register offers to load one; a new one is typed.
        const HWND dialog = user.WaitForWindow(L"Risk Factors");
        user.Press(VK_ESCAPE);
        user.WaitUntilGone(dialog);
        const HWND editor = user.WaitForWindow(L"Edit Risk Factors");
        for (const auto& factor : kFactors)
            for (const char* cell : factor) {
                user.Type(cell);
                user.Press(VK_TAB);
            }
        user.Press(VK_MENU, 'O');
        user.WaitUntilGone(editor);
    }

    /// Ticks factors (from 1, ascending) for the task with this name.
    void Assign(WindowUser& user, const std::string& task, const std::vector<int>& factors) {
        SelectTask(user, task);
        user.Press(VK_F5);
        const HWND dialog = user.WaitForWindow(L"Assign Risk Factors");
        int row = 1;
        for (const int factor : factors) {
            for (; row < factor; ++row) user.Press(VK_DOWN);
            user.Press(VK_SPACE);
        }
        user.Press(VK_MENU, 'O');
        if (task == "Building") stage.AnswerMessage(user, "applied to all sub tasks");
        user.WaitUntilGone(dialog);
    }

    void SelectTask(WindowUser& user, const std::string& task) {
        stage.WaitForTitle(user, title);
        user.Press(VK_HOME);
        const auto& tasks = stage.host.OpenPlan()->Data().tasks;
        std::size_t index = 0;
        for (; tasks.at(index).name != task; ++index) user.Press(VK_DOWN);
        user.WaitUntil("the task is selected",
                       [&] { return stage.Bench().View()->SelectedTask() == index; });
    }

    void Analyse(WindowUser& user, const std::string& iterations, const std::string& seed) {
        user.Press(VK_F9);
        const HWND ask = user.WaitForWindow(L"Run Risk Analysis");
        user.Type(iterations);
        user.Press(VK_TAB);
        user.Type(seed);
        user.Press(VK_RETURN);
        user.WaitUntilGone(ask);
        stage.CloseByKeys(user, L"Analysis Results");
    }

    DesktopStage stage;
    std::wstring title;  ///< that the main window has between commands
};

TEST_F(EndToEndTest, FromAProjectFileToTheDrivingRisks) {
    const std::string project = stage.Copy("boathouse.xml");
    std::string copied;
    stage.Work(project, [&](WindowUser& user) {
        stage.WaitForTitle(user, title = L"Boathouse - Kestrel");
        TypeFactors(user);
        title = L"Boathouse* - Kestrel";
        Assign(user, "Building permit", {1});
        Assign(user, "Piles", {2, 3, 4});
        Assign(user, "Foundations", {4});
        Assign(user, "Timber frame from the workshop", {5});
        Assign(user, "Building", {6});
        Analyse(user, "1000", "7");
        stage.WaitForTitle(user, title);
        user.Press(VK_F6);
        const HWND risks = user.WaitForWindow(L"Driving Risks");
        user.Press(VK_MENU, 'O');                    // the cost
        user.Press(VK_MENU, 'C');                    // copies the table
        user.WaitUntil("the table is copied", [&] {  // something older may stand there
            return (copied = kestrel::win32::ClipboardText()).starts_with("ID\t");
        });
        user.Press(VK_ESCAPE);
        user.WaitUntilGone(risks);
        user.Press(VK_CONTROL, 'S');
        user.WaitForWindow(L"Save Plan As");
        user.Press(VK_RETURN);  // the name that is proposed
        stage.WaitForTitle(user, L"Boathouse - Kestrel");
        stage.Leave(user, false);
    });
    const std::string saved = stage.Path("boathouse.kplan");
    ASSERT_TRUE(std::filesystem::exists(saved));
    HostPlan plan(ReadPlan(stage.desktop, saved).plan);
    EXPECT_EQ(plan.Data().analysis,
              (AnalysisSettings{.iterations = 1000, .seed = 7, .upToDate = true}));
    EXPECT_EQ(RegisterText(plan), AnalysedRegister(stage, saved));
    EXPECT_NE(RegisterText(plan).find("<CorrelatedTo>2</CorrelatedTo>"), std::string::npos);
    EXPECT_EQ(copied.rfind("ID\tDescription\tImportance\t\r\n", 0), 0u) << copied;
    EXPECT_EQ(std::count(copied.begin(), copied.end(), '\n'), 7) << copied;
    int carrying = 0;
    for (const TaskData& task : plan.Data().tasks) carrying += !task.userValues.empty();
    EXPECT_EQ(carrying, 2 + 7) << "a summary's factor goes to the tasks below it";
}

TEST_F(EndToEndTest, TheSameSeedGivesTheSameFiguresAndChangesMakeThemOld) {
    const std::string path = stage.Copy("ferry-terminal.kplan");
    std::string first, second;
    stage.Work(path, [&](WindowUser& user) {
        stage.WaitForTitle(user, L"Eastmere ferry terminal - Kestrel");
        title = L"Eastmere ferry terminal* - Kestrel";
        for (std::string* figures : {&first, &second}) {
            Analyse(user, "200", "7");
            stage.WaitForTitle(user, title);
            user.OnUi([&] { *figures = RegisterText(*stage.host.OpenPlan()); });
        }
        user.Press(VK_F6);
        stage.CloseByKeys(user, L"Driving Risks");  // no question
        Assign(user, "Contract award", {3});
        stage.WaitForTitle(user, title);
        user.Press(VK_F6);
        stage.AnswerMessage(user, "The risk analysis is out of date.", 'N');
        stage.WaitForTitle(user, title);

        user.Press(VK_F5);  // walking to the next task moves the selection in the window
        const HWND dialog = user.WaitForWindow(L"Assign Risk Factors");
        const auto before = stage.Bench().View()->Changes();
        user.Press(VK_MENU, 'N');
        user.WaitUntil("the window shows the next task", [&] {
            return stage.Bench().View()->SelectedTask() == 2 &&
                   stage.Bench().View()->Changes() > before;
        });
        user.Press(VK_ESCAPE);
        user.WaitUntilGone(dialog);

        user.Press(VK_MENU, VK_F4);
        const HWND question = user.WaitForWindow(L"Kestrel");
        user.Press(VK_ESCAPE);
        user.WaitUntilGone(question);
        stage.WaitForTitle(user, title);
        stage.Leave(user, true);
    });
    EXPECT_EQ(first, second);
    const PlanData file = ReadPlan(stage.desktop, path).plan;
    const PlanData original =
        ReadPlan(stage.desktop, KESTREL_SOURCE_DIR "/examples/ferry-terminal.kplan").plan;
    EXPECT_EQ(file, original) << "what is not saved changes no file";
}

}  // namespace
}  // namespace refhost::win32
