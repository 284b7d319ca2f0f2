#include "refhost/windows/console/ComAddIn.h"

#include <ocidl.h>

#include <filesystem>

#include "platform/Files.h"
#include "refhost/cli/FilePath.h"
#include "util/Errors.h"

#include <Schedulon.h>

namespace refhost {

using kestrel::win32::ComPtr;

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
      server_(std::make_shared<automation::AutomationServer>(session.Host(), program_)),
      host_(server_->Application()),
      answers_(session.Desktop()),
      addIn_(MakeAddInObject()) {
    OfferHost();
}

ComAddIn::~ComAddIn() {
    // Failures are the add-in's own; it is let go of in any case.
    if (started_) try {
            Run(L"LaunchStopSchedulon");
        } catch (const kestrel::HostError&) {
        }
    if (const auto site = addIn_.As<IObjectWithSite>(IID_IObjectWithSite))
        static_cast<void>(site->SetSite(nullptr));
    addIn_.Reset();
    host_.Reset();
    server_->Disconnect();
}

void ComAddIn::OfferHost() {
    // Several hosts may be running, so the site is the sure way.
    const auto site = addIn_.As<IObjectWithSite>(IID_IObjectWithSite);
    if (!site || FAILED(site->SetSite(host_.Get()))) listed_.emplace(*host_, CLSID_Application);
}

void ComAddIn::Start() {
    Run(L"LaunchStartSchedulon");
    started_ = true;
}

void ComAddIn::RunCommand(const wchar_t* command, const std::string& path,
                          const std::string& name) {
    answers_.AnswerFileDialogWith(path, name);
    Run(command);
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

}  // namespace refhost
