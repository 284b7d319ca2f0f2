#pragma once

#include <string>

#include "platform/Desktop.h"

namespace kestrel::win32 {

/// The desktop of a Windows user. Windows of the system (messages, file dialogs) are owned by the
/// window that is active on the calling thread.
class Win32Desktop : public Desktop {
 public:
    using Desktop::ShowMessage;
    MessageAnswer ShowMessage(const std::string& text, MessageButtons buttons,
                              const std::string& title) override;
    void Beep() override;

    /// In these and all other paths "/" is accepted as "\". A dialog that fails counts as
    /// cancelled.
    std::string OpenFile(const FileDialog& dialog) override;
    /// Asks before a file that exists is chosen.
    std::string SaveFile(const FileDialog& dialog) override;

    /// False for folders and for paths with wildcards.
    bool FileIsThere(const std::string& path) override;
    std::string ReadFile(const std::string& path) override;
    void WriteFile(const std::string& path, std::string_view bytes) override;

    /// COM need not be started on the calling thread.
    XmlDocument ParseXml(std::string_view bytes) override;

    /// An item is the text up to its first NUL, or empty when the system does not know it.
    std::string LocaleString(LocaleItem item) override;
    /// Changes the user's own settings; other programs see it too.
    void SetLocaleString(LocaleItem item, const std::string& value) override;
    std::uint16_t UserLanguage() override;

    /// Values of more than 2048 bytes count as absent. Text comes as UTF-8.
    std::optional<RegistryValue> UserRegistryValue(const std::string& key,
                                                   const std::string& name) override;
    std::string DecodeSystemText(std::string_view bytes) override;

    /// Raises DataError when another program keeps the clipboard open.
    void SetClipboardText(const std::string& text) override;
    void ShowHelpTopic(const std::string& location) override;
};

}  // namespace kestrel::win32
