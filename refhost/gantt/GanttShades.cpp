#include <algorithm>

#include "refhost/gantt/GanttLayout.h"

namespace refhost {
namespace {

constexpr double kLeastDay = 2.5;   ///< units a day from which single days can be told apart
constexpr double kLeastShift = 90;  ///< units a day from which hours can be told apart
constexpr double kLeastSpan = 4;    ///< a narrower span is not worth showing

/// Collects spans, joining those that touch.
class Spans {
 public:
    explicit Spans(const TimeScale& scale) : scale_(scale) {}

    void Add(Minute from, Minute to) {
        const GanttShade span{scale_.X(from), scale_.X(to)};
        if (from == end_ && !spans_.empty())
            spans_.back().right = span.right;
        else
            spans_.push_back(span);
        end_ = to;
    }

    std::vector<GanttShade> Take() {
        std::erase_if(spans_, [](const GanttShade& s) { return s.right - s.left < kLeastSpan; });
        return std::move(spans_);
    }

 private:
    const TimeScale& scale_;
    Minute end_ = -1;
    std::vector<GanttShade> spans_;
};

}  // namespace

std::vector<GanttShade> ShadesOf(const Calendar& calendar, const TimeScale& scale, double left,
                                 double right) {
    if (scale.UnitsPerDay() < kLeastDay) return {};
    Spans spans(scale);
    const Minute end = scale.DateAt(right);
    for (Minute midnight = StartOfUnit(CalendarUnit::Day, scale.DateAt(left)); midnight <= end;
         midnight += kMinutesPerDay) {
        const Shifts& shifts = calendar.On(midnight / kMinutesPerDay);
        if (!shifts.empty() && scale.UnitsPerDay() < kLeastShift) continue;
        Minute idle = midnight;
        for (const Shift& shift : shifts) {
            if (midnight + shift.from > idle) spans.Add(idle, midnight + shift.from);
            idle = midnight + shift.to;
        }
        if (idle < midnight + kMinutesPerDay) spans.Add(idle, midnight + kMinutesPerDay);
    }
    return spans.Take();
}

}  // namespace refhost
