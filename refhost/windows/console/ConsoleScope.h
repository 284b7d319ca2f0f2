#pragma once

namespace refhost {

/// While it lives the program's streams carry the same bytes as on every system: UTF-8, with "\n"
/// for the end of a line. A console shows them as text, and obeys the codes that redraw the
/// progress bar; at the end it is put back as it was, as the shell goes on using it.
class ConsoleScope {
 public:
    ConsoleScope();
    ~ConsoleScope();
    ConsoleScope(const ConsoleScope&) = delete;
    ConsoleScope& operator=(const ConsoleScope&) = delete;

 private:
    unsigned outputCodePage_ = 0;  ///< 0: there is no console
    unsigned long errorMode_ = 0;
    bool changedErrorMode_ = false;
};

}  // namespace refhost
