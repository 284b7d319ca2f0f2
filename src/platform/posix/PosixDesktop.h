#pragma once

#include <string>

#include "platform/Desktop.h"

namespace kestrel {

/// The desktop of a process without windows, for the command line and for tests. Files and XML
/// are real. Message boxes go to standard error and get the answer that never destroys anything
/// (Cancel, No); file dialogs choose nothing. Derive from it to answer otherwise.
class PosixDesktop : public Desktop {
 public:
    /// Starts with the decimal separator of the process's locale settings (LC_NUMERIC).
    PosixDesktop();

    using Desktop::ShowMessage;
    MessageAnswer ShowMessage(const std::string& text, MessageButtons buttons,
                              const std::string& title) override;
    void Beep() override;

    std::string OpenFile(const FileDialog& dialog) override;
    std::string SaveFile(const FileDialog& dialog) override;

    /// In file paths "\" is accepted as "/".
    bool FileIsThere(const std::string& path) override;
    std::string ReadFile(const std::string& path) override;
    void WriteFile(const std::string& path, std::string_view bytes) override;

    XmlDocument ParseXml(std::string_view bytes) override;

    /// The locale is this object's own: setting it changes nothing outside.
    std::string LocaleString(LocaleItem item) override;
    void SetLocaleString(LocaleItem item, const std::string& value) override;
    /// English (United States).
    std::uint16_t UserLanguage() override { return 1033; }

    /// There is no registry: always nothing.
    std::optional<RegistryValue> UserRegistryValue(const std::string& key,
                                                   const std::string& name) override;
    std::string DecodeSystemText(std::string_view bytes) override { return std::string(bytes); }

    /// The clipboard is this object's own as well.
    void SetClipboardText(const std::string& text) override { clipboard_ = text; }
    const std::string& ClipboardText() const { return clipboard_; }

    /// In the user's browser, by xdg-open.
    void ShowHelpTopic(const std::string& location) override;

 private:
    std::string decimalSeparator_;
    std::string clipboard_;
};

}  // namespace kestrel
