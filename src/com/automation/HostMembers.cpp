#include "com/automation/HostMembers.h"

#include <string>

#include "base/Errors.h"
#include "com/automation/HostFailure.h"

namespace kestrel::com {
namespace {

struct Names {
    const wchar_t* name;
    const char* fullName;
};

constexpr Names kNames[] = {
#define KESTREL_MEMBER(type, member) {L"" #member, #type "." #member},
    KESTREL_HOST_MEMBERS(KESTREL_MEMBER)
#undef KESTREL_MEMBER
};

const Names& NamesOf(HostMember member) { return kNames[static_cast<std::size_t>(member)]; }

HRESULT Find(IDispatch& object, HostMember member, DISPID& id) {
    auto* name = const_cast<wchar_t*>(NameOf(member));  // it is only read
    const HRESULT result = object.GetIDsOfNames(IID_NULL, &name, 1, kHostLocale, &id);
    // An id of -1 would be asked for again and again.
    return SUCCEEDED(result) && id == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : result;
}

}  // namespace

const wchar_t* NameOf(HostMember member) { return NamesOf(member).name; }

const char* FullNameOf(HostMember member) { return NamesOf(member).fullName; }

MemberIds::MemberIds() {
    ids_.fill(DISPID_UNKNOWN);
    for (const HostMember enumerator : {HostMember::Tasks_NewEnum, HostMember::ChildTasks_NewEnum,
                                        HostMember::CostItems_NewEnum, HostMember::Members_NewEnum})
        ids_[static_cast<std::size_t>(enumerator)] = DISPID_NEWENUM;
}

bool MemberIds::Has(IDispatch& object, HostMember member) {
    DISPID id = DISPID_UNKNOWN;
    if (FAILED(Find(object, member, id))) return false;
    ids_[static_cast<std::size_t>(member)] = id;
    return true;
}

DISPID MemberIds::Ask(IDispatch& object, HostMember member) {
    DISPID id = DISPID_UNKNOWN;
    const HRESULT result = Find(object, member, id);
    if (result == DISP_E_UNKNOWNNAME || result == DISP_E_MEMBERNOTFOUND)
        throw HostError(std::string("The host has no ") + FullNameOf(member) +
                        "; install a version of it that this add-in works with.");
    if (FAILED(result)) {
        ExceptionInfo nothing;
        RaiseHostFailure(HostAction::Find, member, result, nothing, &object);
    }
    return ids_[static_cast<std::size_t>(member)] = id;
}

}  // namespace kestrel::com
