#include "refhost/engine/DurationSampler.h"

#include <cmath>

#include "refhost/engine/Triangular.h"
#include "refhost/engine/VectorClones.h"
#include "util/Checked.h"
#include "util/NumberText.h"

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
    uniform_.resize(tasks_.size());
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
    low_.push_back(shape.Low());
    mode_.push_back(shape.Mode());
    high_.push_back(shape.High());
    threshold_.push_back(shape.Threshold());
}

KESTREL_VECTOR_CLONES
std::span<const std::int32_t> DurationSampler::Draw(RandomStream& stream) {
    stream.Fill(uniform_);
    const std::size_t count = tasks_.size();
    for (std::size_t i = 0; i < count; ++i) {
        const double drawn =
            Triangular::Draw(uniform_[i], low_[i], mode_[i], high_[i], threshold_[i]);
        drawn_[i] = static_cast<std::int32_t>((drawn + kRounder) - kRounder);
    }
    for (std::size_t i = 0; i < count; ++i) durations_[tasks_[i]] = drawn_[i];
    return durations_;
}

}  // namespace refhost
