#pragma once

#include <windows.h>

#include <string>

#include "ui/controls/ChartDrawing.h"

/// Charts on paper. What fails raises DataError with a sentence for the user.
namespace kestrel::ui::win32 {

/// Asks for a printer and prints the drawing on one page, as `documentName` (UTF-8) in the
/// printer's list. Prints nothing when the user cancels.
void AskAndPrintChart(HWND owner, const ChartDrawing& drawing, const std::string& documentName);

/// Prints on a printer's context, which must have no document open.
void PrintChart(HDC printer, const ChartDrawing& drawing, const std::string& documentName);

/// Where the drawing stands on the printer's page, in its printable area's pixels: as large as
/// margins of half an inch of paper leave it, in its own shape, at the top.
RECT PlaceOnPage(HDC printer, const ChartDrawing& drawing);

}  // namespace kestrel::ui::win32
