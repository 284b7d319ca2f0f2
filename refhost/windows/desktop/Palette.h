#pragma once

#include <windows.h>
#include <optional>

namespace refhost::win32 {

/// The colours that a plan is painted in.
struct Palette {
    COLORREF paper, text, faintText;
    COLORREF header, headerText, ruling, faintRuling;
    COLORREF selected, selectedText, selectedIdle;  ///< idle: while another window has the keyboard
    COLORREF shade;                                 ///< time that is not worked
    COLORREF bar, barEdge;
    COLORREF riskBar, riskBarEdge, riskText;  ///< of tasks that carry risk factors
    COLORREF summary, milestone, link, today;
    /// What bars are shaded with, the more often critical the stronger; nothing in high contrast.
    std::optional<COLORREF> critical;

    /// The program's own colours or, for users of high contrast, the system's alone.
    static Palette Current();
};

}  // namespace refhost::win32
