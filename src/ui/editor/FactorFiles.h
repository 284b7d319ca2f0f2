#pragma once

#include <optional>
#include <string>

#include "core/model/modGlobals.h"
#include "util/GridTable.h"

namespace kestrel::ui {

/// Where the editor's factors come from, and the template files that they go to. What keeps a file
/// from being read is told to the user, who may name another one; nothing is answered when no
/// factors come of it. Raises DataError for a factor that cannot be read.
class FactorFiles {
 public:
    explicit FactorFiles(modGlobals& globals) : globals_(globals) {}

    /// The plan's register or, when it holds no factors, those of the file that the option
    /// "OptionSetting" names, if any. A register that cannot be read is replaced when the user
    /// agrees.
    std::optional<RiskRegister> ToStartWith();
    /// Those of a file that the user chooses.
    std::optional<RiskRegister> Chosen();

    /// Writes the grid into a file that the user names: a register document with the cells' own
    /// texts, percent signs included, and no identifiers. Rows without a description are left out.
    void SaveTemplate(const GridTable& grid);

 private:
    std::optional<RiskRegister> Named(const std::string& path);
    /// A register document, an assignments file or a template; one without version, or of a later
    /// one, is refused.
    std::optional<RiskRegister> Read(const std::string& path);
    bool UserReplaces(const std::string& fault);
    std::string DefaultFile();
    std::string ExistingFile(const std::string& path);
    std::string BrowseForFactors(const std::string& filter, const std::string& folder);
    std::string SamplesFolder();
    std::string PlanFolder();

    modGlobals& globals_;
};

}  // namespace kestrel::ui
