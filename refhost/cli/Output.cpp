#include "refhost/cli/Output.h"

#include <cstdio>
#include <filesystem>

#include "base/Errors.h"
#include "platform/Files.h"
#include "refhost/cli/FilePath.h"

namespace refhost {
namespace {

[[noreturn]] void Fail(const std::string& path) {
    throw kestrel::DataError("'" + path +
                             "' could not be written; check the folder, its permissions and the "
                             "free space.");
}

}  // namespace

Output::Output(std::string path) : path_(std::move(path)), temporary_(path_ + ".part") {
    if (ToStandardOutput()) return;
    file_.open(FilePath(temporary_), std::ios::binary | std::ios::trunc);
    if (!file_) Fail(path_);
}

Output::~Output() {
    if (!file_.is_open()) return;
    file_.close();
    std::error_code ignored;
    std::filesystem::remove(FilePath(temporary_), ignored);
}

void Output::Write(std::string_view text) {
    if (ToStandardOutput())
        std::fwrite(text.data(), 1, text.size(), stdout);
    else
        file_.write(text.data(), static_cast<std::streamsize>(text.size()));
}

void Output::Commit() {
    if (ToStandardOutput()) {
        if (std::fflush(stdout) != 0) Fail("standard output");
        return;
    }
    file_.flush();
    if (!file_) Fail(path_);
    file_.close();
    std::error_code failure;
    std::filesystem::rename(FilePath(temporary_), FilePath(path_), failure);
    if (failure) Fail(path_);
}

void WriteOutput(const std::string& path, std::string_view text) {
    if (path != "-") return kestrel::ReplaceWholeFile(path, text);
    Output output(path);
    output.Write(text);
    output.Commit();
}

}  // namespace refhost
