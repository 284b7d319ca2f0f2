#pragma once

#include <windows.h>
#include <oaidl.h>

#include <cstdint>
#include <string>

#include "com/automation/HostMembers.h"
#include "platform/win32/ComPtr.h"

/// A host's answer as the type that the model gives the member. Hosts are free in their types, so
/// each of these takes whatever can be meant: numbers of every width, as currency, decimal, date
/// or in text (with "." always), truth values, references to any of these. Nothing at all (empty,
/// null, a missing argument, no object) counts as 0, false, "" and no object. Everything else
/// raises HostError with a sentence that names `member`: a number that is not finite or does not
/// fit, text that is no number, an array, an error. An object's default property is not read.
namespace kestrel::com {

double NumberOf(const VARIANT& answer, HostMember member);

/// Fractions are rounded, halves to the even neighbour.
std::int32_t Int32Of(const VARIANT& answer, HostMember member);
std::int16_t Int16Of(const VARIANT& answer, HostMember member);

/// Any number but 0 is true; so are the words "True" and "False" understood.
bool TruthOf(const VARIANT& answer, HostMember member);

/// Numbers as the host's user would type them, with ".".
std::string TextOf(const VARIANT& answer, HostMember member);

win32::ComPtr<IDispatch> ObjectOf(const VARIANT& answer, HostMember member);

}  // namespace kestrel::com
