#include "refhost/files/project/ProjectCalendar.h"

#include <algorithm>
#include <set>
#include <utility>

#include "base/Errors.h"
#include "refhost/files/ShiftList.h"
#include "refhost/files/project/ProjectText.h"

namespace refhost {
namespace {

/// The format's own program knows two levels.
constexpr std::size_t kLongestChain = 100;

/// Each day is kept by itself; 150 exceptions of a lifetime each are a mistake.
constexpr std::int64_t kMostExceptionDays = 4'000'000;

bool IsBase(const ProjectNode& calendar) {
    const std::string word = calendar.Word("IsBaseCalendar");
    return word != "0" && word != "false";
}

/// DayType 1 is Sunday, 7 Saturday; in Calendar::week Monday is 0.
std::size_t WeekIndex(std::int64_t dayType) { return static_cast<std::size_t>((dayType + 5) % 7); }

std::int64_t ReadDayType(const ProjectNode& day) {
    const auto type = day.Integer("DayType");
    if (!type || *type < 0 || *type > 7)
        day.FailValue("DayType", "0 for an exception or 1 (Sunday) to 7 (Saturday)");
    return *type;
}

}  // namespace

ProjectCalendars::ProjectCalendars(const ProjectNode& project, const DayRange& horizon,
                                   LeftOutList& leftOut)
    : horizon_(horizon), leftOut_(leftOut) {
    for (const ProjectNode& calendar : project.Items("Calendars", "Calendar")) {
        const std::string uid = calendar.Word("UID");
        calendars_.emplace(uid.empty() ? "#" + std::to_string(calendars_.size()) : uid, calendar);
    }
    CheckChains();
    projectUid_ = ChooseProjectUid(project);
    std::set<std::string> used;
    if (!projectUid_.empty()) {
        plan_ = Resolve(projectUid_);
        const std::vector<std::string> chain = ChainTo(projectUid_);
        used.insert(chain.begin(), chain.end());
    }
    for (const auto& [uid, other] : calendars_)
        leftOut_.AddIf(!used.contains(uid), IsBase(other) ? "calendars other than the project's"
                                                          : "calendars of resources");
}

std::string ProjectCalendars::ChooseProjectUid(const ProjectNode& project) {
    std::string named = project.Word("CalendarUID");
    if (named == "-1") named.clear();
    if (calendars_.contains(named)) return named;
    std::string chosen;
    int bases = 0;
    for (const auto& [uid, calendar] : calendars_) {
        if (!IsBase(calendar)) continue;
        ++bases;
        if (chosen.empty() || calendar.Word("Name") == "Standard") chosen = uid;
    }
    if (bases > 1 && calendars_.at(chosen).Word("Name") != "Standard") chosen.clear();
    if (!chosen.empty())
        leftOut_.AddMovingIf(!named.empty(),
                             "project calendars that the file does not hold (its standard "
                             "calendar taken instead)");
    else
        leftOut_.AddMovingIf(!named.empty() || bases > 1,
                             "project calendars that the file does not hold (Monday to Friday, "
                             "08:00-12:00 and 13:00-17:00 taken instead)");
    return chosen;
}

std::string ProjectCalendars::BaseOf(const std::string& uid) const {
    const std::string base = calendars_.at(uid).Word("BaseCalendarUID");
    return calendars_.contains(base) ? base : std::string();
}

void ProjectCalendars::CheckChains() const {
    std::map<std::string, std::size_t> depths;
    for (const auto& [first, node] : calendars_) {
        std::vector<std::string> chain;
        std::string uid = first;
        while (!uid.empty() && depths.emplace(uid, 0).second) {
            chain.push_back(uid);
            uid = BaseOf(uid);
        }
        std::size_t depth = uid.empty() ? 0 : depths.at(uid);
        for (; !chain.empty(); chain.pop_back()) {
            depths[chain.back()] = ++depth;
            if (depth > kLongestChain)
                calendars_.at(chain.back())
                    .Fail("the calendar stands on more than " + std::to_string(kLongestChain) +
                          " base calendars, one on the other; give it a base calendar of its own.");
        }
    }
}

std::vector<std::string> ProjectCalendars::ChainTo(const std::string& uid) const {
    std::vector<std::string> chain;
    for (std::string next = uid;
         !next.empty() && std::find(chain.begin(), chain.end(), next) == chain.end();
         next = BaseOf(next))
        chain.push_back(next);
    std::reverse(chain.begin(), chain.end());
    return chain;
}

Calendar ProjectCalendars::Resolve(const std::string& uid) {
    Calendar calendar = Calendar::Standard();
    std::map<std::int32_t, Shifts> weeks;
    for (const std::string& link : ChainTo(uid)) {
        const Own& own = OwnOf(link);
        for (std::size_t day = 0; day < own.week.size(); ++day)
            if (own.week[day]) calendar.week[day] = *own.week[day];
        for (const auto& [day, shifts] : own.weeks) weeks[day] = shifts;
        for (const auto& [day, shifts] : own.exceptions) calendar.exceptions[day] = shifts;
    }
    for (const auto& [day, shifts] : weeks)
        if (calendar.On(day) != shifts) calendar.exceptions.emplace(day, shifts);
    return calendar;
}

bool ProjectCalendars::DiffersFromPlan(const std::string& uid) {
    if (uid == projectUid_ || !calendars_.contains(uid)) return false;
    const auto known = differs_.find(uid);
    if (known != differs_.end()) return known->second;
    bool differs = true;
    try {
        differs = Compare(uid);
    } catch (const kestrel::DataError&) {
        // It matters to a few dates only, for which the file's own stand in.
        leftOut_.AddMoving("calendars of tasks and resources that cannot be read");
    }
    return differs_[uid] = differs;
}

/// Days before the plan's start are nothing to it.
bool ProjectCalendars::Compare(const std::string& uid) {
    const Calendar standard = Calendar::Standard();
    const Calendar& plan = plan_ ? *plan_ : standard;
    const Calendar other = Resolve(uid);
    Spend(static_cast<std::int64_t>(plan.exceptions.size() + other.exceptions.size()),
          calendars_.at(uid));
    const auto differ = [this, &plan, &other](const auto& entry) {
        return entry.first >= horizon_.first && plan.On(entry.first) != other.On(entry.first);
    };
    return plan.week != other.week ||
           std::any_of(plan.exceptions.begin(), plan.exceptions.end(), differ) ||
           std::any_of(other.exceptions.begin(), other.exceptions.end(), differ);
}

const ProjectCalendars::Own& ProjectCalendars::OwnOf(const std::string& uid) {
    const auto known = own_.find(uid);
    if (known != own_.end()) return known->second;
    Own own;
    const ProjectNode& node = calendars_.at(uid);
    for (const ProjectNode& day : node.Items("WeekDays", "WeekDay")) ReadDay(day, own);
    for (const ProjectNode& week : node.Items("WorkWeeks", "WorkWeek")) ReadWorkWeek(week, own);
    for (const ProjectNode& exception : node.Items("Exceptions", "Exception"))
        ReadException(exception, own);
    return own_.emplace(uid, std::move(own)).first->second;
}

/// DayType 0 is an exception in the older form.
void ProjectCalendars::ReadDay(const ProjectNode& day, Own& own) {
    const std::int64_t type = ReadDayType(day);
    if (type == 0)
        ReadException(day, own);
    else
        own.week[WeekIndex(type)] = ReadShifts(day);
}

void ProjectCalendars::ReadWorkWeek(const ProjectNode& week, Own& own) {
    const std::vector<ProjectNode> days = week.Items("WeekDays", "WeekDay");
    if (days.empty()) return;
    const auto period = ReadTimePeriod(week);
    leftOut_.AddMovingIf(!period, "work weeks without dates from 1900 to 9999");
    if (!period) return;
    Calendar shape;  // its week days alone
    std::array<bool, 7> named{};
    for (const ProjectNode& day : days) {
        const std::int64_t type = ReadDayType(day);
        if (type == 0) continue;
        named[WeekIndex(type)] = true;
        shape.week[WeekIndex(type)] = ReadShifts(day);
    }
    const std::int64_t first = std::max(period->first, horizon_.first);
    const std::int64_t last = std::min(period->last, horizon_.last);
    Spend(last - first + 1, week);
    for (std::int64_t day = first; day <= last; ++day)
        if (named[static_cast<std::size_t>((day + 5) % 7)])
            own.weeks[static_cast<std::int32_t>(day)] = shape.On(day);
}

void ProjectCalendars::ReadException(const ProjectNode& exception, Own& own) {
    const auto period = ReadTimePeriod(exception);
    leftOut_.AddMovingIf(!period, "calendar exceptions without dates from 1900 to 9999");
    if (!period) return;
    Spend(std::min(period->last, std::max(horizon_.last, period->first)) - period->first + 1,
          exception);
    const Shifts shifts = ReadShifts(exception);
    for (const std::int32_t day : ExceptionDays(exception, *period, horizon_))
        own.exceptions[day] = shifts;
}

void ProjectCalendars::Spend(std::int64_t days, const ProjectNode& node) {
    daysSpent_ += std::max<std::int64_t>(days, 0);
    if (daysSpent_ > kMostExceptionDays)
        node.Fail("calendar exceptions and work weeks last more than " +
                  std::to_string(kMostExceptionDays) +
                  " days together; correct the dates of those that last for decades.");
}

Shifts ProjectCalendars::ReadShifts(const ProjectNode& day) {
    const auto times = day.Items("WorkingTimes", "WorkingTime");
    const bool works = day.Word("DayWorking").empty() ? !times.empty() : day.Flag("DayWorking");
    if (!works) return {};
    if (times.empty()) return Calendar::Standard().week[0];
    Shifts shifts;
    for (const ProjectNode& time : times) {
        if (time.Word("FromTime").empty() && time.Word("ToTime").empty()) continue;
        Shift shift{ReadTimeOf(time, "FromTime"), ReadTimeOf(time, "ToTime")};
        if (shift.to == 0) shift.to = static_cast<int>(kMinutesPerDay);
        if (const auto complaint = AddShift(shifts, shift)) time.Fail(*complaint);
    }
    return shifts;
}

int ProjectCalendars::ReadTimeOf(const ProjectNode& workingTime, std::string_view child) {
    const auto time = ReadProjectTime(workingTime.Word(child));
    if (!time) workingTime.FailValue(child, "a time from 00:00:00 to 24:00:00");
    leftOut_.AddMovingIf(!time->exact, kPartsOfMinutes);
    return static_cast<int>(time->minutes);
}

}  // namespace refhost
