#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "platform/posix/PosixDesktop.h"
#include "refhost/files/PlanFile.h"

/// Project files made of a few elements, for tests.
namespace refhost {

/// The losses in the order of their text, as "kind (count)"; "!" marks those that can move dates or
/// money.
inline std::vector<std::string> Losses(const LoadedPlan& loaded) {
    std::vector<std::string> losses;
    for (const LeftOut& kind : loaded.imported.value().leftOut)
        losses.push_back((kind.movesFigures ? "!" : "") + kind.what + " (" +
                         std::to_string(kind.count) + ")");
    std::sort(losses.begin(), losses.end());
    return losses;
}

inline std::string ProjectText(const std::string& inside) {
    return "<Project xmlns=\"urn:example/project\"><StartDate>2026-01-05T08:00:00</StartDate>" +
           inside + "</Project>";
}

inline LoadedPlan Import(const std::string& inside, const ImportOptions& options = {}) {
    kestrel::PosixDesktop desktop;
    return ParsePlan(desktop, ProjectText(inside), "crane.xml", options);
}

/// One task at outline level 1 whose UID and ID are `uid`.
inline std::string Task(const std::string& uid, const std::string& inside) {
    return "<Task><UID>" + uid + "</UID><ID>" + uid + "</ID><Duration>PT8H0M0S</Duration>" +
           inside + "</Task>";
}

inline std::string Tasks(const std::string& rows) { return "<Tasks>" + rows + "</Tasks>"; }

}  // namespace refhost
