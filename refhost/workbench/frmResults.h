#pragma once

#include <functional>

#include "platform/Desktop.h"
#include "refhost/workbench/ResultsView.h"
#include "ui/controls/Button.h"
#include "ui/controls/Chart.h"
#include "ui/controls/Form.h"
#include "ui/controls/Grid.h"
#include "ui/controls/Label.h"
#include "ui/controls/OptionButton.h"
#include "ui/controls/TextBox.h"

namespace refhost {

/// A chart that is drawn by whoever made it.
class DrawnChart : public kestrel::ui::Chart {
 public:
    using Painter = std::function<kestrel::ui::ChartDrawing(int width, int height)>;
    using Chart::Chart;

    void SetPainter(Painter painter) {
        painter_ = std::move(painter);
        Repaint();
    }
    /// What the painter draws has changed.
    void Repaint() { Changed(); }
    kestrel::ui::ChartDrawing Draw(int width, int height,
                                   const kestrel::ui::TextMeasure& measure) const override {
        return painter_ ? painter_(width, height) : Chart::Draw(width, height, measure);
    }

 private:
    Painter painter_;
};

/// A text box that tells what is typed.
class HeardTextBox : public kestrel::ui::TextBox {
 public:
    using TextBox::TextBox;
    std::function<void()> OnChange;

 protected:
    void Changed() override {
        TextBox::Changed();
        if (OnChange) OnChange();
    }
};

/// What an analysis found, on four pages: the distribution of finish or cost with a table of
/// percentiles; what each risk factor costs, calculated when asked for; the tasks by how often
/// they are critical; finish against cost. Below them the chances of a target that can be typed.
class frmResults : public kestrel::ui::Form {
 public:
    /// Finds out what each factor costs; nothing when the user cancels. Empty where the plan that
    /// was analysed is not known any more.
    using Calculator = std::function<std::optional<Priorities>(Outcome)>;

    /// `results` must outlive the form, which adds to them what it has calculated.
    frmResults(kestrel::Desktop& desktop, PlanResults& results, bool upToDate,
               Calculator calculator);

 private:
    kestrel::ui::OptionGroup pages_, measures_;

 public:
    kestrel::ui::OptionButton OptionDistribution{pages_, "OptionDistribution", "&Distribution"};
    kestrel::ui::OptionButton OptionFactors{pages_, "OptionFactors", "&Risk factors"};
    kestrel::ui::OptionButton OptionTasks{pages_, "OptionTasks", "&Tasks"};
    kestrel::ui::OptionButton OptionJoint{pages_, "OptionJoint", "Finish &and cost"};
    kestrel::ui::OptionButton OptionFinish{measures_, "OptionFinish", "&Finish"};
    kestrel::ui::OptionButton OptionCost{measures_, "OptionCost", "C&ost"};
    kestrel::ui::Label lblAnalysis{"lblAnalysis"};
    DrawnChart plotResult{"plotResult"};
    kestrel::ui::Grid gridResults{"gridResults"};
    kestrel::ui::Grid gridTasks{"gridTasks"};
    kestrel::ui::Label lblTargetFinish{"lblTargetFinish", "Target finis&h:"};
    HeardTextBox txtTargetFinish{"txtTargetFinish"};
    kestrel::ui::Label lblTargetCost{"lblTargetCost", "Target co&st:"};
    HeardTextBox txtTargetCost{"txtTargetCost"};
    kestrel::ui::Label lblChances{"lblChances"};
    kestrel::ui::Button cmdCopyToClip{"cmdCopyToClip", "&Copy Data to clipboard"};
    kestrel::ui::Button cmdCalculate{"cmdCalculate", "Ca&lculate"};
    kestrel::ui::Button cmdClose{"cmdClose", "Close"};

 private:
    void PlaceControls();
    void ConnectHandlers();
    void ShowPage();
    void ShowDistribution();
    void ShowFactors();
    void ShowJoint();
    void ShowChances();
    void CopyToClip();
    void Calculate();
    Outcome Measure() const { return OptionCost.Selected() ? Outcome::Cost : Outcome::Finish; }
    std::optional<Priorities>& Costs() {
        return Measure() == Outcome::Cost ? results_.costCosts : results_.finishCosts;
    }

    kestrel::Desktop& desktop_;
    PlanResults& results_;
    Calculator calculator_;
};

}  // namespace refhost
