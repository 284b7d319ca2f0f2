#include "platform/FileSet.h"

#include <utility>

#include "platform/Files.h"

namespace kestrel {
namespace {

constexpr std::size_t kPiece = 1u << 16;

}  // namespace

void FileSet::File::Write(std::string_view bytes) {
    if (bytes.size() >= kPiece) {
        target_->Write(std::exchange(buffer_, {}));
        return target_->Write(bytes);
    }
    buffer_ += bytes;
    if (buffer_.size() < kPiece) return;
    target_->Write(buffer_);
    buffer_.clear();
}

void FileSet::File::Finish() {
    target_->Write(buffer_);
    buffer_.clear();
    target_->Finish();
}

FileSet::File& FileSet::Add(std::unique_ptr<FileTarget> target) {
    return *files_.emplace_back(std::make_unique<File>(std::move(target)));
}

void FileSet::Commit() {
    for (const auto& file : files_) file->Finish();
    const SignalPause pause;
    std::size_t swapped = 0;
    try {
        for (; swapped < files_.size(); ++swapped) files_[swapped]->target_->Swap();
    } catch (...) {
        for (std::size_t i = swapped + 1; i-- > 0;) files_[i]->target_->Undo();
        throw;
    }
    for (const auto& file : files_) file->target_->Settle();
    files_.clear();
}

void ReplaceWholeFile(const std::string& path, std::string_view bytes) {
    FileSet set;
    set.Add(path).Write(bytes);
    set.Commit();
}

}  // namespace kestrel
