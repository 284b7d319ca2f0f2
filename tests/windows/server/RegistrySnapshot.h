#pragma once

#include <windows.h>

#include <map>
#include <string>

namespace kestrel::test {

/// Every value below the classes of machine and user, by key and name; keys without a value too.
/// Keys are marked by the root that they are found under.
using RegistrySnapshot = std::map<std::wstring, std::wstring>;
RegistrySnapshot TakeRegistrySnapshot();

/// What `after` has and `before` has not, has otherwise, or has no longer: one a line.
std::string Difference(const RegistrySnapshot& before, const RegistrySnapshot& after);

}  // namespace kestrel::test
