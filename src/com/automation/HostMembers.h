#pragma once

#include <windows.h>
#include <oaidl.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace kestrel::com {

/// Every member that is asked of the host: kind of object and the member's own name. Lists have
/// _NewEnum, whose id is the same in all hosts, or else Count and Item. The last one is no member:
/// it names what an event brings.
#define KESTREL_HOST_MEMBERS(MEMBER)        \
    MEMBER(Application, ActivePlan)         \
    MEMBER(Application, Path)               \
    MEMBER(Application, GetSetting)         \
    MEMBER(Application, SaveSetting)        \
    MEMBER(Application, VersionMajor)       \
    MEMBER(Application, VersionMinor)       \
    MEMBER(Application, VersionRevision)    \
    MEMBER(Application, Busy)               \
    MEMBER(Application, StatusText)         \
    MEMBER(Plan, Name)                      \
    MEMBER(Plan, Tasks)                     \
    MEMBER(Plan, GetText)                   \
    MEMBER(Plan, SetText)                   \
    MEMBER(Plan, AutoCalculate)             \
    MEMBER(Plan, Recalculate)               \
    MEMBER(Plan, RecalculateAll)            \
    MEMBER(Plan, SummaryTask)               \
    MEMBER(Plan, RiskAnalysis)              \
    MEMBER(Plan, Groups)                    \
    MEMBER(Plan, UserFieldDefinitions)      \
    MEMBER(Plan, CurrentView)               \
    MEMBER(Tasks, _NewEnum)                 \
    MEMBER(Tasks, Count)                    \
    MEMBER(Tasks, Item)                     \
    MEMBER(Task, ID)                        \
    MEMBER(Task, Name)                      \
    MEMBER(Task, Duration)                  \
    MEMBER(Task, TaskType)                  \
    MEMBER(Task, ChildTasks)                \
    MEMBER(Task, UserValues)                \
    MEMBER(Task, CostItems)                 \
    MEMBER(ChildTasks, _NewEnum)            \
    MEMBER(ChildTasks, Count)               \
    MEMBER(ChildTasks, Item)                \
    MEMBER(UserValues, Item)                \
    MEMBER(CostItems, _NewEnum)             \
    MEMBER(CostItems, Count)                \
    MEMBER(CostItems, Item)                 \
    MEMBER(CostItem, Cost)                  \
    MEMBER(SummaryTask, Finish)             \
    MEMBER(SummaryTask, Cost)               \
    MEMBER(RiskAnalysis, NextRandom)        \
    MEMBER(RiskAnalysis, IsUpToDate)        \
    MEMBER(RiskAnalysis, Options)           \
    MEMBER(AnalysisOptions, RecalculateAll) \
    MEMBER(Groups, Item)                    \
    MEMBER(Groups, Add)                     \
    MEMBER(Groups, Remove)                  \
    MEMBER(Group, Name)                     \
    MEMBER(Group, Description)              \
    MEMBER(Group, Flagged)                  \
    MEMBER(Group, Members)                  \
    MEMBER(Members, _NewEnum)               \
    MEMBER(Members, Count)                  \
    MEMBER(Members, Item)                   \
    MEMBER(Members, Add)                    \
    MEMBER(Member, Value)                   \
    MEMBER(Member, SampledValue)            \
    MEMBER(Member, Group)                   \
    MEMBER(Member, Distribution)            \
    MEMBER(Distribution, Shape)             \
    MEMBER(Distribution, Minimum)           \
    MEMBER(Distribution, MostLikely)        \
    MEMBER(Distribution, Maximum)           \
    MEMBER(Distribution, Value)             \
    MEMBER(UserFieldDefinitions, Item)      \
    MEMBER(UserFieldDefinitions, Add)       \
    MEMBER(UserFieldDefinition, Name)       \
    MEMBER(View, TypeName)                  \
    MEMBER(View, CurrentRow)                \
    MEMBER(Event, Plan)

/// TaskDuration, PlanTasks, Tasks_NewEnum and so on.
enum class HostMember : std::uint8_t {
#define KESTREL_MEMBER(type, member) type##member,
    KESTREL_HOST_MEMBERS(KESTREL_MEMBER)
#undef KESTREL_MEMBER
        kCount
};

inline constexpr std::size_t kHostMembers = static_cast<std::size_t>(HostMember::kCount);

/// The name that the host knows the member by: "Duration".
const wchar_t* NameOf(HostMember member);

/// What a message calls it: "Task.Duration".
const char* FullNameOf(HostMember member);

/// The members' dispatch ids, each asked of the host when it is first used. An id belongs to a
/// type: objects whose types may differ under one name (views) need ids of their own.
class MemberIds {
 public:
    MemberIds();

    /// HostError when the host's object has no such member.
    DISPID Of(IDispatch& object, HostMember member) {
        const DISPID id = ids_[static_cast<std::size_t>(member)];
        return id != DISPID_UNKNOWN ? id : Ask(object, member);
    }
    /// Whether the host's object has the member at all.
    bool Has(IDispatch& object, HostMember member);

 private:
    DISPID Ask(IDispatch& object, HostMember member);

    std::array<DISPID, kHostMembers> ids_;
};

}  // namespace kestrel::com
