#pragma once

#include <functional>
#include <string>
#include <vector>

#include "windows/support/FerryStage.h"

namespace kestrel::test {

/// A window in a state worth a picture.
struct Scene {
    std::string name;
    std::wstring caption;
    std::function<void(FerryStage&)> open;
    std::function<void(WindowUser&)> prepare;  ///< what the user does first; may be empty
};

/// The typical ones first, then those that try a window's limits.
const std::vector<Scene>& Scenes();

}  // namespace kestrel::test
