#include "refhost/files/RegisterTable.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>

#include "base/Errors.h"
#include "base/NumberText.h"
#include "base/Text.h"
#include "core/model/RiskElements.h"
#include "refhost/files/Csv.h"

namespace refhost {
namespace {

using kestrel::clsRiskFactor;

using kestrel::ElementOfColumn;
using kestrel::RiskElement;

const RiskElement& kDescription = ElementOfColumn(kestrel::kDescriptionColumn);
const RiskElement& kCorrelatedTo = ElementOfColumn(kestrel::kCorrelatedToColumn);

/// A heading without what spreadsheets and hands change in it: case, blanks, line breaks.
std::string Bare(std::string_view heading) {
    std::string bare;
    for (const char c : heading)
        if (!std::isspace(static_cast<unsigned char>(c)))
            bare += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return bare;
}

/// Nothing where the text is no number, or could be read as two.
std::optional<double> ReadPercentage(std::string text, char separator) {
    if (text.ends_with('%')) text.pop_back();
    const auto commas = std::count(text.begin(), text.end(), ',');
    if (commas > 0) {
        if (separator == ',' || commas > 1 || text.find('.') != text.npos) return std::nullopt;
        text[text.find(',')] = '.';
    }
    try {
        return kestrel::ParseNumber(text);
    } catch (const kestrel::DataError&) {
        return std::nullopt;
    }
}

/// Reads the records behind the headings.
class Reader {
 public:
    explicit Reader(CsvTable table) : table_(std::move(table)) {}

    RegisterTableReading Read() {
        if (table_.rows.empty())
            throw kestrel::DataError("the file is empty; it needs a line of headings.");
        FindColumns();
        for (std::size_t i = 1; i < table_.rows.size(); ++i) ReadRow(table_.rows[i]);
        for (std::size_t i = 0; i < reading_.factors.size(); ++i) CheckLeader(i);
        return std::move(reading_);
    }

 private:
    void FindColumns() {
        const CsvRow& headings = table_.rows.front();
        bool any = false;
        for (const std::string& heading : headings.cells) {
            columns_.push_back(KnownHeading(heading));
            any |= columns_.back() != nullptr;
            if (!columns_.back() && !kestrel::Trimmed(heading).empty())
                reading_.complaints.push_back("line " + std::to_string(headings.line) +
                                              ": there is no column '" + heading + "'.");
            if (columns_.back() &&
                std::count(columns_.begin(), columns_.end(), columns_.back()) > 1)
                reading_.complaints.push_back("line " + std::to_string(headings.line) +
                                              ": the column '" + heading + "' stands there twice.");
        }
        if (!any)
            throw kestrel::DataError(
                "line " + std::to_string(headings.line) +
                ": none of the headings is known; the first line names the columns, such as "
                "Description, Dur Min, Dur Likely, Dur Max, Likelihood.");
    }

    static const RiskElement* KnownHeading(const std::string& heading) {
        const std::string bare = Bare(heading);
        for (const RiskElement& element : kestrel::kRiskElements)
            if (element.heading && bare == Bare(element.heading)) return &element;
        return nullptr;
    }

    void Complain(const CsvRow& row, const char* column, const std::string& what) {
        reading_.complaints.push_back("line " + std::to_string(row.line) + ", column " + column +
                                      ": " + what);
    }

    void ReadRow(const CsvRow& row) {
        auto factor = std::make_shared<clsRiskFactor>();
        factor->strDescription.clear();
        factor->strID = std::to_string(reading_.factors.size() + 1);
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
            const std::string text(kestrel::Trimmed(row.cells[i]));
            if (text.empty()) continue;
            if (i >= columns_.size())
                Complain(row, std::to_string(i + 1).c_str(),
                         "'" + text + "' stands behind the last heading.");
            else if (columns_[i])
                ReadCell(row, *columns_[i], columns_[i] == &kDescription ? row.cells[i] : text,
                         *factor);
        }
        if (factor->strDescription.empty())
            factor->strDescription = "Risk Factor" + std::to_string(++unnamed_);
        CheckRow(row, *factor);
        reading_.factors.push_back(std::move(factor));
        lines_.push_back(&row);
    }

    void ReadCell(const CsvRow& row, const RiskElement& column, const std::string& text,
                  clsRiskFactor& factor) {
        if (&column == &kDescription) {
            factor.strDescription = text;
            return;
        }
        const auto number = ReadPercentage(text, table_.separator);
        if (&column == &kCorrelatedTo) {
            const auto id =
                number && !text.ends_with('%') ? kestrel::ToInt32(*number) : std::nullopt;
            if (!id || *id != *number)
                return Complain(row, column.heading, "'" + text + "' is no number of a line.");
            factor.CorrelatedTo = *id;
            return;
        }
        if (!number) return Complain(row, column.heading, "'" + text + "' is no percentage.");
        factor.*column.figure = *number;
    }

    void CheckRow(const CsvRow& row, const clsRiskFactor& factor) {
        const auto text = [](double value) { return "'" + kestrel::GeneralText(value) + "%' "; };
        if (!(factor.dblProb >= 0 && factor.dblProb <= 100))
            Complain(row, "Likelihood", text(factor.dblProb) + "is not between 0% and 100%.");
        for (const int column : {kestrel::kDurLikelyColumn, kestrel::kDurMaxColumn,
                                 kestrel::kCostLikelyColumn, kestrel::kCostMaxColumn}) {
            const RiskElement &before = ElementOfColumn(column - 1), &at = ElementOfColumn(column);
            if (!(factor.*before.figure <= factor.*at.figure))
                Complain(row, at.heading,
                         text(factor.*at.figure) + "is less than " + before.heading + ".");
        }
    }

    void CheckLeader(std::size_t position) {
        const std::int32_t leader = reading_.factors[position]->CorrelatedTo;
        const auto held = static_cast<std::int32_t>(reading_.factors.size());
        if (leader < 0 || leader > held || leader == static_cast<std::int32_t>(position) + 1)
            Complain(*lines_[position], kCorrelatedTo.heading,
                     "'" + std::to_string(leader) + "' is no other factor; the table has " +
                         std::to_string(held) + ".");
    }

    CsvTable table_;
    std::vector<const RiskElement*> columns_;  ///< nullptr for none known
    std::vector<const CsvRow*> lines_;         ///< per factor
    int unnamed_ = 0;
    RegisterTableReading reading_;
};

}  // namespace

std::string RegisterTableText(const FactorList& factors, char separator) {
    std::vector<std::string> cells{kDescription.heading};
    for (const RiskElement& column : kestrel::kRiskPercentages) cells.push_back(column.heading);
    cells.push_back(kCorrelatedTo.heading);
    std::string text = CsvLine(cells, separator);
    for (const auto& factor : factors) {
        cells = {factor->strDescription};
        for (const RiskElement& column : kestrel::kRiskPercentages)
            cells.push_back(kestrel::GeneralText((*factor).*column.figure) + "%");
        cells.push_back(std::to_string(factor->CorrelatedTo));
        text += CsvLine(cells, separator);
    }
    return text;
}

RegisterTableReading ReadRegisterTable(std::string_view bytes) {
    return Reader(ReadCsv(bytes)).Read();
}

}  // namespace refhost
