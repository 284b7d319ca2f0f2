#pragma once

#include <windows.h>

#include <utility>

#include "ui/controls/ChartDrawing.h"

namespace kestrel::ui::win32 {

/// Owns an enhanced metafile.
class Metafile {
 public:
    /// Takes it over; none raises std::system_error.
    explicit Metafile(HENHMETAFILE closed);
    Metafile(Metafile&& other) noexcept : file_(std::exchange(other.file_, nullptr)) {}
    Metafile& operator=(Metafile&& other) noexcept {
        std::swap(file_, other.file_);
        return *this;
    }
    ~Metafile() {
        if (file_) DeleteEnhMetaFile(file_);
    }
    HENHMETAFILE Get() const { return file_; }
    /// Hands the metafile over to the caller.
    HENHMETAFILE Detach() { return std::exchange(file_, nullptr); }

 private:
    HENHMETAFILE file_;
};

/// The drawing in its own size, 96 units to the inch, ready to be enlarged.
Metafile RecordChart(const ChartDrawing& drawing);

/// Puts the drawing on the clipboard as an enhanced metafile, in place of what is there. `owner`
/// is a window of the program. Raises DataError when another program holds the clipboard.
void CopyChart(HWND owner, const ChartDrawing& drawing);

}  // namespace kestrel::ui::win32
