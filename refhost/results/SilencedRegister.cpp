#include "refhost/results/SilencedRegister.h"

namespace refhost {
namespace {

using kestrel::XmlNode;

/// A random number times 100 is never this small.
constexpr const char* kNeverOccurs = "-1";

void Silence(XmlNode& factor) {
    for (XmlNode& child : factor.children)
        if (child.name == "Probability") {
            child.children = {XmlNode::Text(kNeverOccurs)};
            return;
        }
}

/// Visits the factors in document order, as the add-in numbers them.
void SilenceBelow(XmlNode& node, const FactorSet& silent, std::int32_t& id) {
    if (node.name == "RiskFactor" && node.uri.empty()) {
        ++id;
        for (const std::int32_t wanted : silent)
            if (wanted == id) Silence(node);
    }
    for (XmlNode& child : node.children) SilenceBelow(child, silent, id);
}

}  // namespace

SilencedRegister::SilencedRegister(kestrel::Desktop& desktop, const std::string& text)
    : original_(text) {
    if (!text.empty()) document_ = desktop.ParseXml(text);
}

std::string SilencedRegister::Without(const FactorSet& silent) const {
    if (silent.empty() || document_.IsEmpty()) return original_;
    XmlNode root = document_.root;
    std::int32_t id = 0;
    SilenceBelow(root, silent, id);
    return SerialiseXml(root);
}

}  // namespace refhost
