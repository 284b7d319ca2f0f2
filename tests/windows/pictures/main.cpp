#include <iostream>

#include "host/modMain.h"
#include "ui/driving_risks/frmTornado.h"
#include "ui/progress/frmMessageBox.h"
#include "ui/progress/frmProgress.h"
#include "ui/progress/frmTextProgress.h"
#include "ui/win32/ProgressWindow.h"
#include "windows/pictures/Picture.h"
#include "windows/support/FerryStage.h"

/// Takes a picture of every window: pictures FOLDER.
namespace kestrel::test {
namespace {

constexpr const char* kAssignView = "AssignView";

struct Scene {
    const char* name;
    const wchar_t* caption;
    std::function<void(FerryStage&)> open;
    std::function<void(FerryStage&, WindowUser&)> prepare;
};

void ChooseView(FerryStage& stage, const char* view) {
    stage.settings.Save("RiskFactors", "RiskFactors", kAssignView, view);
    stage.host.OpenPlan()->CurrentView()->PutCurrentRow(12);
}

const Scene kScenes[] = {
    {"editor", L"Edit Risk Factors", [](FerryStage& stage) { stage.addin.LaunchEdit(); }, {}},
    {"options", L"Options", [](FerryStage& stage) { stage.addin.LaunchOptions(); }, {}},
    {"assign",
     L"Assign Risk Factors",
     [](FerryStage& stage) {
         ChooseView(stage, "1");
         stage.addin.LaunchAssign();
     },
     {}},
    {"assign-lists",
     L"Assign Risk Factors",
     [](FerryStage& stage) {
         ChooseView(stage, "2");
         stage.addin.LaunchAssign();
     },
     {}},
    {"driving-risks", L"Driving Risks", [](FerryStage& stage) { stage.addin.LaunchShow(); }, {}},
    {"command",
     L"Risk Factors",
     [](FerryStage& stage) { RunCommand(stage.addin.Globals(), stage.runner, {}, ""); },
     {}},
    {"question",
     L"Quillon Risk Analysis",
     [](FerryStage& stage) {
         ui::frmMessageBox box;
         box.lbMessage.SetCaption(
             "The assignments of task \"1110 - Environmental and bird "
             "surveys\" differ from those in the file.\n\nReplace them?");
         stage.runner.ShowModal(box);
     },
     {}},
    {"progress",
     L"Calculating Risk Sensitivity",
     [](FerryStage& stage) {
         ui::frmProgress progress;
         progress.SetProgressRange(100, "Calculating the sensitivity of factor 9 of 15");
         progress.SetPos(55);
         stage.runner.ShowModal(progress);
     },
     {}},
    {"steps",
     L"Progress",
     [](FerryStage& stage) {
         ui::frmTextProgress steps(stage.desktop);
         for (const char* step : {"Read the register", "Prepare the groups", "Run 1000 iterations",
                                  "Calculate sensitivities", "Store the register"})
             steps.AddToDo(step);
         steps.Done(0, "");
         steps.Done(0, "");
         stage.runner.ShowModal(steps);
     },
     {}},
};

/// The fonts of a present-day system, as far as they differ.
void SetMessageFont() {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    metrics.lfMessageFont.lfHeight = -12;  // 9 points
    wcscpy(metrics.lfMessageFont.lfFaceName, L"Open Sans");
    SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    SystemParametersInfoW(SPI_SETFONTSMOOTHING, TRUE, nullptr, 0);
    SystemParametersInfoW(SPI_SETFONTSMOOTHINGTYPE, 0,
                          reinterpret_cast<void*>(ULONG_PTR{FE_FONTSMOOTHINGSTANDARD}), 0);
}

/// The monitor that the window is on has another scale from now on.
void Rescale(HWND window, int dpi) {
    RECT place{};
    GetWindowRect(window, &place);
    place = {0, 0, MulDiv(place.right - place.left, dpi, 96),
             MulDiv(place.bottom - place.top, dpi, 96)};
    SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&place));
}

void Take(FerryStage& stage, const Scene& scene, const std::string& folder) {
    WhileWorking([&] { scene.open(stage); },
                 [&](WindowUser& user) {
                     const HWND window = user.WaitForWindow(scene.caption);
                     if (scene.prepare) scene.prepare(stage, user);
                     for (const int dpi : {96, 144}) {
                         user.OnUi([&] {
                             if (dpi != 96) Rescale(window, dpi);
                             RedrawWindow(window, nullptr, nullptr,
                                          RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
                             SavePicture(window, folder + "/" + scene.name +
                                                     (dpi == 96 ? "" : "-150") + ".bmp");
                         });
                     }
                 });
}

}  // namespace
}  // namespace kestrel::test

int main(int count, char** arguments) {
    using namespace kestrel::test;
    if (count != 2) {
        std::cerr << "usage: pictures FOLDER\n";
        return 2;
    }
    try {
        SetMessageFont();
        FerryStage stage(300);
        for (const Scene& scene : kScenes) Take(stage, scene, arguments[1]);
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return 0;
}
