#include "refhost/results/Html.h"

namespace refhost {

std::string HtmlText(std::string_view text) {
    std::string html;
    for (const char c : text) {
        switch (c) {
            case '&':
                html += "&amp;";
                break;
            case '<':
                html += "&lt;";
                break;
            case '>':
                html += "&gt;";
                break;
            case '"':
                html += "&quot;";
                break;
            default:
                if (c == '\t' || c == '\n' || c == '\r')
                    html += ' ';
                else if (static_cast<unsigned char>(c) < 0x20)
                    html += "\xEF\xBF\xBD";
                else
                    html += c;
        }
    }
    return html;
}

std::string HtmlName(std::string_view text) { return "<bdi>" + HtmlText(text) + "</bdi>"; }

std::string HtmlTable::Text() const {
    const auto cell = [&](const char* tag, std::size_t column, const std::string& html) {
        return std::string("<") + tag + (columns_[column].number ? " class=\"n\">" : ">") + html +
               "</" + tag + ">";
    };
    std::string html = "<div class=\"wide\"><table>\n<thead><tr>";
    for (std::size_t i = 0; i < columns_.size(); ++i)
        html += cell("th", i, HtmlText(columns_[i].heading));
    html += "</tr></thead>\n<tbody>\n";
    for (const auto& row : rows_) {
        html += "<tr>";
        for (std::size_t i = 0; i < row.size(); ++i) html += cell("td", i, row[i]);
        html += "</tr>\n";
    }
    return html + "</tbody></table></div>\n";
}

}  // namespace refhost
