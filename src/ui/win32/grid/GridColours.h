#pragma once

#include <windows.h>
#include "util/Colour.h"

namespace kestrel::ui::win32 {

/// What a grid is painted in: the user's colours, and shades between them, so that a grid looks
/// right on every colour scheme.
struct GridColours {
    /// As the user's scheme is now.
    static GridColours OfSystem();

    COLORREF window;
    COLORREF text;
    COLORREF header;
    COLORREF headerText;
    COLORREF headerLine;  ///< between headers
    COLORREF line;        ///< between cells
    COLORREF border;      ///< around the grid, and around check boxes
    COLORREF highlight;   ///< of selected rows
    COLORREF highlightText;
    COLORREF idle;  ///< of selected rows while the keyboard is elsewhere
    bool contrast;  ///< a high-contrast scheme, whose colours must not be mixed

    /// White, the colour of cells that nobody has coloured, stands for the window's colour.
    COLORREF Background(Colour colour) const;
    /// Whichever of the scheme's text and window colours reads better on the background.
    COLORREF TextOn(COLORREF background) const;
    /// A coloured cell in a selected row: it must be seen that it is both.
    COLORREF Selected(COLORREF background, bool focused) const;
};

/// `percent` of `second`, the rest of `first`.
COLORREF Mix(COLORREF first, COLORREF second, int percent);

}  // namespace kestrel::ui::win32
