#pragma once

#include <windows.h>

#include "platform/win32/Handles.h"
#include "ui/controls/ChartDrawing.h"

namespace kestrel::ui::win32 {

struct MetafileTraits {
    using Value = HENHMETAFILE;
    static Value Invalid() { return nullptr; }
    static bool Close(Value file) { return DeleteEnhMetaFile(file) != FALSE; }
};
using Metafile = kestrel::win32::UniqueHandle<MetafileTraits>;

/// The drawing in its own size, 96 units to the inch, ready to be enlarged. Raises
/// std::system_error.
Metafile RecordChart(const ChartDrawing& drawing);

/// Puts the drawing on the clipboard as an enhanced metafile, in place of what is there. Raises
/// DataError when the clipboard cannot be had.
void CopyChart(const ChartDrawing& drawing);

}  // namespace kestrel::ui::win32
