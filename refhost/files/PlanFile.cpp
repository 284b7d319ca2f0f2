#include "refhost/files/PlanFile.h"

#include "base/Errors.h"
#include "refhost/files/PlanReader.h"

namespace refhost {
namespace {

kestrel::XmlDocument Parse(kestrel::Desktop& desktop, std::string_view bytes,
                           const std::string& path) {
    try {
        return desktop.ParseXml(bytes);
    } catch (const kestrel::DataError& error) {
        throw kestrel::DataError(path + ": " + error.what() +
                                 "; mend the file, or take a whole copy of it.");
    }
}

bool IsProject(const kestrel::XmlNode& root) {
    return root.LocalName() == "Project" && root.uri.ends_with("/project");
}

}  // namespace

LoadedPlan ParsePlan(kestrel::Desktop& desktop, std::string_view bytes, const std::string& path,
                     const ImportOptions& options) {
    const kestrel::XmlDocument document = Parse(desktop, bytes, path);
    if (IsProject(document.root)) return ReadProject(document.root, path, options);
    return {ReadPlanElement(document.root, path), std::nullopt};
}

LoadedPlan ReadPlan(kestrel::Desktop& desktop, const std::string& path,
                    const ImportOptions& options) {
    return ParsePlan(desktop, desktop.ReadFile(path), path, options);
}

}  // namespace refhost
