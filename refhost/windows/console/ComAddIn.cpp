#include "refhost/windows/console/ComAddIn.h"

#include <windows.h>

#include <filesystem>

#include "platform/Files.h"
#include "refhost/system/FilePath.h"

namespace refhost {

namespace {

/// The file that the add-in's dialog gets instead of the one that the user named, which may have
/// another extension than the dialog insists on, be there already, or be standard output.
class ExchangeFile {
 public:
    ExchangeFile() {
        std::error_code failure;
        const auto folder = std::filesystem::temp_directory_path(failure);
        path_ = folder / ("kestrel-" + std::to_string(GetCurrentProcessId()) + ".xml");
        std::filesystem::remove(path_, failure);
    }
    ~ExchangeFile() {
        std::error_code ignored;  // it may never have been written
        std::filesystem::remove(path_, ignored);
    }
    ExchangeFile(const ExchangeFile&) = delete;
    ExchangeFile& operator=(const ExchangeFile&) = delete;

    std::string Path() const { return Utf8Path(path_); }
    bool Exists() const {
        std::error_code failure;
        return std::filesystem::is_regular_file(path_, failure);
    }

 private:
    std::filesystem::path path_;
};

}  // namespace

ComAddIn::ComAddIn(Session& session)
    : session_(session),
      program_(session.Host()),
      answers_(session.Desktop()),
      connection_(session.Host(), program_) {
    connection_.Connect();
}

void ComAddIn::RunCommand(const wchar_t* command, const std::string& path,
                          const std::string& name) {
    answers_.AnswerFileDialogWith(path, name);
    connection_.Call(command);
    answers_.RaiseFailure();
}

void ComAddIn::Save() {
    CliDesktop& desktop = session_.Desktop();
    const ExchangeFile exchange;
    RunCommand(L"LaunchSave", exchange.Path(), desktop.fileToSave);
    if (exchange.Exists()) desktop.WriteFile(desktop.fileToSave, desktop.ReadFile(exchange.Path()));
}

void ComAddIn::Load() {
    CliDesktop& desktop = session_.Desktop();
    const ExchangeFile exchange;
    kestrel::ReplaceWholeFile(exchange.Path(), desktop.ReadFile(desktop.fileToOpen));
    RunCommand(L"LaunchLoad", exchange.Path(), desktop.fileToOpen);
}

std::unique_ptr<AddIn> MakeAddIn(Session& session) { return std::make_unique<ComAddIn>(session); }

}  // namespace refhost
