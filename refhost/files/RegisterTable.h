#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/model/clsRiskFactor.h"

/// A register of risk factors as a table file: a line of headings, then a line per factor.
namespace refhost {

using FactorList = std::vector<std::shared_ptr<kestrel::clsRiskFactor>>;

/// Percentages stand with "." and "%", with every digit that the register holds.
std::string RegisterTableText(const FactorList& factors, char separator);

struct RegisterTableReading {
    FactorList factors;  ///< numbered from "1"; meaningless when there are complaints
    /// "line 3, column Dur Min: 'abc' is no percentage.": one for each cell that is wrong.
    std::vector<std::string> complaints;
};

/// Reads a table (Csv.h) with the columns in any order; an absent column or a blank cell takes its
/// default. Percentages stand with or without "%", with "." or, where commas do not part the
/// cells, ",". Raises kestrel::DataError for a file that is no table.
RegisterTableReading ReadRegisterTable(std::string_view bytes);

}  // namespace refhost
