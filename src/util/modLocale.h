#pragma once

#include <string>

#include "platform/Desktop.h"

/// The user's locale. Changes are made to the user's own settings, so other programs see them.
namespace kestrel {

/// One item of the locale, cut at its first NUL.
std::string GetLocaleString(Desktop& desktop, LocaleItem item);
void SetLocaleString(Desktop& desktop, LocaleItem item, const std::string& value);

/// Sets the decimal separator to "." and answers the user's own, for RestoreDecimalSeparator.
/// There is deliberately no guard object: after a command that failed the separator stays ".".
std::string ForceDecimalPoint(Desktop& desktop);
void RestoreDecimalSeparator(Desktop& desktop, const std::string& separator);

}  // namespace kestrel
