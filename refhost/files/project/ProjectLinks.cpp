#include "refhost/files/project/ProjectLinks.h"

#include "base/NumberText.h"
#include "refhost/files/ValueText.h"
#include "refhost/files/project/ProjectDuration.h"

namespace refhost {
namespace {

LinkType ReadType(const ProjectNode& link) {
    switch (link.Integer("Type").value_or(1)) {
        case 0:
            return LinkType::FinishToFinish;
        case 1:
            return LinkType::FinishToStart;
        case 2:
            return LinkType::StartToFinish;
        case 3:
            return LinkType::StartToStart;
        default:
            link.FailValue("Type", "0 (FF), 1 (FS), 2 (SF) or 3 (SS)");
    }
}

bool HangsOnFinish(LinkType type) {
    return type == LinkType::FinishToStart || type == LinkType::FinishToFinish;
}

class LinkReader {
 public:
    LinkReader(const ProjectSource& source, std::vector<TaskData>& tasks)
        : source_(source), tasks_(tasks), rows_(tasks.size()) {}

    std::vector<RowLinks> Read() {
        for (std::size_t i = 0; i < tasks_.size(); ++i)
            for (const ProjectNode& link : source_.outline.rows[i].node.Children("PredecessorLink"))
                ReadLink(link, i);
        return std::move(rows_);
    }

 private:
    void ReadLink(const ProjectNode& link, std::size_t to) {
        const std::string uid = link.Word("PredecessorUID");
        const auto found = source_.outline.byUid.find(uid);
        const bool known = found != source_.outline.byUid.end();
        const auto from = known ? static_cast<std::size_t>(found->second) : 0;
        const bool crosses =
            link.Flag("CrossProject") && !(known && source_.outline.rows[from].external);
        if (source_.outline.rows[to].external) {
            source_.leftOut.AddMoving("links to tasks of other projects, which keep their dates");
        } else if (crosses) {
            source_.leftOut.AddMoving("links to other projects");
        } else if (!known) {
            source_.leftOut.AddMoving(source_.outline.leftOutUids.contains(uid)
                                          ? "links from tasks that are left out"
                                          : "links from tasks that the file does not hold");
        } else {
            const LinkType type = ReadType(link);
            (HangsOnFinish(type) ? rows_[from].finishDrives : rows_[from].startDrives) = true;
            tasks_[to].links.push_back({tasks_[from].id, type, ReadLag(link, type, from, to)});
        }
    }

    std::int32_t ReadLag(const ProjectNode& link, LinkType type, std::size_t from, std::size_t to) {
        const double number = link.Number("LinkLag").value_or(0);
        const std::int64_t format = link.Integer("LagFormat").value_or(0);
        if (number == 0) {
            rows_[to].zeroPercentLag |= IsPercentage(format);
            return 0;
        }
        if (IsPercentage(format)) return Percentage(link, number, from);
        const auto lag = LagMinutes(number);
        if (!lag) link.FailValue("LinkLag", "a lag in tenths of a minute");
        source_.leftOut.AddMovingIf(!lag->exact, kPartsOfMinutes);
        const auto minutes = static_cast<std::int32_t>(lag->minutes);
        return IsElapsed(format) ? Elapsed(link, minutes, type, from) : minutes;
    }

    /// The figure is the percentage itself.
    std::int32_t Percentage(const ProjectNode& link, double percentage, std::size_t from) {
        source_.leftOut.AddMoving(
            "percentage lags (that share of the predecessor's duration as it is now)");
        const bool counted = tasks_[from].type == kOrdinary && !source_.outline.rows[from].external;
        const double whole = counted ? tasks_[from].duration : StatedDuration(source_, from);
        const auto lag = kestrel::ToInt32(whole * percentage / 100);
        if (!lag) link.FailValue("LinkLag", "a percentage of the predecessor's duration");
        return *lag;
    }

    std::int32_t Elapsed(const ProjectNode& link, std::int32_t minutes, LinkType type,
                         std::size_t from) {
        source_.leftOut.AddMoving("elapsed lags (the working time that passes meanwhile)");
        const RowDates& dates = source_.dates.rows[from];
        const auto& date = HangsOnFinish(type) ? dates.finish : dates.start;
        if (!date) return kestrel::ToInt32(minutes * source_.workShare).value_or(minutes);
        if (*date + minutes >= (kLastFileDay + 1) * kMinutesPerDay)
            link.FailValue("LinkLag", "an elapsed lag that ends before the year 10000");
        return minutes > 0 ? WorkingMinutesBetween(source_.workingTime, *date, *date + minutes)
                           : -WorkingMinutesBetween(source_.workingTime, *date + minutes, *date);
    }

    const ProjectSource& source_;
    std::vector<TaskData>& tasks_;
    std::vector<RowLinks> rows_;
};

}  // namespace

std::vector<RowLinks> ReadLinks(const ProjectSource& source, std::vector<TaskData>& tasks) {
    return LinkReader(source, tasks).Read();
}

}  // namespace refhost
