#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileTarget.h"

namespace kestrel {

/// Files that are written together: each is staged beside its target, and all take their targets'
/// places at once in Commit. When anything fails before, or Commit is never called, every file is
/// as it was and nothing lies beside it.
class FileSet {
 public:
    class File {
     public:
        explicit File(std::unique_ptr<FileTarget> target) : target_(std::move(target)) {}
        /// What is written need not fit in memory. Raises DataError.
        void Write(std::string_view bytes);
        bool IsStraight() const { return target_->IsStraight(); }

     private:
        friend class FileSet;
        void Finish();

        std::unique_ptr<FileTarget> target_;
        std::string buffer_;
    };

    /// A file that is now known to be writable; valid as long as the set. Raises DataError.
    File& Add(const std::string& path) { return Add(OpenTarget(path)); }
    File& AddStandardOutput() { return Add(OpenStandardOutput()); }

    /// All or none: raises DataError when a file cannot take its place, the others put back.
    void Commit();

 private:
    File& Add(std::unique_ptr<FileTarget> target);

    std::vector<std::unique_ptr<File>> files_;
};

}  // namespace kestrel
