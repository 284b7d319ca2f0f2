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

LoadedPlan ReadDocument(const kestrel::XmlDocument& document, const std::string& path,
                        const ImportOptions& options) {
    if (IsProject(document.root)) return ReadProject(document.root, path, options);
    return {ReadPlanElement(document.root, path), std::nullopt};
}

}  // namespace

LoadedPlan ParsePlan(kestrel::Desktop& desktop, std::string_view bytes, const std::string& path,
                     const ImportOptions& options) {
    return ReadDocument(Parse(desktop, bytes, path), path, options);
}

LoadedPlan ReadPlan(kestrel::Desktop& desktop, const std::string& path,
                    const ImportOptions& options) {
    // The bytes, large at times, go with this statement.
    const kestrel::XmlDocument document = Parse(desktop, desktop.ReadFile(path), path);
    return ReadDocument(document, path, options);
}

}  // namespace refhost
