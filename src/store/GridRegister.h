#pragma once

#include <optional>
#include <string>

#include "core/model/RiskElements.h"
#include "core/model/modGlobals.h"
#include "util/GridTable.h"

/// The editor's grid as the register: row 0 holds the headers, the last row is the entry row, and
/// row r between them is risk factor number r.
namespace kestrel {

/// Last of the rows that hold a factor; 0 when there is none.
inline int LastRiskRow(const ui::GridTable& grid) { return grid.RowCount() - 2; }

/// A cell that keeps the grid from being stored, and the sentence that says why.
struct RefusedCell {
    int row = 0;
    int column = 0;
    std::string message;
};

/// Whether the text, less its percent signs, is a number.
bool IsCellNumber(std::string text);
/// The refusal of a cell that should hold a number.
RefusedCell NotANumber(const ui::GridTable& grid, int row, int column);

/// Stores the grid's factors in the active plan and reads the register (`globals.RiskFactors`)
/// back from it. A likelihood outside 0 to 100, or a value of a triple below the one before it,
/// or a cell that is not a number, is answered: then nothing is stored.
std::optional<RefusedCell> StoreGridAsRegister(modGlobals& globals, const ui::GridTable& grid);

}  // namespace kestrel
