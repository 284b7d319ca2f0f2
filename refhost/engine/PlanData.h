#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// A plan as files hold it: plain data, in plan order. Durations and lags are whole working
/// minutes, money is in plan currency.
namespace refhost {

/// A local date and time: whole minutes since 1899-12-30 00:00. Divided by 1440 it is the date
/// as a number.
using Minute = std::int64_t;
inline constexpr Minute kMinutesPerDay = 1440;

/// The date as a number: days since 1899-12-30, the time as the fraction.
inline double DateSerial(Minute date) {
    return static_cast<double>(date) / static_cast<double>(kMinutesPerDay);
}

/// Working time within a day, in minutes from its midnight: 0 <= from < to <= 1440.
struct Shift {
    int from = 0;
    int to = 0;
    bool operator==(const Shift&) const = default;
};
using Shifts = std::vector<Shift>;  ///< of one day, ascending, not overlapping

struct Calendar {
    std::array<Shifts, 7> week;  ///< Monday first; no shifts: does not work
    /// Dates that differ from their week day, by day since 1899-12-30; no shifts: a holiday.
    std::map<std::int32_t, Shifts> exceptions;
    bool operator==(const Calendar&) const = default;

    /// Working time of a day, by its number since 1899-12-30.
    const Shifts& On(std::int64_t day) const;

    /// Monday to Friday, 08:00-12:00 and 13:00-17:00.
    static Calendar Standard();
};

enum class LinkType { FinishToStart, StartToStart, FinishToFinish, StartToFinish };

/// A dependency of the task that holds it on the task `from`.
struct Link {
    std::string from;
    LinkType type = LinkType::FinishToStart;
    std::int32_t lag = 0;
    bool operator==(const Link&) const = default;
};

/// A three-point duration uncertainty, in minutes. Shape 0 is the triangular distribution.
struct ThreePoint {
    std::int16_t shape = 0;
    double minimum = 0;
    double mostLikely = 0;
    double maximum = 0;
    bool operator==(const ThreePoint&) const = default;
};

struct CostEntry {
    std::string name;
    double cost = 0;
    bool operator==(const CostEntry&) const = default;
};

/// Named texts in the order in which they were first set.
using NamedTexts = std::vector<std::pair<std::string, std::string>>;
const std::string* FindText(const NamedTexts& texts, const std::string& name);
/// Sets or adds; an empty text removes the name. Answers whether anything changed.
bool SetNamedText(NamedTexts& texts, const std::string& name, const std::string& text);

inline constexpr std::int16_t kOrdinary = 0;
inline constexpr std::int16_t kSummary = 1;

struct TaskData {
    std::string id;
    std::string uid;  ///< of the same task in the project file that it came from, if any
    std::string name;
    std::int16_t type = kOrdinary;
    std::int32_t parent = -1;   ///< index of the enclosing summary in plan order; -1 for none
    std::int32_t duration = 0;  ///< of an ordinary task
    std::optional<Minute> noEarlierThan;
    std::optional<ThreePoint> distribution;
    std::vector<Link> links;
    std::vector<CostEntry> costItems;
    NamedTexts userValues;
    bool operator==(const TaskData&) const = default;
};

struct AnalysisSettings {
    std::int32_t iterations = 1000;
    std::uint64_t seed = 1;
    bool recalculateAll = false;
    /// Whether the results stored with the plan belong to it as it stands.
    bool upToDate = false;
    bool operator==(const AnalysisSettings&) const = default;
};

struct UserField {
    std::string name;
    std::int16_t type = 1;  ///< 1: text
    bool operator==(const UserField&) const = default;
};

struct StoredResults;

struct PlanData {
    std::string name;
    Minute start = 0;
    std::optional<Calendar> calendar;  ///< nothing: Calendar::Standard()
    NamedTexts texts;
    std::vector<UserField> userFields;
    AnalysisSettings analysis;
    std::vector<TaskData> tasks;  ///< in plan order, a summary before its children
    /// Of the last analysis, where they are kept (StoredResults.h). Plans are equal when they share
    /// them: nobody changes them in place.
    std::shared_ptr<const StoredResults> results;
    bool operator==(const PlanData&) const = default;
};

}  // namespace refhost
