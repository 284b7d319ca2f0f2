#include "platform/posix/PosixDesktop.h"

#include <langinfo.h>
#include <locale.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <system_error>

#include "base/Errors.h"
#include "platform/Files.h"
#include "platform/HelpPage.h"
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

/// Does not wait for the browser, which may end with this very window.
bool OpenInBrowser(const std::string& page) {
    std::string shell = "sh", option = "-c", path = page;
    std::string script =
        "command -v xdg-open >/dev/null || exit 1; xdg-open \"$0\" </dev/null >/dev/null 2>&1 &";
    char* const words[] = {shell.data(), option.data(), script.data(), path.data(), nullptr};
    pid_t child = 0;
    int status = 0;
    return ::posix_spawn(&child, "/bin/sh", nullptr, nullptr, words, environ) == 0 &&
           ::waitpid(child, &status, 0) == child && status == 0;
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
    const std::string page = NativePath(HelpPage(location));
    if (page.empty() || !FileIsThere(page))
        throw DataError("There is no page for the help topic '" + location +
                        "'; see whether the folder help is there.");
    if (!OpenInBrowser(page))
        throw DataError("There is no browser that xdg-open could show the help in; open '" + page +
                        "' yourself.");
}

}  // namespace kestrel
