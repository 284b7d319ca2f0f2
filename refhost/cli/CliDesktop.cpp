#include "refhost/cli/CliDesktop.h"

#include <iostream>
#include <utility>

#include "refhost/cli/Output.h"
#include "refhost/cli/System.h"

namespace refhost {

using kestrel::MessageAnswer;
using kestrel::MessageButtons;

namespace {

/// Asks on the terminal; where there is none the answer is no.
bool UserAgrees(const std::string& question) {
    if (!IsTerminal(Stream::Input) || !IsTerminal(Stream::Error)) return false;
    std::cerr << question << " [y/N] " << std::flush;
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
        std::cerr << (title.empty() ? kestrel::kApplicationTitle : title) << ": " << text
                  << std::endl;
    }
    return buttons == MessageButtons::Ok      ? MessageAnswer::Ok
           : buttons == MessageButtons::YesNo ? MessageAnswer::No
                                              : MessageAnswer::Cancel;
}

std::string CliDesktop::OpenFile(const kestrel::FileDialog&) {
    return std::exchange(fileToOpen, {});
}

std::string CliDesktop::SaveFile(const kestrel::FileDialog&) { return fileToSave; }

void CliDesktop::WriteFile(const std::string& path, std::string_view bytes) {
    WriteOutput(path, bytes);
    ++filesWritten_;
}

}  // namespace refhost
