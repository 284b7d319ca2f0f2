#pragma once

#include "core/model/clsRiskFactor.h"
#include "store/GridRegister.h"
#include "ui/controls/Grid.h"

/// The editor's grid as rows of risk factors: row 0 holds the headers, below stand the data rows,
/// numbered from 1, and last the blank entry row.
namespace kestrel::ui {

/// Empties the grid and sets headers and column layout.
void SetUpRiskGrid(Grid& grid);

inline int LastRow(const Grid& grid) { return grid.RowCount() - 1; }
inline bool IsDataRow(const Grid& grid, int row) { return row >= 1 && row <= LastRiskRow(grid); }
bool RowHasContent(const Grid& grid, int row);

/// Appends a row and numbers its fixed cell.
int AppendNumberedRow(Grid& grid);
/// Numbers the fixed cells of all rows: "1.", "2.", ...
void NumberRows(Grid& grid);

void FillRow(Grid& grid, int row, const clsRiskFactor& factor);
/// Gives the row's blank percentages "100.00%" and a blank correlation "0".
void FillBlankFigures(Grid& grid, int row);
/// FillBlankFigures for every data row; blank descriptions become "Risk Factor1", "Risk
/// Factor2", ...
void FillBlankCells(Grid& grid);

/// Locked cells stand on the system's grey-text colour, others on white.
void SetCellEditable(Grid& grid, int row, int column, bool editable);

/// @name Correlations
/// A factor correlated to another carries the other's likelihood.
///@{
/// Locks the likelihood of rows that follow another and the correlation of rows that others
/// follow, and unlocks the rest. Linear in the rows.
void RefreshCellLocks(Grid& grid);
/// Gives the row's likelihood to the rows correlated to it, and on to those that follow these;
/// blank correlations become "0". Linear in the rows.
void CopyLikelihoodToCorrelated(Grid& grid, int row);
/// After row `removed` has gone: correlations to it become "0", higher ones close up.
void RenumberCorrelations(Grid& grid, int removed);
///@}

}  // namespace kestrel::ui
