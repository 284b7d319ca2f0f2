#include "ui/win32/chart/ChartMetafile.h"

#include <string>

#include "platform/win32/Gdi.h"
#include "platform/win32/WideText.h"
#include "ui/win32/chart/ChartPainter.h"
#include "util/Errors.h"

namespace kestrel::ui::win32 {
namespace {

constexpr int kUnitsPerInch = 96;
constexpr int kFramePerInch = 2540;  ///< frames are in hundredths of a millimetre

/// For as long as the clipboard is the program's.
class OpenedClipboard {
 public:
    explicit OpenedClipboard(HWND owner) {
        if (!OpenClipboard(owner))
            throw DataError(
                "The chart was not copied because another program uses the clipboard; try again.");
    }
    OpenedClipboard(const OpenedClipboard&) = delete;
    OpenedClipboard& operator=(const OpenedClipboard&) = delete;
    ~OpenedClipboard() { CloseClipboard(); }
};

/// The context that draws a metafile.
class Recording {
 public:
    Recording(HDC reference, const RECT& frame, const std::wstring& description)
        : dc_(CreateEnhMetaFileW(reference, nullptr, &frame, description.c_str())) {
        if (!dc_) kestrel::win32::RaiseGdiError("cannot make a metafile");
    }
    Recording(const Recording&) = delete;
    Recording& operator=(const Recording&) = delete;
    ~Recording() {
        if (dc_) DeleteEnhMetaFile(CloseEnhMetaFile(dc_));
    }
    HDC Dc() const { return dc_; }
    /// Ends the recording.
    Metafile Close() { return Metafile(CloseEnhMetaFile(std::exchange(dc_, nullptr))); }

 private:
    HDC dc_;
};

}  // namespace

Metafile::Metafile(HENHMETAFILE closed) : file_(closed) {
    if (!file_) kestrel::win32::RaiseGdiError("cannot make a metafile");
}

Metafile RecordChart(const ChartDrawing& drawing) {
    const kestrel::win32::WindowDc screen(nullptr);
    const RECT frame{0, 0, MulDiv(drawing.width, kFramePerInch, kUnitsPerInch),
                     MulDiv(drawing.height, kFramePerInch, kUnitsPerInch)};
    // Program and picture, each with a NUL behind it.
    const std::wstring about =
        L"Kestrel" + std::wstring(1, L'\0') + kestrel::win32::Wide(drawing.title) + L'\0';
    Recording recording(screen.Get(), frame, about);
    // The screen's own idea of its size in millimetres is the metafile's ruler, not its dpi.
    const HDC dc = recording.Dc();
    const RECT target{
        0, 0, MulDiv(frame.right, GetDeviceCaps(dc, HORZRES), GetDeviceCaps(dc, HORZSIZE) * 100),
        MulDiv(frame.bottom, GetDeviceCaps(dc, VERTRES), GetDeviceCaps(dc, VERTSIZE) * 100)};
    PaintChartInto(dc, drawing, target);
    return recording.Close();
}

void CopyChart(HWND owner, const ChartDrawing& drawing) {
    Metafile picture = RecordChart(drawing);
    const OpenedClipboard clipboard(owner);
    EmptyClipboard();
    if (SetClipboardData(CF_ENHMETAFILE, picture.Get()))
        static_cast<void>(picture.Detach());  // the clipboard's from here on
    else
        throw DataError("The chart was not copied because the clipboard refused it; try again.");
}

}  // namespace kestrel::ui::win32
