#pragma once

#include <functional>
#include <string>
#include <vector>

#include "ui/controls/ChartDrawing.h"

namespace refhost {

/// One bar of a staircase, from one value to another.
struct StaircaseRow {
    std::string label;
    double from = 0;
    double to = 0;
    std::string note;    ///< stands behind the bar
    bool total = false;  ///< a level on its own: its bar comes from the axis, `from` is not read
};

/// Rows that lead down (or up) from one level to another, and below them, on an axis of its own
/// around zero, what each of some changes makes by itself.
struct Staircase {
    std::string title;
    std::string subtitle;
    std::string singlesTitle;
    std::vector<StaircaseRow> rows;     ///< at least one
    std::vector<StaircaseRow> singles;  ///< bars from 0 to `to`; may be empty
    bool dates = false;                 ///< values are day serials: ticks stand on Mondays
    std::function<std::string(double)> tick;
};

/// Lays it out; the height comes from the number of rows. Below 600 units of width labels stand
/// above their bars instead of beside them.
kestrel::ui::ChartDrawing DrawStaircase(const Staircase& staircase, int width);

}  // namespace refhost
