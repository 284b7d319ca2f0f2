#pragma once

#include <cstdint>
#include <string>

#include "refhost/engine/PlanData.h"

/// Figures as people read them in reports and windows.
namespace refhost {

/// "2026-03-02 17:00"; `between` stands between date and time.
std::string DateAndTimeText(Minute date, const std::string& between = " ");

/// The same of a day serial, to the nearest minute.
std::string SerialText(double serial);

/// "12,000.50": two decimals, thousands in groups.
std::string MoneyText(double amount);

/// "12,001": no decimals, thousands in groups.
std::string WholeMoneyText(double amount);

/// "10d", "2d 4h", "45m", "0d": days of `minutesPerDay` (> 0) working minutes.
std::string DurationText(std::int64_t minutes, std::int64_t minutesPerDay);

}  // namespace refhost
