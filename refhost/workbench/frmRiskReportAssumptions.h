#pragma once

#include <functional>
#include <optional>

#include "refhost/results/ReportPage.h"
#include "ui/controls/Button.h"
#include "ui/controls/CheckBox.h"
#include "ui/controls/Form.h"
#include "ui/controls/Label.h"

namespace refhost {

/// Asks which assumptions a report tells beside its results.
class frmRiskReportAssumptions : public kestrel::ui::Form {
 public:
    explicit frmRiskReportAssumptions(std::function<void()> help);

    /// Nothing unless the user confirmed.
    const std::optional<ReportAssumptions>& Result() const { return result_; }

    kestrel::ui::Label lblHint{"lblHint", "The report tells how its figures came about:"};
    kestrel::ui::CheckBox chkPercentages{"chkPercentages", "Include Risk Category &percentages"};
    kestrel::ui::CheckBox chkDistributions{"chkDistributions",
                                           "Include duration &distribution for each task"};
    kestrel::ui::CheckBox chkAssignments{"chkAssignments",
                                         "Include Risk Category &assignments for each task"};
    kestrel::ui::Button cmdOk{"cmdOk", "&OK"};
    kestrel::ui::Button cmdCancel{"cmdCancel", "Cancel"};
    kestrel::ui::Button cmdHelp{"cmdHelp", "&Help"};

 private:
    void cmdOk_Click();

    std::optional<ReportAssumptions> result_;
};

}  // namespace refhost
