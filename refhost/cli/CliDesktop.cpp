#include "refhost/cli/CliDesktop.h"

#include <iostream>
#include <utility>

#include "base/Errors.h"
#include "base/OneLine.h"
#include "platform/Files.h"
#include "refhost/system/FilePath.h"
#include "refhost/system/System.h"

namespace refhost {

using kestrel::MessageAnswer;
using kestrel::MessageButtons;

namespace {

/// Asks on the terminal; where there is none the answer is no.
bool UserAgrees(const std::string& question) {
    if (!IsTerminal(Stream::Input) || !IsTerminal(Stream::Error)) return false;
    std::cerr << kestrel::OneLine(question) << " [y/N] " << std::flush;
    std::string answer;
    std::getline(std::cin, answer);
    return answer == "y" || answer == "Y" || answer == "yes";
}

}  // namespace

MessageAnswer CliDesktop::ShowMessage(const std::string& text, MessageButtons buttons,
                                      const std::string& title) {
    if (buttons == MessageButtons::YesNo && (answerYes || UserAgrees(text)))
        return MessageAnswer::Yes;
    if (collects) {
        messages_.push_back(text);
        if (buttons == MessageButtons::YesNo) ++questionsRefused_;
    } else {
        TellError((title.empty() ? kestrel::kApplicationTitle : title) + ": " + text);
    }
    return buttons == MessageButtons::Ok      ? MessageAnswer::Ok
           : buttons == MessageButtons::YesNo ? MessageAnswer::No
                                              : MessageAnswer::Cancel;
}

std::string CliDesktop::OpenFile(const kestrel::FileDialog&) {
    return std::exchange(fileToOpen, {});
}

std::string CliDesktop::SaveFile(const kestrel::FileDialog&) { return fileToSave; }

std::string CliDesktop::ReadFile(const std::string& path) {
    if (const auto found = readOnce_.find(path); found != readOnce_.end()) return found->second;
    std::error_code failure;
    const bool isFile = path != "-" && std::filesystem::is_regular_file(FilePath(path), failure);
    if (isFile) return kestrel::SystemDesktop::ReadFile(path);
    std::string bytes =
        path == "-" ? kestrel::ReadStandardInput() : kestrel::SystemDesktop::ReadFile(path);
    return readOnce_.emplace(path, std::move(bytes)).first->second;
}

bool CliDesktop::FileIsThere(const std::string& path) {
    return path == "-" || kestrel::SystemDesktop::FileIsThere(path);
}

void CliDesktop::WriteFile(const std::string& path, std::string_view bytes) {
    if (!output) throw kestrel::DataError("No file is to be written, '" + path + "' neither.");
    output->Write(bytes);
    ++filesWritten_;
}

}  // namespace refhost
