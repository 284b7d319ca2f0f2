#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "ui/controls/ChartDrawing.h"
#include "ui/controls/ChartText.h"
#include "ui/controls/Control.h"
#include "util/Colour.h"

namespace kestrel::ui {

/// The named settings of a chart, of one of its axes or of one of its channels. Which names there
/// are, and what each holds, is fixed by the defaults: another name, or a value of another kind,
/// raises std::invalid_argument.
class ChartAttributes {
 public:
    using Value = std::variant<bool, double, std::string>;  ///< colours are numbers
    using Defaults = std::vector<std::pair<std::string, Value>>;

    explicit ChartAttributes(Defaults defaults) : values_(std::move(defaults)) {}

    void Set(const std::string& name, bool value) { Put(name, value); }
    void Set(const std::string& name, int value) { Put(name, static_cast<double>(value)); }
    void Set(const std::string& name, double value) { Put(name, value); }
    void Set(const std::string& name, Colour value) { Put(name, static_cast<double>(value)); }
    void Set(const std::string& name, const char* value) { Put(name, std::string(value)); }
    void Set(const std::string& name, std::string value) { Put(name, std::move(value)); }

    bool Flag(const std::string& name) const { return Get<bool>(name); }
    double Number(const std::string& name) const { return Get<double>(name); }
    const std::string& Text(const std::string& name) const { return Get<std::string>(name); }
    Colour ColourOf(const std::string& name) const { return static_cast<Colour>(Number(name)); }

 private:
    [[noreturn]] static void Refuse(const std::string& name);
    void Put(const std::string& name, Value value);
    const Value& Find(const std::string& name) const;
    template <class T>
    const T& Get(const std::string& name) const {
        const T* value = std::get_if<T>(&Find(name));
        if (!value) Refuse(name);
        return *value;
    }

    Defaults values_;
};

/// @name All attributes of each kind of object, with the values they start with
///@{
ChartAttributes::Defaults ChartDefaults();
ChartAttributes::Defaults AxisDefaults();
ChartAttributes::Defaults ChannelDefaults();
///@}

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
