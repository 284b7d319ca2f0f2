#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace kestrel {

/// The steps in which the system writes one file. A plain file is written beside its target and
/// then swapped with it: links are followed, owner and rights stay. What is no plain file (a pipe,
/// a device, /dev/stdout) is written straight, and its later steps do nothing. Steps raise
/// DataError naming the file. Nothing remains of a file that was not swapped.
class FileTarget {
 public:
    virtual ~FileTarget() = default;

    /// It is no plain file, and nothing can stand beside it.
    virtual bool IsStraight() const = 0;
    virtual void Write(std::string_view bytes) = 0;
    /// All bytes are on the disk.
    virtual void Finish() = 0;
    /// The file takes the target's place; the old one is kept aside.
    virtual void Swap() {}
    /// The old file, or that there was none, is back. Also after a Swap that failed.
    virtual void Undo() noexcept {}
    /// The old file goes for good.
    virtual void Settle() noexcept {}
};

/// Opens what will be written; raises DataError when that or a later replacement is not possible.
std::unique_ptr<FileTarget> OpenTarget(const std::string& path);
std::unique_ptr<FileTarget> OpenStandardOutput();

/// Holds back the signals that end the program while it lives, so that no step is half done.
class SignalPause {
 public:
    SignalPause();
    ~SignalPause();
    SignalPause(const SignalPause&) = delete;
    SignalPause& operator=(const SignalPause&) = delete;

 private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace kestrel
