#pragma once

#include <windows.h>
#include <ocidl.h>

#include <array>
#include <cstddef>

#include "platform/win32/ComPtr.h"

namespace kestrel::com {

/// The three events in the order in which they come.
enum class AnalysisEvent : std::size_t {
    PlanBeforeRiskAnalysis,
    PlanAfterRiskIteration,
    PlanAfterRiskAnalysis
};
inline constexpr std::size_t kAnalysisEvents = 3;

/// How the host raises its events: the id of its source interface and the dispatch ids of the
/// events, in the order of AnalysisEvent.
struct EventInterface {
    IID id{};
    std::array<DISPID, kAnalysisEvents> events{};
};

/// As the host's type information describes them: its default source interface, and the events in
/// that by name, in any letter case. HostError when the host does not describe its events or lacks
/// one of the three.
EventInterface FindEventInterface(IDispatch& application);

/// Where a sink for that interface connects. HostError when the host has no such point.
win32::ComPtr<IConnectionPoint> FindConnectionPoint(IDispatch& application, const IID& id);

}  // namespace kestrel::com
