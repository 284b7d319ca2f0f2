#include "refhost/results/Targets.h"

#include "refhost/files/ValueText.h"

namespace refhost {

Target ChancesOf(const AnalysisResults& results, std::optional<Minute> finish,
                 std::optional<double> cost) {
    Target target;
    target.finish = finish.value_or(results.deterministicFinish);
    target.cost = cost.value_or(results.deterministicCost);
    const double serial = DateSerial(target.finish);
    std::size_t intime = 0, within = 0, both = 0;
    for (std::size_t i = 0; i < results.finish.size(); ++i) {
        const bool early = results.finish[i] <= serial;
        const bool cheap = results.cost[i] <= target.cost;
        intime += early;
        within += cheap;
        both += early && cheap;
    }
    const auto share = [&](std::size_t count) {
        return static_cast<double>(count) / static_cast<double>(results.finish.size());
    };
    target.chanceFinish = share(intime);
    target.chanceCost = share(within);
    target.chanceBoth = share(both);
    return target;
}

std::optional<Minute> ReadTargetDate(std::string text) {
    if (const auto day = ReadDate(text)) return (Minute{*day} + 1) * kMinutesPerDay;
    if (text.size() > 10 && text[10] == ' ') text[10] = 'T';
    if (text.size() == 16) text += ":00";
    return ReadDateTime(text);
}

}  // namespace refhost
