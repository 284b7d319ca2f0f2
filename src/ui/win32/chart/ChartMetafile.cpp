#include "ui/win32/chart/ChartMetafile.h"

#include <string>
#include <utility>

#include "platform/win32/Clipboard.h"
#include "platform/win32/Gdi.h"
#include "platform/win32/WideText.h"
#include "ui/win32/chart/ChartPainter.h"

namespace kestrel::ui::win32 {
namespace {

constexpr int kUnitsPerInch = 96;
constexpr int kFramePerInch = 2540;  ///< frames are in hundredths of a millimetre

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
    Metafile Close() {
        Metafile closed(CloseEnhMetaFile(std::exchange(dc_, nullptr)));
        if (!closed) kestrel::win32::RaiseGdiError("cannot finish a metafile");
        return closed;
    }

 private:
    HDC dc_;
};

}  // namespace

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

void CopyChart(const ChartDrawing& drawing) {
    Metafile picture = RecordChart(drawing);
    kestrel::win32::Clipboard clipboard;
    clipboard.Put(CF_ENHMETAFILE, picture.Get());
    static_cast<void>(picture.Detach());  // the clipboard's from here on
}

}  // namespace kestrel::ui::win32
