#include "refhost/files/PlanFile.h"
#include "refhost/files/StrictElement.h"

namespace refhost {

LoadedPlan ReadProject(const kestrel::XmlNode& root, const std::string& path) {
    FailAt(path, root.line, "project files cannot be read yet; choose a plan file.");
}

}  // namespace refhost
