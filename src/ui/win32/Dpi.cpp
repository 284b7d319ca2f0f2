#include "ui/win32/Dpi.h"

namespace kestrel::ui::win32 {
namespace {

/// A function of the window system; nothing where this edition lacks it.
template <class Function>
Function UserFunction(const char* name) {
    const FARPROC found = GetProcAddress(GetModuleHandleW(L"user32.dll"), name);
    return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(found));
}
#define KESTREL_USER_FUNCTION(name) UserFunction<decltype(&name)>(#name)

NONCLIENTMETRICSW Metrics(UINT dpi, bool& scaled) {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    const auto forDpi = KESTREL_USER_FUNCTION(SystemParametersInfoForDpi);
    scaled = forDpi && forDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, dpi);
    if (!scaled) SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    return metrics;
}

int Scaled(int value, UINT dpi) {
    return MulDiv(value, static_cast<int>(dpi), static_cast<int>(SystemDpi()));
}

}  // namespace

DpiScope::DpiScope() {
    const auto set = KESTREL_USER_FUNCTION(SetThreadDpiAwarenessContext);
    if (!set) return;
    former_ = set(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
    if (!former_) former_ = set(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE);
}

DpiScope::~DpiScope() {
    if (former_) KESTREL_USER_FUNCTION(SetThreadDpiAwarenessContext)(former_);
}

UINT DpiOf(HWND window) {
    const auto ofWindow = KESTREL_USER_FUNCTION(GetDpiForWindow);
    const UINT dpi = ofWindow ? ofWindow(window) : 0;
    return dpi ? dpi : SystemDpi();
}

UINT SystemDpi() {
    if (const auto ofSystem = KESTREL_USER_FUNCTION(GetDpiForSystem)) return ofSystem();
    const kestrel::win32::WindowDc screen(nullptr);
    return static_cast<UINT>(GetDeviceCaps(screen.Get(), LOGPIXELSY));
}

kestrel::win32::Font MessageFont(UINT dpi) {
    bool scaled = false;
    LOGFONTW font = Metrics(dpi, scaled).lfMessageFont;
    if (!scaled) font.lfHeight = Scaled(font.lfHeight, dpi);
    return kestrel::win32::Font(CreateFontIndirectW(&font));
}

SIZE WindowSize(SIZE inner, DWORD style, DWORD extendedStyle, UINT dpi) {
    RECT around{0, 0, inner.cx, inner.cy};
    const auto forDpi = KESTREL_USER_FUNCTION(AdjustWindowRectExForDpi);
    if (!forDpi || !forDpi(&around, style, FALSE, extendedStyle, dpi))
        AdjustWindowRectEx(&around, style, FALSE, extendedStyle);
    return {around.right - around.left, around.bottom - around.top};
}

}  // namespace kestrel::ui::win32
