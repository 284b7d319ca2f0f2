#include <windows.h>
#include <iostream>

#include "tools/pictures/Picture.h"
#include "tools/pictures/Scenes.h"

/// Takes a picture of every window, at 100 % and 150 %: pictures FOLDER.
namespace kestrel::test {
namespace {

/// Messages as a present-day system shows them, in a font of that kind that is drawn smoothly.
void SetMessageFont() {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    for (LOGFONTW* font : {&metrics.lfMessageFont, &metrics.lfCaptionFont}) {
        font->lfHeight = -12;  // 9 points
        font->lfWeight = FW_NORMAL;
        lstrcpynW(font->lfFaceName, L"Open Sans", LF_FACESIZE);
    }
    SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
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
    const auto script = [&](WindowUser& user) {
        const HWND window = user.WaitForWindow(scene.caption);
        if (scene.prepare) scene.prepare(user);
        user.WaitUntil("all input has been worked", [] { return !GetInputState(); });
        for (const int dpi : {96, 144})
            user.OnUi([&] {
                if (dpi != 96) Rescale(window, dpi);
                RedrawWindow(window, nullptr, nullptr,
                             RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
                SavePicture(window, folder + "/" + scene.name + (dpi == 96 ? "" : "-150") + ".bmp");
            });
        user.CloseAll();
    };
    WhileWorking([&] { scene.open(stage); }, script);
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
        for (const Scene& scene : Scenes()) Take(stage, scene, arguments[1]);
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return 0;
}
