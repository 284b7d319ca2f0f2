#pragma once

namespace refhost {

/// What the host's menus offer, beside the files opened last.
enum class WorkbenchCommand {
    Open,
    Save,
    SaveAs,
    Exit,
    RunAnalysis,
    ShowResults,
    WriteReport,
    EditFactors,
    AssignFactors,
    ShowDrivingRisks,
    SaveFactors,
    LoadFactors,
    ImportTable,
    ExportTable,
    FactorOptions,
    ZoomIn,
    ZoomOut,
    WholePlan,
    GoToToday,
    GoToSelectedTask,
    ExpandAll,
    CollapseAll,
    ShowKeys,
    About,
};

}  // namespace refhost
