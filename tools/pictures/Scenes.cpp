#include "tools/pictures/Scenes.h"

#include "host/modMain.h"
#include "store/RegisterDocument.h"
#include "ui/progress/frmMessageBox.h"
#include "ui/progress/frmProgress.h"
#include "ui/progress/frmTextProgress.h"

namespace kestrel::test {
namespace {

void Option(FerryStage& stage, const char* key, const char* value) {
    stage.settings.Save("RiskFactors", "RiskFactors", key, value);
}

/// Assigns with the view "1" (a grid) or "2" (lists) to the task in a row, from 1.
std::function<void(FerryStage&)> Assign(const char* view, std::int32_t row) {
    return [=](FerryStage& stage) {
        Option(stage, "AssignView", view);
        stage.host.OpenPlan()->CurrentView()->PutCurrentRow(row);
        stage.addin.LaunchAssign();
    };
}

/// Runs a command on a register of `count` factors with long texts.
void WithRegister(FerryStage& stage, int count, const std::function<void()>& command) {
    refhost::HostPlan& plan = *stage.host.OpenPlan();
    const std::string usual = plan.GetText("RiskFactors");
    modGlobals globals(stage.desktop);
    for (int i = 1; i <= count; ++i) {
        auto factor = std::make_shared<clsRiskFactor>();
        factor->strDescription =
            "Unforeseen difficulties in ground, groundwater and weather that "
            "concern section " +
            std::to_string(i);
        factor->dblDurSens = (i % 2 ? 0.9 : -0.9) / i;
        factor->m_dCostSens = 1.0 / (count - i + 1);
        globals.RiskFactors.push_back(std::move(factor));
    }
    SaveRegisterToPlan(globals.RiskFactors, plan);
    command();
    plan.SetText("RiskFactors", usual);
}

void AskQuestion(FerryStage& stage) {
    ui::frmMessageBox box;
    box.lbMessage.SetCaption(
        "The assignments of task \"1110 - Environmental and bird surveys\" differ from those in "
        "the file.\n\nReplace them?");
    stage.runner.ShowModal(box);
}

/// The driving risks, also where an earlier scene has made the results out of date.
void ShowDrivingRisks(FerryStage& stage) {
    stage.desktop.answers = {MessageAnswer::Yes};
    stage.addin.LaunchShow();
    stage.desktop.answers.clear();
}

void ShowProgress(FerryStage& stage) {
    ui::frmProgress progress;
    progress.SetProgressRange(100, "Calculating the sensitivity of factor 9 of 15");
    progress.SetPos(55);
    stage.runner.ShowModal(progress);
}

void ShowSteps(FerryStage& stage) {
    ui::frmTextProgress steps(stage.desktop);
    for (const char* step : {"Read the register", "Prepare the groups", "Run 1000 iterations",
                             "Calculate sensitivities", "Store the register"})
        steps.AddToDo(step);
    steps.Done(0, "");
    steps.Done(0, "");
    stage.runner.ShowModal(steps);
}

}  // namespace

const std::vector<Scene>& Scenes() {
    constexpr std::int32_t kSummary = 12, kTask = 13;
    static const std::vector<Scene> scenes = {
        {"editor", L"Edit Risk Factors", [](auto& stage) { stage.addin.LaunchEdit(); },
         [](WindowUser& user) {
             for (int i = 0; i < 3; ++i) user.Press(VK_DOWN);
             for (int i = 0; i < 2; ++i) user.Press(VK_RIGHT);
             user.Type("130");
         }},
        {"options", L"Options", [](auto& stage) { stage.addin.LaunchOptions(); }, {}},
        {"assign", L"Assign Risk Factors", Assign("1", kTask), {}},
        {"assign-summary", L"Assign Risk Factors", Assign("1", kSummary), {}},
        {"assign-lists", L"Assign Risk Factors", Assign("2", kTask), {}},
        {"driving-risks", L"Driving Risks", ShowDrivingRisks, {}},
        {"command",
         L"Risk Factors",
         [](auto& stage) { RunCommand(stage.addin.Globals(), stage.runner, {}, ""); },
         {}},
        {"question", L"Quillon Risk Analysis", AskQuestion, {}},
        {"progress", L"Calculating Risk Sensitivity", ShowProgress, {}},
        {"steps", L"Progress", ShowSteps, {}},
        {"editor-empty",
         L"Edit Risk Factors",
         [](auto& stage) {
             Option(stage, "OptionSetting", "3");
             WithRegister(stage, 0, [&] { stage.addin.LaunchEdit(); });
         },
         {}},
        {"editor-long",
         L"Edit Risk Factors",
         [](auto& stage) { WithRegister(stage, 40, [&] { stage.addin.LaunchEdit(); }); },
         {}},
        {"assign-lists-long",
         L"Assign Risk Factors",
         [](auto& stage) { WithRegister(stage, 40, [&] { Assign("2", kTask)(stage); }); },
         {}},
        {"driving-risks-empty",
         L"Driving Risks",
         [](auto& stage) { WithRegister(stage, 0, [&] { ShowDrivingRisks(stage); }); },
         {}},
        {"driving-risks-long", L"Driving Risks",
         [](auto& stage) { WithRegister(stage, 40, [&] { ShowDrivingRisks(stage); }); },
         [](WindowUser& user) { user.Press(VK_MENU, 'O'); }},
    };
    return scenes;
}

}  // namespace kestrel::test
