#pragma once

#include <string>

namespace kestrel {

/// The same topic among the pages that lie in the folder "help" beside a compiled help file:
/// "C:\Kestrel\help\a.html" for "C:\Kestrel\Help.chm::/a.html". Empty for a location of another
/// form.
std::string HelpPage(const std::string& location);

}  // namespace kestrel
