#pragma once

#include <windows.h>
#include <string>

namespace kestrel::test {

/// A printer for colour on A4, with 600 dots to the inch, that prints into a file. The system's
/// list holds it for as long as the object lives.
class PostScriptPrinter {
 public:
    PostScriptPrinter();
    PostScriptPrinter(const PostScriptPrinter&) = delete;
    PostScriptPrinter& operator=(const PostScriptPrinter&) = delete;
    ~PostScriptPrinter();

    const wchar_t* Name() const { return L"Chart test printer"; }
    /// What was printed, as PostScript; empty when nothing was.
    std::string Printed() const;

 private:
    HANDLE printer_ = nullptr;
};

}  // namespace kestrel::test
