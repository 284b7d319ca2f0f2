#include "platform/posix/PosixDesktop.h"

#include <langinfo.h>
#include <locale.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <system_error>

#include "base/Errors.h"
#include "platform/Files.h"
#include "platform/posix/XmlParser.h"

namespace kestrel {
namespace {

/// Read through a locale of its own, as the process's locale must stay "C" for everyone else.
std::string SystemDecimalSeparator() {
    const locale_t locale = ::newlocale(LC_NUMERIC_MASK, "", nullptr);
    if (!locale) return ".";
    const std::string separator = ::nl_langinfo_l(RADIXCHAR, locale);
    ::freelocale(locale);
    return separator.empty() ? "." : separator;
}

std::string NativePath(std::string path) {
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

}  // namespace

PosixDesktop::PosixDesktop() : decimalSeparator_(SystemDecimalSeparator()) {}

MessageAnswer PosixDesktop::ShowMessage(const std::string& text, MessageButtons buttons,
                                        const std::string& title) {
    std::cerr << (title.empty() ? kApplicationTitle : title) << ": " << text << std::endl;
    switch (buttons) {
        case MessageButtons::OkCancel:
            return MessageAnswer::Cancel;
        case MessageButtons::YesNo:
            return MessageAnswer::No;
        case MessageButtons::Ok:
            break;
    }
    return MessageAnswer::Ok;
}

void PosixDesktop::Beep() {
    if (::isatty(STDERR_FILENO)) std::cerr << '\a';
}

std::string PosixDesktop::OpenFile(const FileDialog&) { return {}; }

std::string PosixDesktop::SaveFile(const FileDialog&) { return {}; }

bool PosixDesktop::FileIsThere(const std::string& path) {
    std::error_code error;
    const auto status = std::filesystem::status(NativePath(path), error);
    return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

std::string PosixDesktop::ReadFile(const std::string& path) {
    return ReadWholeFile(NativePath(path));
}

void PosixDesktop::WriteFile(const std::string& path, std::string_view bytes) {
    ReplaceWholeFile(NativePath(path), bytes);
}

XmlDocument PosixDesktop::ParseXml(std::string_view bytes) { return ParseXmlBytes(bytes); }

std::string PosixDesktop::LocaleString(LocaleItem item) {
    return item == LocaleItem::DecimalSeparator ? decimalSeparator_ : std::string();
}

void PosixDesktop::SetLocaleString(LocaleItem item, const std::string& value) {
    if (item == LocaleItem::DecimalSeparator) decimalSeparator_ = value;
}

std::optional<RegistryValue> PosixDesktop::UserRegistryValue(const std::string&,
                                                             const std::string&) {
    return std::nullopt;
}

void PosixDesktop::ShowHelpTopic(const std::string& location) {
    throw DataError("There is no viewer here for the help topic '" + location +
                    "'; open the help file on Windows.");
}

}  // namespace kestrel
