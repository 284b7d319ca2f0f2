#pragma once

#include <string>

#include "com/automation/HostMembers.h"
#include "platform/win32/ComErrors.h"

/// What went wrong in a call to the host, as the one host error with a sentence that names the
/// member: "The host could not read Task.Duration: the plan is locked."
namespace kestrel::com {

/// The language in which the host is called: numbers that it makes of text, or text of numbers,
/// are not those of the user's country. Older hosts know no invariant locale.
inline constexpr LCID kHostLocale = 0x0409;

enum class HostAction { Find, Read, Put, Run };

using win32::ExceptionInfo;

/// Raises HostError for a failing `result`: in the words of `info`, else of the error object
/// that `object` left, else of the system. `object` may be nothing.
[[noreturn]] void RaiseHostFailure(HostAction action, HostMember member, HRESULT result,
                                   const ExceptionInfo& info, IDispatch* object);

/// Raises HostError: "The host answered Plan.Tasks with `what`."
[[noreturn]] void RaiseHostAnswer(HostMember member, const std::string& what);

/// Whether a look-up that failed so may only mean that there is nothing under the key. Hosts have
/// no common code for that; most raise an error of their own. A host that could not be reached,
/// or that could not make sense of the call, is another matter.
bool MeansNotFound(HRESULT result, const ExceptionInfo& info);

}  // namespace kestrel::com
