#pragma once

#include <optional>

#include "platform/Desktop.h"
#include "refhost/engine/PlanData.h"
#include "ui/controls/Button.h"
#include "ui/controls/Form.h"
#include "ui/controls/Label.h"
#include "ui/controls/TextBox.h"

namespace refhost {

/// Asks for the number of iterations and the seed of an analysis.
class frmRunAnalysis : public kestrel::ui::Form {
 public:
    /// Starts from the settings that the plan holds.
    frmRunAnalysis(kestrel::Desktop& desktop, const AnalysisSettings& settings);

    /// Nothing unless the user confirmed.
    const std::optional<AnalysisSettings>& Result() const { return result_; }

    kestrel::ui::Label lblIterations{"lblIterations", "&Iterations:"};
    kestrel::ui::TextBox txtIterations{"txtIterations"};
    kestrel::ui::Label lblSeed{"lblSeed", "&Seed:"};
    kestrel::ui::TextBox txtSeed{"txtSeed"};
    kestrel::ui::Label lblHint{"lblHint", "The same plan and seed give the same figures."};
    kestrel::ui::Button cmdRun{"cmdRun", "&Run"};
    kestrel::ui::Button cmdCancel{"cmdCancel", "Cancel"};

    void cmdRun_Click();

 private:
    void Refuse(kestrel::ui::TextBox& box, const std::string& text);

    kestrel::Desktop& desktop_;
    AnalysisSettings settings_;
    std::optional<AnalysisSettings> result_;
};

}  // namespace refhost
