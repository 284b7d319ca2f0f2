#include "refhost/system/SettingsFile.h"

#include <filesystem>
#include <map>

#include "base/Errors.h"
#include "platform/FileLock.h"
#include "platform/Files.h"
#include "refhost/system/FilePath.h"
#include "refhost/system/System.h"

namespace refhost {
namespace {

std::string FullKey(const std::string& application, const std::string& section,
                    const std::string& key) {
    return application + "/" + section + "/" + key;
}

/// A value on one line: line breaks and "\" are written as "\n", "\r" and "\\".
std::string Escaped(const std::string& value) {
    std::string text;
    for (const char c : value) {
        if (c == '\n')
            text += "\\n";
        else if (c == '\r')
            text += "\\r";
        else if (c == '\\')
            text += "\\\\";
        else
            text += c;
    }
    return text;
}

std::string Unescaped(std::string_view text) {
    std::string value;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            value += text[i];
            continue;
        }
        const char code = text[++i];
        value += code == 'n' ? '\n' : code == 'r' ? '\r' : code;
    }
    return value;
}

using Values = std::map<std::string, std::string>;

bool Exists(const std::string& path) {
    std::error_code failure;
    return std::filesystem::is_regular_file(FilePath(path), failure);
}

/// Raises kestrel::DataError when there is a file that cannot be read.
Values ReadValues(const std::string& path) {
    Values values;
    if (!Exists(path)) return values;
    const std::string text = kestrel::ReadWholeFile(path);
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        const std::string_view line(text.data() + start, end - start);
        if (const std::size_t equals = line.find('='); equals != std::string_view::npos)
            values[std::string(line.substr(0, equals))] = Unescaped(line.substr(equals + 1));
        start = end + 1;
    }
    return values;
}

}  // namespace

std::string SettingsFile::DefaultPath() { return SettingsPath(); }

std::string SettingsFile::Get(const std::string& application, const std::string& section,
                              const std::string& key, const std::string& fallback) {
    Values values;
    try {
        values = ReadValues(path_);
    } catch (const kestrel::DataError&) {
        return fallback;
    }
    const auto found = values.find(FullKey(application, section, key));
    return found == values.end() ? fallback : found->second;
}

void SettingsFile::Save(const std::string& application, const std::string& section,
                        const std::string& key, const std::string& value) {
    std::error_code ignored;  // a folder that cannot be made shows in the lock
    std::filesystem::create_directories(FilePath(path_).parent_path(), ignored);
    const kestrel::FileLock lock(path_);
    Values values = ReadValues(path_);
    values[FullKey(application, section, key)] = value;
    std::string text;
    for (const auto& [name, stored] : values) text += name + "=" + Escaped(stored) + "\n";
    kestrel::ReplaceWholeFile(path_, text);
}

}  // namespace refhost
