#pragma once

#include <string>

#include "refhost/workbench/Workbench.h"
#include "ui/win32/AccessibleParts.h"
#include "ui/win32/ControlView.h"

namespace refhost::win32 {

/// The plan as screen readers see it: a row of headings, then a row for each task on show. In each
/// the first part is the row as a whole, with what it says in its description; the others are its
/// cells and, last, its bar. The row of the selected task is the one that keys go on from.
class PlanParts : public kestrel::ui::win32::AccessibleSource {
 public:
    /// Both must outlive it.
    PlanParts(kestrel::ui::win32::ViewContext& context, Workbench& bench)
        : context_(context), bench_(bench) {}

    /// @name AccessibleSource
    ///@{
    /// None while no plan is open.
    long PartCount() const override;
    long PartsPerRow() const override { return kBar + 1; }
    std::string PartName(long part) const override;
    /// A row's level from 1, a cell's text, a bar's dates.
    std::string PartValue(long part) const override;
    std::string PartDescription(long part) const override;
    std::string PartAction(long part) const override;
    long PartRole(long part) const override;
    long PartState(long part) const override;
    RECT PartPlace(long part) const override;
    long PartAt(POINT place) const override;
    long FocusedPart() const override;
    HRESULT SelectPart(long part, long flags) override;
    /// Expands or collapses a summary's row.
    HRESULT ActOn(long part) override;
    ///@}

 private:
    static constexpr int kWholeRow = 0, kBar = TaskTable::kColumns + 1;
    struct Cell {
        bool heading;
        std::size_t row;  ///< of the outline; 0 for headings
        int place;        ///< kWholeRow, a column from 1, kBar
        std::size_t task;
    };
    struct Box {
        double left, top, right, bottom;  ///< units of the view
    };

    PlanView& View() const { return *bench_.View(); }
    Cell CellOf(long part) const;
    long IdOf(std::size_t row, int place) const;
    std::string Text(std::size_t task, int place) const;
    std::string Dates(std::size_t task) const;
    Box BarOf(const Cell& cell) const;
    double Scale() const { return context_.dpi / 96.0; }

    kestrel::ui::win32::ViewContext& context_;
    Workbench& bench_;
};

}  // namespace refhost::win32
