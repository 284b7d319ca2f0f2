#include "refhost/engine/Network.h"

#include <algorithm>
#include <limits>

#include "refhost/engine/NetworkCompiler.h"

namespace refhost {
namespace {

/// Earlier than every time, with room for a lag to be added.
constexpr std::int64_t kNever = std::numeric_limits<std::int64_t>::min() / 4;

}  // namespace

Network::Network(const PlanData& plan, WorkCalendar& calendar) {
    NetworkCompiler(plan, calendar).CompileInto(*this);
}

std::int64_t Network::Schedule(std::span<const std::int32_t> durations) {
    std::int64_t planFinish = 0;
    const Source* source = sources_.data();
    std::int64_t* const times = times_.data();
    std::int64_t* slot = times;
    const auto latest = [&](std::uint32_t end, std::int64_t bound) {
        for (const Source* const last = sources_.data() + end; source != last; ++source)
            bound = std::max(bound, times[source->slot] + source->lag);
        return bound;
    };
    for (const Step& step : steps_) {
        switch (step.kind) {
            case Kind::Ordinary: {
                const std::int64_t duration = durations[step.task];
                std::int64_t start = latest(step.startEnd, step.floor);
                if (step.finishEnd != step.startEnd)
                    start = std::max(start, latest(step.finishEnd, kNever) - duration);
                slot[0] = start;
                slot[1] = start + duration;
                planFinish = std::max(planFinish, slot[1]);
                break;
            }
            case Kind::Gate:
                slot[0] = latest(step.startEnd, step.floor);
                slot[1] = latest(step.finishEnd, kNever);
                break;
            case Kind::Result: {
                std::int64_t earliest = std::numeric_limits<std::int64_t>::max();
                for (const Source* s = source; s != sources_.data() + step.startEnd; ++s)
                    earliest = std::min(earliest, times[s->slot]);
                const bool empty = source == sources_.data() + step.startEnd;
                source = sources_.data() + step.startEnd;
                slot[0] = empty ? 0 : earliest;
                slot[1] = empty ? 0 : latest(step.finishEnd, kNever);
                break;
            }
        }
        slot += 2;
    }
    return planFinish;
}

}  // namespace refhost
