#include "platform/XmlTags.h"

#include <algorithm>
#include <string>

#include "platform/XmlErrors.h"
#include "platform/XmlMarkupText.h"

namespace kestrel {
namespace {

/// The position behind the next `end` from `at`, or the end of the text.
std::size_t Behind(std::string_view text, std::string_view end, std::size_t at) {
    const std::size_t found = text.find(end, at);
    return found == text.npos ? text.size() : found + end.size();
}

/// Counts the quoted values of the tag at `at` and moves to its end; a "<" ends it too.
std::size_t CountValues(std::string_view text, std::size_t& at) {
    std::size_t values = 0;
    char quote = 0;
    for (++at; at < text.size(); ++at) {
        const char c = text[at];
        if (c == '<' || (c == '>' && !quote)) break;
        if (quote) {
            if (c == quote) quote = 0;
        } else if (c == '"' || c == '\'') {
            quote = c;
            ++values;
        }
    }
    return values;
}

}  // namespace

void RefuseCrowdedTags(std::string_view bytes) {
    const XmlMarkupText markup(bytes);
    const std::string_view text = markup.Text();
    for (std::size_t at = text.find('<'); at < text.size(); at = text.find('<', at)) {
        const std::string_view rest = text.substr(at, 9);
        if (rest.starts_with("<!--")) {
            at = Behind(text, "-->", at);
        } else if (rest == "<![CDATA[") {
            at = Behind(text, "]]>", at);
        } else if (rest.starts_with("<?")) {
            at = Behind(text, "?>", at);
        } else {
            const std::size_t start = at;
            if (CountValues(text, at) > kXmlMaximumAttributes)
                throw XmlErrorAtLine(
                    1 + static_cast<int>(std::count(
                            text.begin(), text.begin() + static_cast<std::ptrdiff_t>(start), '\n')),
                    "a tag has more than " + std::to_string(kXmlMaximumAttributes) +
                        " attributes; remove those that are not needed");
        }
    }
}

}  // namespace kestrel
