#include "refhost/files/Csv.h"

#include <algorithm>

#include "base/Errors.h"
#include "base/Text.h"

namespace refhost {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// Whether a spreadsheet would run the text, apostrophes in front of it left aside.
bool IsFormula(std::string_view text) {
    const std::size_t first = text.find_first_not_of('\'');
    return first != text.npos &&
           std::string_view("=+-@\t\r\n").find(text[first]) != std::string_view::npos;
}

std::string Unguarded(std::string cell) {
    if (cell.size() > 1 && cell[0] == '\'' && IsFormula(cell)) cell.erase(0, 1);
    return cell;
}

[[noreturn]] void Refuse(int line, const std::string& why) {
    throw kestrel::DataError("line " + std::to_string(line) + ": " + why);
}

/// Of the separators the one that the first line has most often outside quotes; the comma when
/// none stands there.
char FindSeparator(std::string_view text) {
    std::size_t counts[3] = {};
    constexpr std::string_view kSeparators = ",;\t";
    bool quoted = false;
    for (const char c : text) {
        if (c == '"') quoted = !quoted;
        if (!quoted && (c == '\n' || c == '\r')) break;
        const std::size_t which = kSeparators.find(c);
        if (!quoted && which != kSeparators.npos) ++counts[which];
    }
    return kSeparators[static_cast<std::size_t>(std::max_element(counts, counts + 3) - counts)];
}

/// Walks through the text cell by cell.
class Reader {
 public:
    explicit Reader(std::string_view text) : text_(text) { table_.separator = FindSeparator(text); }

    CsvTable Read() {
        while (at_ < text_.size()) {
            CsvRow row;
            row.line = line_;
            do {
                row.cells.push_back(Unguarded(Cell()));
            } while (Take(table_.separator));
            EndLine();
            const auto filled = [](const std::string& cell) {
                return !kestrel::Trimmed(cell).empty();
            };
            if (std::any_of(row.cells.begin(), row.cells.end(), filled))
                table_.rows.push_back(std::move(row));
        }
        return std::move(table_);
    }

 private:
    bool Take(char c) {
        if (at_ == text_.size() || text_[at_] != c) return false;
        ++at_;
        return true;
    }
    bool AtLineEnd() const {
        return at_ == text_.size() || text_[at_] == '\n' || text_[at_] == '\r';
    }
    void EndLine() {
        if (!AtLineEnd()) Refuse(line_, "text stands behind a closing quotation mark.");
        if (at_ == text_.size()) return;
        if (text_[at_] == '\r' && at_ + 1 < text_.size() && text_[at_ + 1] == '\n') ++at_;
        ++at_;
        ++line_;
    }

    void Character(std::string& cell) {
        const std::size_t length = kestrel::FirstCharacter(text_.substr(at_)).length;
        if (length == 0) Refuse(line_, "the file is no UTF-8 text; save it as UTF-8.");
        cell.append(text_, at_, length);
        at_ += length;
    }

    std::string Cell() {
        if (Take('"')) return Quoted();
        std::string cell;
        while (!AtLineEnd() && text_[at_] != table_.separator) Character(cell);
        return cell;
    }

    std::string Quoted() {
        const int begun = line_;
        std::string cell;
        while (at_ < text_.size()) {
            if (Take('"')) {
                if (!Take('"')) return cell;
                cell += '"';
                continue;
            }
            if (text_[at_] == '\n' || (text_[at_] == '\r' && text_.substr(at_, 2) != "\r\n"))
                ++line_;
            Character(cell);
        }
        Refuse(begun, "a quotation mark opens a cell and none closes it.");
    }

    std::string_view text_;
    std::size_t at_ = 0;
    int line_ = 1;
    CsvTable table_;
};

}  // namespace

CsvTable ReadCsv(std::string_view bytes) {
    if (bytes.starts_with(kByteOrderMark)) bytes.remove_prefix(kByteOrderMark.size());
    return Reader(bytes).Read();
}

std::string CsvLine(const std::vector<std::string>& cells, char separator) {
    std::string line;
    for (const std::string& cell : cells) {
        if (&cell != cells.data()) line += separator;
        const std::string text = IsFormula(cell) ? "'" + cell : cell;
        const bool quotes = text.find_first_of(",;\t\"\r\n") != text.npos || text != cell ||
                            text.starts_with(' ') || text.ends_with(' ');
        if (!quotes) {
            line += text;
            continue;
        }
        line += '"';
        for (const char c : text) line += c == '"' ? std::string("\"\"") : std::string(1, c);
        line += '"';
    }
    return line + "\r\n";
}

char SeparatorFor(std::string_view path) {
    return kestrel::Lowered(path).ends_with(".tsv") ? '\t' : ',';
}

bool IsTableFile(std::string_view path) {
    const std::string name = kestrel::Lowered(path);
    return name.ends_with(".csv") || name.ends_with(".tsv");
}

}  // namespace refhost
