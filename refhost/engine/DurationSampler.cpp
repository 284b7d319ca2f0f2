#include "refhost/engine/DurationSampler.h"

#include "util/Checked.h"
#include "util/NumberText.h"

namespace refhost {

DurationSampler::DurationSampler(const LivePlan& plan)
    : plan_(plan), durations_(plan.Durations().begin(), plan.Durations().end()) {
    for (std::size_t i = 0; i < plan.TaskCount(); ++i) {
        const TaskData& task = plan.Data().tasks[i];
        if (task.type != kOrdinary || !task.distribution) continue;
        const ThreePoint& points = *task.distribution;
        distributions_.emplace_back(points.minimum, points.mostLikely, points.maximum);
        tasks_.push_back(static_cast<std::uint32_t>(i));
    }
}

std::span<const std::int32_t> DurationSampler::Draw(RandomStream& stream) {
    for (std::size_t i = 0; i < tasks_.size(); ++i) {
        const double drawn = distributions_[i].Draw(stream.Next());
        if (!kestrel::RoundToInt32(drawn, durations_[tasks_[i]])) {
            const TaskData& task = plan_.Data().tasks[tasks_[i]];
            throw kestrel::ArithmeticError("Task " + task.id + " - " + task.name + " was drawn " +
                                           kestrel::GeneralText(drawn) +
                                           " minutes long, which is more than a duration can "
                                           "hold; correct its distribution.");
        }
    }
    return durations_;
}

}  // namespace refhost
