#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/XmlDom.h"

namespace refhost {

/// One element of a plan file, read without mercy: what the format does not know, lacks or has
/// twice is an error that names file and line. A view: node and path must outlive it.
class StrictElement {
 public:
    using Names = std::initializer_list<std::string_view>;

    StrictElement(const kestrel::XmlNode& node, const std::string& path)
        : node_(&node), path_(&path) {}

    /// Raises kestrel::DataError for an attribute or child element that is not named, and for
    /// text other than white space between the children.
    void Allow(Names attributes, Names children) const;
    /// The same for an element that holds nothing but text, which it answers.
    std::string OnlyText(Names attributes) const;

    std::string_view Name() const { return node_->name; }
    int Line() const { return node_->line; }
    std::vector<StrictElement> Children() const;
    std::vector<StrictElement> Children(std::string_view name) const;
    /// The child of that name, if any. Raises kestrel::DataError when there are two.
    std::optional<StrictElement> OnlyChild(std::string_view name) const;

    const std::string& Required(std::string_view attribute) const;
    bool Has(std::string_view attribute) const { return node_->Attribute(attribute) != nullptr; }

    /// The attribute as `read`, which answers nothing for unfit text, understands it.
    /// `wanted` completes "write ..." in the message.
    template <typename Read>
    auto Value(std::string_view attribute, const Read& read, std::string_view wanted) const {
        const std::string& text = Required(attribute);
        const auto value = read(text);
        if (!value) FailValue(attribute, text, wanted);
        return *value;
    }

    /// Raises kestrel::DataError: "<path>:<line>: <sentence>".
    [[noreturn]] void Fail(std::string_view sentence) const;

 private:
    void AllowAttributes(Names attributes) const;
    [[noreturn]] void FailValue(std::string_view attribute, std::string_view text,
                                std::string_view wanted) const;

    const kestrel::XmlNode* node_;
    const std::string* path_;
};

/// "'text'", for messages.
std::string Quoted(std::string_view text);

/// Raises kestrel::DataError: "<path>:<line>: <sentence>", without a line that is not known.
[[noreturn]] void FailAt(const std::string& path, int line, std::string_view sentence);

}  // namespace refhost
