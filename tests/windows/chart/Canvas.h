#pragma once

#include <windows.h>

#include "platform/win32/Gdi.h"

namespace kestrel::test {

/// A bitmap to paint on, green where nothing has been painted.
class Canvas {
 public:
    static constexpr COLORREF kUntouched = RGB(0, 255, 0);

    Canvas(int width, int height) : picture_(screen_.Get(), width, height) {
        const win32::Brush green(CreateSolidBrush(kUntouched));
        const RECT all{0, 0, width, height};
        FillRect(Dc(), &all, green.Get());
    }
    HDC Dc() const { return picture_.Dc(); }
    COLORREF At(int x, int y) const { return GetPixel(Dc(), x, y); }

    /// The columns that hold anything but white between two rows; left > right when none does.
    struct Columns {
        int left, right;
    };
    Columns Inked(int fromRow, int toRow, int width) const {
        Columns ink{width, -1};
        for (int y = fromRow; y < toRow; ++y)
            for (int x = 0; x < width; ++x)
                if (At(x, y) != RGB(255, 255, 255)) {
                    ink.left = x < ink.left ? x : ink.left;
                    ink.right = x > ink.right ? x : ink.right;
                }
        return ink;
    }

 private:
    win32::WindowDc screen_{nullptr};
    win32::MemoryPicture picture_;
};

}  // namespace kestrel::test
