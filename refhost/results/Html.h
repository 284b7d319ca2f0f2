#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Pieces of an HTML page. Text is escaped; control characters become U+FFFD.
namespace refhost {

std::string HtmlText(std::string_view text);

/// Text of the user's: escaped, and kept from turning the direction of what stands around it.
std::string HtmlName(std::string_view text);

struct HtmlColumn {
    std::string heading;
    bool number = false;  ///< aligned right, never broken
};

/// A table; cells are HTML already.
class HtmlTable {
 public:
    explicit HtmlTable(std::vector<HtmlColumn> columns) : columns_(std::move(columns)) {}
    void Add(std::vector<std::string> cells) { rows_.push_back(std::move(cells)); }
    std::string Text() const;

 private:
    std::vector<HtmlColumn> columns_;
    std::vector<std::vector<std::string>> rows_;
};

}  // namespace refhost
