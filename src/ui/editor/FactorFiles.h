#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/model/clsRiskFactor.h"
#include "platform/Desktop.h"
#include "util/GridTable.h"

/// Risk factors files as the editor reads and writes them.
namespace kestrel::ui {

using Factors = std::vector<clsRiskFactor>;

/// The `RiskFactor` elements in document order; DataError for one that cannot be read.
Factors ReadFactors(const XmlDocument& document);

/// The factors of a register document, an assignments file or a template. A file without
/// version, or of a later one, is refused with a message and answers nothing.
std::optional<Factors> ReadFactorsFile(Desktop& desktop, const std::string& path);

/// The grid as a template: a register document with the cells' own texts, percent signs
/// included, and no identifiers. Rows without a description are left out.
XmlDocument TemplateDocument(const GridTable& grid);

}  // namespace kestrel::ui
