#pragma once

#include <deque>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "base/Errors.h"
#include "base/Text.h"
#include "platform/SystemDesktop.h"
#include "platform/XmlCharacters.h"

namespace kestrel::test {

struct ShownMessage {
    std::string text;
    MessageButtons buttons;
    std::string title;  ///< kApplicationTitle where the caller gave none
};

/// A desktop whose user is a script and whose outside effects can be read. Files and XML are the
/// real ones. Everything is public: set what the code will meet, then look at what it did.
class FakeDesktop : public SystemDesktop {
 public:
    /// @name What the code meets
    ///@{
    /// Taken front to back by message boxes; when it is empty: Ok, Cancel, No. An answer that the
    /// box has no button for is a fault of the test and raises std::logic_error.
    std::deque<MessageAnswer> answers;
    /// Paths taken front to back by open and save dialogs; when it is empty: cancelled.
    std::deque<std::string> chosenFiles;
    std::map<LocaleItem, std::string> locale{{LocaleItem::DecimalSeparator, ","}};
    std::uint16_t language = 1033;
    /// By key and value name.
    std::map<std::pair<std::string, std::string>, RegistryValue> registry;
    bool helpFails = false;
    bool clipboardFails = false;  ///< another program holds it
    ///@}

    /// @name What the code did
    ///@{
    std::vector<ShownMessage> messages;
    std::vector<FileDialog> openDialogs;
    std::vector<FileDialog> saveDialogs;
    std::vector<std::string> helpTopics;
    std::string clipboard;
    int beeps = 0;
    ///@}

    /// The text of the only message shown so far; "" for none, all texts joined by " | " for more.
    std::string MessageText() const {
        std::string joined;
        for (const ShownMessage& message : messages)
            joined += (joined.empty() ? "" : " | ") + message.text;
        return joined;
    }

    using Desktop::ShowMessage;
    MessageAnswer ShowMessage(const std::string& text, MessageButtons buttons,
                              const std::string& title) override {
        messages.push_back({text, buttons, title.empty() ? kApplicationTitle : title});
        const MessageAnswer standard = buttons == MessageButtons::Ok         ? MessageAnswer::Ok
                                       : buttons == MessageButtons::OkCancel ? MessageAnswer::Cancel
                                                                             : MessageAnswer::No;
        if (answers.empty()) return standard;
        const MessageAnswer answer = answers.front();
        answers.pop_front();
        const MessageAnswer positive =
            buttons == MessageButtons::YesNo ? MessageAnswer::Yes : MessageAnswer::Ok;
        if (answer != standard && answer != positive)
            throw std::logic_error("the message box has no such button: " + text);
        return answer;
    }

    void Beep() override { ++beeps; }

    std::string OpenFile(const FileDialog& dialog) override {
        openDialogs.push_back(dialog);
        return NextFile();
    }

    std::string SaveFile(const FileDialog& dialog) override {
        saveDialogs.push_back(dialog);
        return NextFile();
    }

    std::string LocaleString(LocaleItem item) override { return locale[item]; }
    void SetLocaleString(LocaleItem item, const std::string& value) override {
        locale[item] = value;
    }
    std::uint16_t UserLanguage() override { return language; }

    std::optional<RegistryValue> UserRegistryValue(const std::string& key,
                                                   const std::string& name) override {
        const auto found = registry.find({key, name});
        return found == registry.end() ? std::nullopt : std::optional(found->second);
    }

    /// As on a system whose texts are Latin-1.
    std::string DecodeSystemText(std::string_view bytes) override {
        std::string text;
        for (const char c : bytes) AppendUtf8(text, static_cast<unsigned char>(c));
        return text;
    }

    void SetClipboardText(const std::string& text) override {
        if (clipboardFails) throw DataError("The clipboard cannot be used.");
        clipboard = text;
    }
    const std::string& ClipboardText() const { return clipboard; }

    void ShowHelpTopic(const std::string& location) override {
        if (helpFails) throw DataError("The help viewer cannot be opened; install it.");
        helpTopics.push_back(location);
    }

 private:
    std::string NextFile() {
        if (chosenFiles.empty()) return {};
        std::string chosen = chosenFiles.front();
        chosenFiles.pop_front();
        return chosen;
    }
};

}  // namespace kestrel::test
