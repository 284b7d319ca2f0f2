#pragma once

#include <cstdint>

#include "core/model/modGlobals.h"
#include "ui/controls/Button.h"
#include "ui/controls/Chart.h"
#include "ui/controls/Form.h"
#include "ui/controls/Grid.h"
#include "ui/controls/Label.h"
#include "ui/controls/OptionButton.h"
#include "ui/controls/SpinButton.h"
#include "ui/controls/TextBox.h"
#include "ui/driving_risks/DrivingRisks.h"

namespace kestrel::ui {

/// The driving risks: the factors of the register (`globals.RiskFactors`) ranked by their
/// correlation with the project's finish or cost, and the first of them as a chart. It opens on
/// the finish. Nothing of it is stored.
class frmTornado : public Form {
 public:
    explicit frmTornado(modGlobals& globals);

    /// Number of factors that the chart shows; 0 to RiskCount().
    std::int32_t TopRisks() const { return topRisks_; }
    /// Number of factors in the register.
    std::int32_t RiskCount() const { return riskCount_; }

    /// Fills both grids from the register, and lowers TopRisks to the number of factors.
    void FillGrids();
    /// Draws the chart anew and shows the grid of the measure chosen.
    void DrawChart();

    OptionGroup Measures;
    OptionButton OptionDuration{Measures, "OptionDuration", "&Duration"};
    OptionButton OptionCost{Measures, "OptionCost", "C&ost"};
    Grid gridDur{"gridDur"};
    Grid gridCost{"gridCost"};
    Chart plotDur{"plotDur"};
    Label lblTopRisks{"lblTopRisks", "&Top risks:"};
    TextBox txtTopRisks{"txtTopRisks"};
    SpinButton SpinButton1{"SpinButton1"};
    Button cmdCopyToClip{"cmdCopyToClip", "&Copy Data to clipboard"};
    Button cmdHelp{"cmdHelp", "&Help"};
    Button cmdOK{"cmdOK", "Close"};

    void OptionDuration_Click();
    void OptionCost_Click();
    void SpinButton1_SpinUp();
    void SpinButton1_SpinDown();
    void cmdCopyToClip_Click();
    void cmdHelp_Click();
    void cmdOK_Click();

 protected:
    void Form_Load() override;

 private:
    /// DrawChart for what the user changes: a failure is told.
    void RedrawChart();
    void PlaceControls();
    void ConnectHandlers();
    void ShowTopRisks(std::int32_t count);
    Measure ChosenMeasure() const {
        return OptionDuration.Selected() ? Measure::Duration : Measure::Cost;
    }
    Grid& ChosenGrid() { return OptionDuration.Selected() ? gridDur : gridCost; }

    modGlobals& globals_;
    std::int32_t topRisks_ = 0;
    std::int32_t riskCount_ = 0;
};

}  // namespace kestrel::ui
