#include "refhost/cli/Session.h"

#include <utility>

#include "base/Errors.h"
#include "refhost/system/System.h"

namespace refhost {

namespace {

/// Tells on standard error what became of a project file: what a plan holds differently or not at
/// all, how money was read, and last how the plan's dates compare with the file's.
void TellImport(const std::string& name, const ImportReport& report) {
    for (const LeftOut& kind : report.leftOut)
        TellError(name + ": " +
                  (kind.movesFigures ? "can move dates or money: " : "not carried over: ") +
                  kind.what + " (" + std::to_string(kind.count) + ")");
    if (const std::string money = MoneyLine(report.money); !money.empty())
        TellError(name + ": " + money);
    TellError(name + ": " + DatesLine(report.dates));
}

}  // namespace

std::string CommandSettings::Get(const std::string& application, const std::string& section,
                                 const std::string& key, const std::string& fallback) {
    constexpr const char* kNoDefaultFile = "3";
    if (ignoresDefaultFile && key == "OptionSetting") return kNoDefaultFile;
    return SettingsFile::Get(application, section, key, fallback);
}

std::string InputName(const std::string& path) { return path == "-" ? "standard input" : path; }

LoadedPlan LoadPlan(CliDesktop& desktop, const std::string& path, const ImportOptions& options) {
    LoadedPlan loaded = ParsePlan(desktop, desktop.ReadFile(path), InputName(path), options);
    if (loaded.imported) TellImport(InputName(path), *loaded.imported);
    return loaded;
}

Session::Session(const std::string& planPath, const Outputs& outputs, const ImportOptions& options)
    : planName_(InputName(planPath)), host_(settings_, InstallationFolder()) {
    LoadedPlan loaded = LoadPlan(desktop_, planPath, options);
    imported_ = std::move(loaded.imported);
    if (outputs.ReplacesPlan() && imported_)
        throw UsageError(planName_ +
                         " is a project file, which holds more than a plan; name another file to "
                         "write");
    try {
        host_.Open(std::make_shared<HostPlan>(std::move(loaded.plan)));
    } catch (const kestrel::DataError& error) {
        throw kestrel::DataError(planName_ + ": " + error.what());
    }
}

}  // namespace refhost
