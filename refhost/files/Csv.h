#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace refhost {

/// One record of a table file, and the line of the file on which it begins, from 1.
struct CsvRow {
    int line = 0;
    std::vector<std::string> cells;
};

struct CsvTable {
    char separator = ',';  ///< ',', ';' or a tab, as the first line has it
    std::vector<CsvRow> rows;
};

/// Reads UTF-8 with or without a byte order mark, quoted as in RFC 4180, lines ended by CR LF, LF
/// or CR. Records of nothing but blank cells are left out. Raises kestrel::DataError with the line
/// for text that is no UTF-8, a quote that never ends and text behind a closing quote.
CsvTable ReadCsv(std::string_view bytes);

/// One line of a table file, CR LF included. A text that a spreadsheet would run as a formula (it
/// begins with =, +, -, @, a tab or a line break) gets an apostrophe in front, which ReadCsv takes
/// away again.
std::string CsvLine(const std::vector<std::string>& cells, char separator = ',');

/// The separator that a file of this name has: a tab for *.tsv, a comma otherwise.
char SeparatorFor(std::string_view path);
/// Whether the name is that of a table file: *.csv or *.tsv, in either case.
bool IsTableFile(std::string_view path);

}  // namespace refhost
