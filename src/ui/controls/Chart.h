#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "ui/controls/ChartAttributes.h"
#include "ui/controls/ChartDrawing.h"
#include "ui/controls/ChartText.h"
#include "ui/controls/Control.h"

namespace kestrel::ui {

struct ChartPoint {
    double x = 0;
    double y = 0;
};

/// A label of the user's own at a place on an axis.
struct ChartTick {
    double position = 0;
    std::string label;
};

/// An axis: it shows the values from "Min" to "Min" + "Span".
struct ChartAxis {
    ChartAttributes attributes{AxisDefaults()};
    std::vector<ChartTick> customTicks;  ///< shown with "TickListCustom"

    void TickListClear() { customTicks.clear(); }
    void TickListAdd(double position, std::string label) {
        customTicks.push_back({position, std::move(label)});
    }
};

/// One series of points.
struct ChartChannel {
    ChartAttributes attributes{ChannelDefaults()};
    std::vector<ChartPoint> points;
};

/// A chart of bars: what it shows, with the settings of chart, axes and channels by name. Where
/// everything lies is ChartGeometry.h's to say. "PrintDocumentName" and the attributes of traces,
/// legend and layers are for whoever prints or edits the chart; its drawing is made of bars only.
class Chart : public Control {
 public:
    explicit Chart(std::string name) : Control(std::move(name)) { ClearAllData(); }

    /// Whoever shows it copies and prints it by keys, and says its values bar by bar.
    bool TakesFocus() const override { return true; }

    /// The chart at a size, as whoever shows it paints it: DrawingOf (ChartGeometry.h), unless a
    /// chart of another kind draws itself.
    virtual ChartDrawing Draw(int width, int height, const TextMeasure& measure = TextWidth) const;

    const ChartAttributes& Attributes() const { return attributes_; }
    /// A single axis of each kind; another index raises std::out_of_range.
    const ChartAxis& XAxis(int index) const { return Only(xAxis_, index); }
    const ChartAxis& YAxis(int index) const { return Only(yAxis_, index); }
    int ChannelCount() const { return static_cast<int>(channels_.size()); }
    const ChartChannel& Channel(int index) const {
        return channels_.at(static_cast<std::size_t>(index));
    }

    /// The same to change; each counts as a change that the user could see.
    ChartAttributes& Attributes() { return Touched(attributes_); }
    ChartAxis& XAxis(int index) { return Touched(Only(xAxis_, index)); }
    ChartAxis& YAxis(int index) { return Touched(Only(yAxis_, index)); }
    ChartChannel& Channel(int index) {
        return Touched(channels_.at(static_cast<std::size_t>(index)));
    }

    /// Back to a single channel without points, and no title. Attributes stay.
    void ClearAllData();

 private:
    template <class T>
    T& Touched(T& part) {
        Changed();
        return part;
    }
    template <class Axis>
    static Axis& Only(Axis& axis, int index) {
        if (index != 0) throw std::out_of_range("a chart has one axis of each kind");
        return axis;
    }

    ChartAttributes attributes_{ChartDefaults()};
    ChartAxis xAxis_;
    ChartAxis yAxis_;
    std::vector<ChartChannel> channels_;
};

}  // namespace kestrel::ui
