#pragma once

#include "platform/Desktop.h"
#include "refhost/gantt/ResultsView.h"
#include "ui/controls/Button.h"
#include "ui/controls/Chart.h"
#include "ui/controls/Form.h"
#include "ui/controls/Grid.h"
#include "ui/controls/OptionButton.h"

namespace refhost {

/// A chart that is drawn by whoever made it.
class DrawnChart : public kestrel::ui::Chart {
 public:
    using Painter = std::function<kestrel::ui::ChartDrawing(int width, int height)>;
    using Chart::Chart;

    void SetPainter(Painter painter) {
        painter_ = std::move(painter);
        Changed();
    }
    kestrel::ui::ChartDrawing Draw(int width, int height,
                                   const kestrel::ui::TextMeasure& measure) const override {
        return painter_ ? painter_(width, height) : Chart::Draw(width, height, measure);
    }

 private:
    Painter painter_;
};

/// What an analysis found: the distribution of finish or cost as a chart, and beside it both as a
/// table of percentiles.
class frmResults : public kestrel::ui::Form {
 public:
    /// `results` must outlive the form.
    frmResults(kestrel::Desktop& desktop, const PlanResults& results);

    kestrel::ui::OptionGroup Measures;
    kestrel::ui::OptionButton OptionFinish{Measures, "OptionFinish", "&Finish"};
    kestrel::ui::OptionButton OptionCost{Measures, "OptionCost", "C&ost"};
    DrawnChart plotResult{"plotResult"};
    kestrel::ui::Grid gridResults{"gridResults"};
    kestrel::ui::Button cmdCopyToClip{"cmdCopyToClip", "&Copy Data to clipboard"};
    kestrel::ui::Button cmdClose{"cmdClose", "Close"};

 private:
    void PlaceControls();
    void FillGrid();
    void DrawChart();

    kestrel::Desktop& desktop_;
    const PlanResults& results_;
};

}  // namespace refhost
