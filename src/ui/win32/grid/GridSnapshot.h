#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "ui/controls/Grid.h"

namespace kestrel::ui::win32 {

struct ShownCell {
    std::string text;
    Colour colour = kWhite;
    bool editable = true;
    bool check = false;
    bool operator==(const ShownCell&) const = default;
};

struct ShownRow {
    int row = 0;
    std::string header;
    std::vector<ShownCell> cells;
    bool selected = false;
    int currentColumn = -2;  ///< that of the current cell; -2 where it stands in another row
    std::size_t caret = 0;   ///< counted from 1 while a cell of the row is edited
    bool operator==(const ShownRow&) const = default;
};

/// What of a grid is to be seen: the header rows and the rows not scrolled away. Two of these tell
/// what a change has done to the window, at a cost that does not depend on the grid's length.
struct GridSnapshot {
    explicit GridSnapshot(const Grid& grid);

    /// Whether the header rows, or the room for them, are others than those of `before`.
    bool HeadersDiffer(const GridSnapshot& before) const;

    /// Where cells lie: size, widths and heights.
    std::vector<int> layout;
    int topRow = 0;
    int fixedRows = 0;
    std::vector<ShownRow> rows;  ///< the header rows first
    int rowCount = 0;
    int currentRow = -1;
    int currentColumn = 0;
};

}  // namespace kestrel::ui::win32
