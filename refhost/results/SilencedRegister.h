#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/Desktop.h"

namespace refhost {

/// IDs of risk factors, ascending.
using FactorSet = std::vector<std::int32_t>;

/// A plan's register in variants in which some factors never occur, while they go on drawing
/// their numbers and sharing them with the factors correlated to them.
class SilencedRegister {
 public:
    /// `text` is the plan's text "RiskFactors"; empty for none. Raises kestrel::DataError when it
    /// is not well formed.
    SilencedRegister(kestrel::Desktop& desktop, const std::string& text);

    /// The register in which the factors of the set never occur. All that is not their
    /// probability stands as in the original, digit for digit.
    std::string Without(const FactorSet& silent) const;

 private:
    std::string original_;
    kestrel::XmlDocument document_;
};

}  // namespace refhost
