#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/SystemDesktop.h"
#include "refhost/cli/Outputs.h"

namespace refhost {

/// The desktop of a command-line run: file dialogs and questions are answered by what the command
/// line says; messages are collected for the command to tell, or go to standard error. Nothing of
/// the user's other programs is touched.
class CliDesktop : public kestrel::SystemDesktop {
 public:
    std::string fileToOpen;           ///< what the next open dialog answers; empty cancels it
    std::string fileToSave;           ///< what the save dialog answers
    Outputs::File* output = nullptr;  ///< where a file that is saved goes
    bool answerYes = false;           ///< answers questions with Yes; otherwise the user is asked
    bool collects = false;            ///< messages are kept instead of shown

    /// Messages kept, questions that were answered Yes left out.
    const std::vector<std::string>& Messages() const { return messages_; }
    int QuestionsRefused() const { return questionsRefused_; }
    /// Files written so far.
    int FilesWritten() const { return filesWritten_; }

    using Desktop::ShowMessage;
    kestrel::MessageAnswer ShowMessage(const std::string& text, kestrel::MessageButtons buttons,
                                       const std::string& title) override;
    std::string OpenFile(const kestrel::FileDialog& dialog) override;
    std::string SaveFile(const kestrel::FileDialog& dialog) override;
    /// "-" is standard input. It and a pipe give their bytes once; they are kept for more readers.
    std::string ReadFile(const std::string& path) override;
    bool FileIsThere(const std::string& path) override;
    /// Raises kestrel::DataError when there is no output.
    void WriteFile(const std::string& path, std::string_view bytes) override;
    /// The user's locale stays as it is.
    std::string LocaleString(kestrel::LocaleItem) override { return "."; }
    void SetLocaleString(kestrel::LocaleItem, const std::string&) override {}

 private:
    std::vector<std::string> messages_;
    int questionsRefused_ = 0;
    int filesWritten_ = 0;
    std::map<std::string, std::string> readOnce_;  ///< by path
};

}  // namespace refhost
