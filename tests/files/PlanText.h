#pragma once

#include <string>

#include "platform/posix/PosixDesktop.h"
#include "refhost/files/PlanFile.h"

/// Plan files made of a few elements, for tests.
namespace refhost {

inline PlanData Parse(const std::string& bytes) {
    kestrel::PosixDesktop desktop;
    return ParsePlan(desktop, bytes, "crane.kplan").plan;
}

/// A plan file of one line a part; `inside` starts on line 2.
inline std::string PlanText(const std::string& inside) {
    return "<Plan Version=\"1\" Name=\"Crane\" Start=\"2026-01-05T08:00:00\">\n" + inside +
           "\n</Plan>";
}

inline std::string WithCalendar(const std::string& days) {
    return PlanText("<Calendar>\n" + days + "\n</Calendar><Tasks/>");
}

inline std::string WithResults(const std::string& inside) {
    return PlanText(
        "<Tasks/><Results When=\"2026-01-04T20:00:00\" Seed=\"1\" PlannedCost=\"1\" "
        "PlannedFinish=\"2026-01-05T08:00:00\">\n" +
        inside + "\n</Results>");
}

/// A plan with an ordinary task that holds `inside` on line 3.
inline std::string WithTask(const std::string& inside) {
    return PlanText("<Tasks><Task ID=\"1\" Name=\"A\" Type=\"0\" Duration=\"60\">\n" + inside +
                    "\n</Task></Tasks>");
}

}  // namespace refhost
