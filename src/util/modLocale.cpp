#include "util/modLocale.h"

namespace kestrel {

std::string GetLocaleString(Desktop& desktop, LocaleItem item) {
    const std::string buffer = desktop.LocaleString(item);
    return buffer.substr(0, buffer.find('\0'));
}

void SetLocaleString(Desktop& desktop, LocaleItem item, const std::string& value) {
    desktop.SetLocaleString(item, value);
}

std::string ForceDecimalPoint(Desktop& desktop) {
    std::string separator = GetLocaleString(desktop, LocaleItem::DecimalSeparator);
    SetLocaleString(desktop, LocaleItem::DecimalSeparator, ".");
    return separator;
}

void RestoreDecimalSeparator(Desktop& desktop, const std::string& separator) {
    SetLocaleString(desktop, LocaleItem::DecimalSeparator, separator);
}

}  // namespace kestrel
