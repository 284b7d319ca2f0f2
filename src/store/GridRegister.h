#pragma once

#include "core/model/modGlobals.h"
#include "util/GridTable.h"

/// The editor's grid as the register: row 0 holds the headers, the last row is the entry row, and
/// row r between them is risk factor number r.
namespace kestrel {

/// What the grid's columns hold. Columns 1 to 7 are percentages such as "100.00%".
enum RiskColumn : int {
    kDescriptionColumn = 0,
    kDurMinColumn = 1,
    kDurLikelyColumn = 2,
    kDurMaxColumn = 3,
    kCostMinColumn = 4,
    kCostLikelyColumn = 5,
    kCostMaxColumn = 6,
    kLikelihoodColumn = 7,
    kCorrelatedToColumn = 8,
    kRiskColumns = 9,
};

/// Last of the rows that hold a factor; 0 when there is none.
inline int LastRiskRow(const ui::GridTable& grid) { return grid.RowCount() - 2; }

/// Stores the grid's factors in the active plan and reads the register (`globals.RiskFactors`)
/// back from it. A likelihood outside 0 to 100, or a value of a triple below the one before it,
/// is told to the user: then nothing is stored and the answer is false. A cell that is not a
/// number raises DataError.
bool StoreGridAsRegister(modGlobals& globals, const ui::GridTable& grid);

}  // namespace kestrel
