#pragma once

#include <windows.h>

#include <system_error>
#include <utility>

/// Owners of what the system lends for drawing: each gives it back at its end.
namespace kestrel::win32 {

/// A function of the drawing system answered no object: its table is full, or a handle is wrong.
[[noreturn]] inline void RaiseGdiError(const char* what) {
    throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), what);
}

/// Owns a font, pen, brush, bitmap or region. It must not be selected anywhere when it ends, so
/// declare its Selection behind it.
template <class Handle>
class GdiObject {
 public:
    GdiObject() = default;
    /// Takes over what a Create... function answered; none raises std::system_error.
    explicit GdiObject(Handle created) : handle_(created) {
        if (!handle_) RaiseGdiError("cannot create a drawing object");
    }
    GdiObject(GdiObject&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    GdiObject& operator=(GdiObject&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~GdiObject() {
        if (handle_) DeleteObject(handle_);
    }

    Handle Get() const { return handle_; }
    explicit operator bool() const { return handle_ != nullptr; }

 private:
    Handle handle_ = nullptr;
};

using Font = GdiObject<HFONT>;
using Pen = GdiObject<HPEN>;
using Brush = GdiObject<HBRUSH>;
using Bitmap = GdiObject<HBITMAP>;

/// Draws with an object; at the end the context has its former one again.
class Selection {
 public:
    Selection(HDC dc, HGDIOBJ object) : dc_(dc), former_(SelectObject(dc, object)) {}
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;
    ~Selection() { SelectObject(dc_, former_); }

 private:
    HDC dc_;
    HGDIOBJ former_;
};

/// Puts all settings of a context back: mapping, colours, clipping, selected objects.
class SavedState {
 public:
    explicit SavedState(HDC dc) : dc_(dc), state_(SaveDC(dc)) {}
    SavedState(const SavedState&) = delete;
    SavedState& operator=(const SavedState&) = delete;
    ~SavedState() { RestoreDC(dc_, state_); }

 private:
    HDC dc_;
    int state_;
};

/// A context that the program made itself (CreateDC, CreateCompatibleDC, PrintDlg).
class OwnDc {
 public:
    OwnDc() = default;
    /// Takes it over; none raises std::system_error.
    explicit OwnDc(HDC created) : dc_(created) {
        if (!dc_) RaiseGdiError("cannot create a drawing context");
    }
    OwnDc(OwnDc&& other) noexcept : dc_(std::exchange(other.dc_, nullptr)) {}
    OwnDc& operator=(OwnDc&& other) noexcept {
        std::swap(dc_, other.dc_);
        return *this;
    }
    ~OwnDc() {
        if (dc_) DeleteDC(dc_);
    }
    HDC Get() const { return dc_; }

 private:
    HDC dc_ = nullptr;
};

/// The context of a window, or of the whole screen.
class WindowDc {
 public:
    explicit WindowDc(HWND window) : window_(window), dc_(GetDC(window)) {
        if (!dc_) RaiseGdiError("cannot get a window's drawing context");
    }
    WindowDc(const WindowDc&) = delete;
    WindowDc& operator=(const WindowDc&) = delete;
    ~WindowDc() { ReleaseDC(window_, dc_); }
    HDC Get() const { return dc_; }

 private:
    HWND window_;
    HDC dc_;
};

/// For the time of a WM_PAINT.
class PaintScope {
 public:
    explicit PaintScope(HWND window) : window_(window) { BeginPaint(window, &paint_); }
    PaintScope(const PaintScope&) = delete;
    PaintScope& operator=(const PaintScope&) = delete;
    ~PaintScope() { EndPaint(window_, &paint_); }
    HDC Dc() const { return paint_.hdc; }
    const RECT& Dirty() const { return paint_.rcPaint; }

 private:
    HWND window_;
    PAINTSTRUCT paint_{};
};

/// A picture in memory, drawn on like the device it was made for: what is drawn appears all at
/// once when it is copied, which is what keeps windows from flickering.
class MemoryPicture {
 public:
    /// At least one pixel wide and high.
    MemoryPicture(HDC device, int width, int height)
        : dc_(CreateCompatibleDC(device)),
          bitmap_(CreateCompatibleBitmap(device, width > 0 ? width : 1, height > 0 ? height : 1)),
          selection_(dc_.Get(), bitmap_.Get()) {}

    HDC Dc() const { return dc_.Get(); }
    /// The part of the picture to the same place of a device.
    void CopyTo(HDC device, const RECT& part) const {
        BitBlt(device, part.left, part.top, part.right - part.left, part.bottom - part.top,
               dc_.Get(), part.left, part.top, SRCCOPY);
    }

 private:
    OwnDc dc_;
    Bitmap bitmap_;
    Selection selection_;
};

}  // namespace kestrel::win32
