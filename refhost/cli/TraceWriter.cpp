#include "refhost/cli/TraceWriter.h"

#include "core/analysis/modAnalysis.h"

namespace refhost {

void TraceWriter::Write(std::int32_t iteration, std::span<const std::int32_t> drawn, double finish,
                        double cost) {
    LivePlan& plan = *application_.OpenPlan();
    json_.Clear();
    json_.BeginObject().Key("iteration").Whole(std::int64_t{iteration});
    WriteFactors();
    json_.Key("tasks").BeginArray();
    for (const std::size_t task : factors_.CarryingTasks()) {
        json_.BeginObject().Key("id").Text(plan.Data().tasks[task].id);
        json_.Key("sampled").Whole(std::int64_t{drawn[task]});
        json_.Key("applied").Whole(std::int64_t{plan.Duration(task)}).EndObject();
    }
    json_.EndArray().Key("finish").Double(finish).Key("planCost").Double(cost).EndObject();
    output_.Write(json_.Result());
    output_.Write("\n");
}

void TraceWriter::WriteFactors() {
    json_.Key("random").BeginArray();
    for (const double number : application_.OpenPlan()->NumbersHandedOut()) json_.Double(number);
    json_.EndArray().Key("occurred").BeginArray();
    for (const bool occurred : factors_.Occurred()) json_.Bool(occurred);
    json_.EndArray();
    WriteMultipliers("duration", kestrel::kDurationGroup);
    WriteMultipliers("cost", kestrel::kCostGroup);
}

void TraceWriter::WriteMultipliers(std::string_view key, const char* group) {
    json_.Key(key).BeginArray();
    if (const auto found = application_.OpenPlan()->GroupList().Item(group))
        for (const auto& member : found->Members()->Enumerate())
            json_.Double(member->SampledValue() / 10000);
    json_.EndArray();
}

}  // namespace refhost
