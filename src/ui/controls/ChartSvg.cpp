#include "ui/controls/ChartSvg.h"

#include <string>
#include <utility>
#include <vector>

#include "base/NumberText.h"
#include "platform/XmlDom.h"
#include "ui/controls/ChartGeometry.h"

namespace kestrel::ui {
namespace {

std::string Hex(Colour colour) {
    constexpr const char* kDigits = "0123456789abcdef";
    std::string text = "#";
    for (const int shift : {0, 8, 16}) {  // red stands lowest
        text += kDigits[colour >> (shift + 4) & 15];
        text += kDigits[colour >> shift & 15];
    }
    return text;
}

/// Hairlines run through the middle of a unit, or a screen would smear them over two.
std::string Middle(int position) { return std::to_string(position) + ".5"; }

/// Control characters may stand in a name that came from outside, but never in XML.
std::string Printable(const std::string& text) {
    std::string printable;
    for (const char c : text) {
        if (static_cast<unsigned char>(c) < 0x20)
            printable += c == '\t' || c == '\n' || c == '\r' ? " " : "\xEF\xBF\xBD";
        else
            printable += c;
    }
    return printable;
}

using Attributes = std::vector<std::pair<const char*, std::string>>;

XmlNode Shape(const char* name, const Attributes& attributes) {
    XmlNode shape = XmlNode::Element(name);
    for (const auto& [attribute, value] : attributes) shape.SetAttribute(attribute, value);
    return shape;
}

void AppendHint(XmlNode& shape, const std::string& hint) {
    if (hint.empty()) return;
    shape.Append(XmlNode::Element("title")).Append(XmlNode::Text(Printable(hint)));
}

XmlNode BarShape(const ChartBar& bar) {
    const Rect& at = bar.bounds;
    Attributes attributes{{"x", Middle(at.x)},
                          {"y", Middle(at.y)},
                          {"width", std::to_string(at.width)},
                          {"height", std::to_string(at.height)},
                          {"fill", bar.hasBrush ? Hex(bar.brush) : "none"}};
    if (bar.hasPen) attributes.emplace_back("stroke", Hex(bar.pen));
    XmlNode shape = Shape("rect", attributes);
    AppendHint(shape, bar.hint);
    return shape;
}

XmlNode LineShape(const ChartLine& line) {
    Attributes attributes{{"x1", Middle(line.x1)},
                          {"y1", Middle(line.y1)},
                          {"x2", Middle(line.x2)},
                          {"y2", Middle(line.y2)},
                          {"stroke", Hex(line.colour)}};
    if (line.dashed) attributes.emplace_back("stroke-dasharray", "4 3");
    return Shape("line", attributes);
}

XmlNode CurveShape(const ChartCurve& curve) {
    std::string points;
    for (const auto& [x, y] : curve.points)
        points += (points.empty() ? "" : " ") + FixedText(x, 1) + "," + FixedText(y, 1);
    return Shape("polyline", {{"points", points},
                              {"fill", "none"},
                              {"stroke", Hex(curve.colour)},
                              {"stroke-width", "2"},
                              {"stroke-linejoin", "round"}});
}

XmlNode TextShape(const ChartText& text) {
    Attributes attributes{{"x", std::to_string(text.x)},
                          {"y", std::to_string(text.baseline)},
                          {"font-size", std::to_string(text.size)},
                          {"fill", Hex(text.colour)}};
    if (text.align != ChartAlign::Left)
        attributes.emplace_back("text-anchor", text.align == ChartAlign::Right ? "end" : "middle");
    if (text.bold) attributes.emplace_back("font-weight", "bold");
    XmlNode shape = Shape("text", attributes);
    AppendHint(shape, text.hint);
    shape.Append(XmlNode::Text(Printable(text.text)));
    return shape;
}

void AppendLine(XmlNode& parent, XmlNode child) {
    parent.Append(XmlNode::Text("\n"));
    parent.Append(std::move(child));
}

}  // namespace

std::string SvgText(const ChartDrawing& drawing) {
    const std::string width = std::to_string(drawing.width);
    const std::string height = std::to_string(drawing.height);
    XmlNode root = Shape(
        "svg", {{"xmlns", "http://www.w3.org/2000/svg"},
                {"width", width},
                {"height", height},
                {"viewBox", "0 0 " + width + " " + height},
                {"role", "img"},
                {"font-family", drawing.font + ", Helvetica, 'Liberation Sans', 'DejaVu Sans', "
                                               "'Noto Sans', 'Noto Sans CJK JP', sans-serif"}});
    if (!drawing.title.empty()) {
        XmlNode title = XmlNode::Element("title");
        title.Append(XmlNode::Text(Printable(drawing.title)));
        AppendLine(root, std::move(title));
    }
    AppendLine(root, Shape("rect", {{"width", width}, {"height", height}, {"fill", "#ffffff"}}));
    for (const ChartLine& line : drawing.grid) AppendLine(root, LineShape(line));
    for (const ChartBar& bar : drawing.bars) AppendLine(root, BarShape(bar));
    for (const ChartLine& line : drawing.lines) AppendLine(root, LineShape(line));
    for (const ChartCurve& curve : drawing.curves) AppendLine(root, CurveShape(curve));
    for (const ChartText& text : drawing.texts) AppendLine(root, TextShape(text));
    root.Append(XmlNode::Text("\n"));
    return SerialiseXmlFile(root);
}

std::string ChartSvgText(const Chart& chart, int width, int height) {
    return SvgText(DrawingOf(chart, width, height));
}

}  // namespace kestrel::ui
