#include "ui/controls/Chart.h"

#include <stdexcept>

#include "ui/controls/ChartGeometry.h"

namespace kestrel::ui {

void ChartAttributes::Refuse(const std::string& name) {
    throw std::invalid_argument("a chart has no attribute of this kind: " + name);
}

const ChartAttributes::Value& ChartAttributes::Find(const std::string& name) const {
    for (const auto& [key, value] : values_)
        if (key == name) return value;
    Refuse(name);
}

void ChartAttributes::Put(const std::string& name, Value value) {
    for (auto& [key, old] : values_) {
        if (key != name || old.index() != value.index()) continue;
        old = std::move(value);
        return;
    }
    Refuse(name);
}

ChartAttributes::Defaults ChartDefaults() {
    return {
        {"TitleText", std::string()},
        {"TitleFontName", std::string("Arial")},
        {"TitleFontBold", true},
        {"TitleFontColor", 0.0},
        {"TitleMargin", 1.0},  // free space below the title, in lines of it
        {"XYAxesReverse", false},
        {"PrintDocumentName", std::string()},
        {"EmptyText", std::string()},  // shown in place of the bars when there are none
        {"CopyToClipboardFormat", std::string("ipefMetaFile")},
        {"EditorFormStyle", std::string("ipfsModal")},
    };
}

ChartAttributes::Defaults AxisDefaults() {
    return {
        {"Min", 0.0},
        {"Span", 100.0},
        {"Title", std::string()},
        {"ReverseScale", false},
        {"TickListCustom", false},
        {"GridLinesVisible", true},
        {"LabelsFontColor", 0.0},
    };
}

ChartAttributes::Defaults ChannelDefaults() {
    return {
        {"Color", 0.0},
        {"TraceVisible", true},
        {"BarEnabled", false},
        {"BarWidth", 0.5},  // of a step of 1 on the x axis
        {"BarPenUseChannelColor", true},
        {"BarPenColor", 0.0},
        {"BarPenStyle", 0.0},    // 0 solid, anything else none
        {"BarBrushStyle", 0.0},  // 0 solid, anything else none
        {"ValueLabelsVisible", false},
        {"VisibleInLegend", true},
        {"Layer", 0.0},
    };
}

ChartDrawing Chart::Draw(int width, int height, const TextMeasure& measure) const {
    return DrawingOf(*this, width, height, measure);
}

void Chart::ClearAllData() {
    channels_.resize(1);
    channels_.front().points.clear();
    attributes_.Set("TitleText", "");
    Changed();
}

}  // namespace kestrel::ui
