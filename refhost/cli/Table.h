#pragma once

#include <string>
#include <vector>

namespace refhost {

/// A text table whose columns are as wide as their widest cell. Widths count characters, not
/// bytes, so that accented names line up.
class Table {
 public:
    enum class Align { Left, Right };
    struct Column {
        std::string header;
        Align align = Align::Left;
    };

    explicit Table(std::vector<Column> columns) : columns_(std::move(columns)) {}
    /// Cells may come from files: control characters are written as escapes.
    void Add(std::vector<std::string> cells);
    std::string Text() const;

 private:
    std::vector<Column> columns_;
    std::vector<std::vector<std::string>> rows_;
};

/// Columns that the text takes on a terminal: one per character, two per wide East Asian one,
/// none for combining marks.
std::size_t DisplayWidth(const std::string& text);

}  // namespace refhost
