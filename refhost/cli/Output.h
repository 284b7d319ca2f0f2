#pragma once

#include <fstream>
#include <string>
#include <string_view>

namespace refhost {

/// A file that grows while work goes on and takes its name only when it is whole: written beside
/// the target and renamed over it by Commit. Without Commit nothing remains. "-" is standard
/// output, written as it comes.
class Output {
 public:
    /// Raises kestrel::DataError when the file cannot be created.
    explicit Output(std::string path);
    ~Output();
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    void Write(std::string_view text);
    /// Raises kestrel::DataError when something could not be written.
    void Commit();

 private:
    bool ToStandardOutput() const { return path_ == "-"; }

    std::string path_;
    std::string temporary_;
    std::ofstream file_;
};

/// Writes a whole file atomically, or standard output for "-".
void WriteOutput(const std::string& path, std::string_view text);

}  // namespace refhost
