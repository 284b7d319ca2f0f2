#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/HostModel.h"
#include "platform/Desktop.h"

/// Small services that commands and windows share.
namespace kestrel {

/// Whether the file exists; an empty path never does. With `showMessage` its absence is told.
bool FileExists(Desktop& desktop, const std::string& path, bool showMessage);

/// Asks for a file to open, with "All Files (*.*)" offered after the given pairs of description
/// and pattern. Empty when the user cancels or the dialog fails.
std::string BrowseForFile(Desktop& desktop, const std::string& title,
                          std::vector<std::pair<std::string, std::string>> filters,
                          const std::string& initialFolder);

/// Whether the host is at least of the given version; with `showMessage` a refusal is told.
bool CheckHostVersion(host::Application& application, Desktop& desktop, std::int32_t major,
                      std::int32_t minor, std::int32_t revision, bool showMessage);

/// Piece number `index` (from 1) of a list, untrimmed; empty beyond the last piece. The
/// separator may be longer than one character.
std::string GetListItem(std::string_view list, int index, std::string_view separator);

/// Separators found, plus one: an empty list counts as one piece.
int CountListItems(std::string_view list, std::string_view separator);

/// The task of the current row of the host's Gantt view; nothing in any other view.
host::TaskPtr GetSelectedTask(host::Application& application);

}  // namespace kestrel
