#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/XmlDom.h"

namespace kestrel {

/// Default title of every message box.
inline constexpr const char* kApplicationTitle = "Risk Factors";

enum class MessageButtons { Ok, OkCancel, YesNo };
enum class MessageAnswer { Ok, Cancel, Yes, No };

struct FileDialog {
    std::string title;
    std::string initialFolder;     ///< empty: the system's choice
    std::string defaultExtension;  ///< appended to a name typed without one; may be empty
    /// Pairs of description and pattern ("Risk Factors (*.xml)", "*.xml").
    std::vector<std::pair<std::string, std::string>> filters;
    std::string initialFile{};  ///< proposed for saving, with or without its folder; may be empty
};

/// A value of the registry as the query call hands it over.
struct RegistryValue {
    std::uint32_t type = 0;  ///< REG_SZ 1, REG_BINARY 3, REG_DWORD 4, ...
    std::string bytes;       ///< the data as it stands, terminating NUL of a string included
};

/// Items of the user's locale, by the system's code.
enum class LocaleItem : std::uint32_t { DecimalSeparator = 14 };

/// What the operating system gives to the add-in. One object per process; tests use their own.
/// Text is UTF-8.
class Desktop {
 public:
    virtual ~Desktop() = default;

    /// Shows a modal message box. An empty title stands for kApplicationTitle.
    virtual MessageAnswer ShowMessage(const std::string& text, MessageButtons buttons,
                                      const std::string& title) = 0;
    void ShowMessage(const std::string& text) { ShowMessage(text, MessageButtons::Ok, ""); }
    virtual void Beep() = 0;

    /// The chosen path, or empty when the user cancels.
    virtual std::string OpenFile(const FileDialog& dialog) = 0;
    virtual std::string SaveFile(const FileDialog& dialog) = 0;

    /// Whether a directory search for the path finds a file. Never raises.
    virtual bool FileIsThere(const std::string& path) = 0;
    virtual std::string ReadFile(const std::string& path) = 0;                    ///< DataError
    virtual void WriteFile(const std::string& path, std::string_view bytes) = 0;  ///< DataError

    /// Parses a document, bytes of any encoding that it declares. Raises DataError with the
    /// line. No network, no external entities, no DTD; depth and size bounded (XmlDom.h). All
    /// text is kept, white space included.
    virtual XmlDocument ParseXml(std::string_view bytes) = 0;

    virtual std::string LocaleString(LocaleItem item) = 0;
    virtual void SetLocaleString(LocaleItem item, const std::string& value) = 0;
    /// The user's default language: 1033, 2057, ...
    virtual std::uint16_t UserLanguage() = 0;

    /// A value below HKEY_CURRENT_USER; nothing when key or value is absent.
    virtual std::optional<RegistryValue> UserRegistryValue(const std::string& key,
                                                           const std::string& name) = 0;
    /// Bytes in the encoding in which the system hands over texts of such values.
    virtual std::string DecodeSystemText(std::string_view bytes) = 0;

    /// Raises DataError when the clipboard cannot be had.
    virtual void SetClipboardText(const std::string& text) = 0;
    /// Opens a topic of a compiled help file ("...\Help.chm::/topic.html"). Raises DataError.
    virtual void ShowHelpTopic(const std::string& location) = 0;
};

}  // namespace kestrel
