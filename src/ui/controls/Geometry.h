#pragma once

/// Places and sizes in device-independent units (96 to the inch), from the form's or the
/// control's own upper left corner.
namespace kestrel::ui {

struct Rect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    bool operator==(const Rect&) const = default;

    bool Contains(int px, int py) const {
        return px >= x && py >= y && px < x + width && py < y + height;
    }
};

/// The edges of the form that an edge of the control keeps its distance from. A control held on
/// both sides grows with the form, one held on the far side only moves.
enum Anchor : unsigned {
    kAnchorLeft = 1,
    kAnchorTop = 2,
    kAnchorRight = 4,
    kAnchorBottom = 8,
    kAnchorAll = 15,
};

}  // namespace kestrel::ui
