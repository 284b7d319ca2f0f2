#include "ui/win32/chart/ChartPrinter.h"

#include <commdlg.h>

#include <algorithm>
#include <cmath>

#include "base/Errors.h"
#include "platform/win32/Gdi.h"
#include "platform/win32/Handles.h"
#include "platform/win32/WideText.h"
#include "ui/win32/chart/ChartPainter.h"

namespace kestrel::ui::win32 {
namespace {

constexpr double kMarginInches = 0.5;

/// The user has cancelled in a dialog of the printer's own.
struct PrintingCancelled {};

/// A document at a printer; one that was not finished is thrown away.
class PrintDocument {
 public:
    PrintDocument(HDC printer, const std::string& name) : printer_(printer) {
        const std::wstring wide = kestrel::win32::Wide(name);
        DOCINFOW about{};
        about.cbSize = sizeof about;
        about.lpszDocName = wide.c_str();
        if (StartDocW(printer, &about) <= 0) Refuse();
    }
    PrintDocument(const PrintDocument&) = delete;
    PrintDocument& operator=(const PrintDocument&) = delete;
    ~PrintDocument() {
        if (printer_) AbortDoc(printer_);
    }

    void StartPage() {
        if (::StartPage(printer_) <= 0) Refuse();
    }
    void Finish() {
        if (EndPage(printer_) <= 0 || EndDoc(printer_) <= 0) Refuse();
        printer_ = nullptr;
    }

 private:
    [[noreturn]] static void Refuse() {
        if (GetLastError() == ERROR_CANCELLED || GetLastError() == ERROR_PRINT_CANCELLED)
            throw PrintingCancelled();
        throw DataError(
            "The chart was not printed because the printer does not take it; look at "
            "the printer and try again.");
    }

    HDC printer_;
};

/// What the paper's edge takes away on one side beyond what the printer cannot reach.
int Margin(double dpi, int unreachable) {
    return std::max(0, static_cast<int>(std::lround(dpi * kMarginInches)) - unreachable);
}

}  // namespace

RECT PlaceOnPage(HDC printer, const ChartDrawing& drawing) {
    const double dpiX = GetDeviceCaps(printer, LOGPIXELSX);
    const double dpiY = GetDeviceCaps(printer, LOGPIXELSY);
    const int offsetX = GetDeviceCaps(printer, PHYSICALOFFSETX);
    const int offsetY = GetDeviceCaps(printer, PHYSICALOFFSETY);
    const int printableX = GetDeviceCaps(printer, HORZRES);
    const int printableY = GetDeviceCaps(printer, VERTRES);
    const int farX = GetDeviceCaps(printer, PHYSICALWIDTH) - offsetX - printableX;
    const int farY = GetDeviceCaps(printer, PHYSICALHEIGHT) - offsetY - printableY;
    const int left = Margin(dpiX, offsetX), top = Margin(dpiY, offsetY);
    const double inchesX = (printableX - left - Margin(dpiX, farX)) / dpiX;
    const double inchesY = (printableY - top - Margin(dpiY, farY)) / dpiY;
    const double scale = std::min(inchesX / drawing.width, inchesY / drawing.height);
    return {left, top, left + static_cast<int>(std::lround(drawing.width * scale * dpiX)),
            top + static_cast<int>(std::lround(drawing.height * scale * dpiY))};
}

void PrintChart(HDC printer, const ChartDrawing& drawing, const std::string& documentName) {
    try {
        PrintDocument document(printer, documentName);
        document.StartPage();
        {
            const kestrel::win32::SavedState state(printer);
            PaintChartInto(printer, drawing, PlaceOnPage(printer, drawing));
        }
        document.Finish();
    } catch (const PrintingCancelled&) {
    }
}

void AskAndPrintChart(HWND owner, const ChartDrawing& drawing, const std::string& documentName) {
    PRINTDLGW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.Flags = PD_RETURNDC | PD_NOPAGENUMS | PD_NOSELECTION | PD_USEDEVMODECOPIESANDCOLLATE;
    const BOOL chosen = PrintDlgW(&dialog);
    const kestrel::win32::GlobalMemory mode(dialog.hDevMode), names(dialog.hDevNames);
    if (!chosen) {
        if (CommDlgExtendedError() == 0) return;
        throw DataError(
            "The chart cannot be printed because there is no printer ready; install "
            "one or look at the printer settings.");
    }
    const kestrel::win32::OwnDc printer(dialog.hDC);
    PrintChart(printer.Get(), drawing, documentName);
}

}  // namespace kestrel::ui::win32
