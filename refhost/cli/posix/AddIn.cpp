#include "refhost/cli/AddIn.h"

#include "refhost/cli/LinkedAddIn.h"

namespace refhost {

std::unique_ptr<AddIn> MakeAddIn(Session& session) {
    return std::make_unique<LinkedAddIn>(session);
}

}  // namespace refhost
