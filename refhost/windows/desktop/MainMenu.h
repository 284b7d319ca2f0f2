#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "refhost/workbench/Workbench.h"

namespace refhost::win32 {

/// The menu bar and the keys of the commands.
class MainMenu {
 public:
    MainMenu();
    ~MainMenu();
    MainMenu(const MainMenu&) = delete;
    MainMenu& operator=(const MainMenu&) = delete;

    HMENU Bar() const { return bar_; }
    HACCEL Keys() const { return keys_; }

    /// Greys what is not enabled now, and lists the files opened last.
    void Update(const Workbench& bench, const std::vector<std::string>& recentFiles);

    /// What the number of a WM_COMMAND stands for.
    static std::optional<WorkbenchCommand> CommandOf(WORD number);
    /// Position among the files opened last.
    static std::optional<std::size_t> RecentFileOf(WORD number);

 private:
    HMENU bar_;  ///< the window's, once it has it; both are freed here
    HMENU recent_;
    HACCEL keys_;
};

}  // namespace refhost::win32
