#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/FileSet.h"
#include "refhost/cli/Arguments.h"

namespace refhost {

/// Everything that one run of a command writes: the files that its rules declare as Use::Output or
/// as a plan to write, and what it tells on standard output. All are known to be writable before
/// the command begins. They become visible together in Commit, after the command; without it
/// every file is as it was.
class Outputs {
 public:
    using File = kestrel::FileSet::File;

    /// Opens what the arguments name. Raises UsageError when an output is a file that is read or
    /// another output, kestrel::DataError when it cannot be written.
    Outputs(const Arguments& arguments, const ArgumentRules& rules);

    /// The file that an option or word names; nothing when it was not given.
    File* Find(const std::string& name);
    /// A file more that goes with one of them, such as a second chart; raises as above.
    File& AddBeside(const std::string& name, const std::string& path);
    /// Whether the plan that is read will be replaced.
    bool ReplacesPlan() const { return replacesPlan_; }

    /// Text for the user: on standard output, unless a file goes there; then on standard error.
    void Tell(std::string_view text) { told_ += text; }
    /// Raises kestrel::DataError when something could not be written.
    void Commit();

 private:
    struct Named {
        std::string name;      ///< of the option or word
        std::string identity;  ///< kestrel::FileIdentity
        File* file = nullptr;  ///< nothing for what is read
    };
    void NoteInput(const std::string& name, const std::string& path);
    File& Add(const std::string& name, const std::string& path, bool mayBePlan);

    kestrel::FileSet files_;
    std::vector<Named> named_;
    std::string told_;
    bool takesStandardOutput_ = false;
    bool replacesPlan_ = false;
};

/// Writes to standard output at once, outside of any command. Raises kestrel::DataError.
void WriteStandardOutput(std::string_view text);

/// A line on standard error, made printable and shortened. What it cannot take is left.
void TellError(std::string_view text) noexcept;

}  // namespace refhost
