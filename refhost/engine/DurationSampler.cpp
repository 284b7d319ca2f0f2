#include "refhost/engine/DurationSampler.h"

#include <cmath>

#include "base/Checked.h"
#include "base/NumberText.h"
#include "refhost/engine/VectorClones.h"

namespace refhost {
namespace {

/// Adding and taking away 1.5 x 2^52 leaves the nearest whole number, halves to even, for every
/// double within 32 bits.
constexpr double kRounder = 0x1.8p52;

}  // namespace

DurationSampler::DurationSampler(const LivePlan& plan)
    : durations_(plan.Durations().begin(), plan.Durations().end()) {
    for (std::size_t i = 0; i < plan.TaskCount(); ++i) {
        const TaskData& task = plan.Data().tasks[i];
        if (task.type == kOrdinary && task.distribution) AddDistribution(task, i);
    }
    drawn_.resize(tasks_.size());
}

void DurationSampler::AddDistribution(const TaskData& task, std::size_t position) {
    const ThreePoint& points = *task.distribution;
    const Triangular shape(points.minimum, points.mostLikely, points.maximum);
    for (const double extreme : shape.Extremes()) {
        std::int32_t fits = 0;
        if (!kestrel::RoundToInt32(extreme, fits))
            throw kestrel::ArithmeticError("Task " + task.id + " - " + task.name + " may last " +
                                           kestrel::GeneralText(kestrel::Checked(extreme)) +
                                           " minutes, which is more than a duration can hold; "
                                           "correct its distribution.");
    }
    tasks_.push_back(static_cast<std::uint32_t>(position));
    shapes_.Add(shape);
}

KESTREL_VECTOR_CLONES
std::span<const std::int32_t> DurationSampler::Draw(RandomStream& stream) {
    shapes_.Draw(stream, drawn_, [](double drawn) {
        return static_cast<std::int32_t>((drawn + kRounder) - kRounder);
    });
    for (std::size_t i = 0; i < tasks_.size(); ++i) durations_[tasks_[i]] = drawn_[i];
    return durations_;
}

}  // namespace refhost
