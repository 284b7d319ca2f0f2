#include "platform/posix/XmlParser.h"

#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>

#include <algorithm>
#include <exception>
#include <memory>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "base/Text.h"
#include "platform/XmlErrors.h"

namespace kestrel {
namespace {

std::string ToString(const xmlChar* text) {
    return text ? reinterpret_cast<const char*>(text) : std::string();
}

std::string ToString(const xmlChar* begin, const xmlChar* end) {
    return {reinterpret_cast<const char*>(begin), reinterpret_cast<const char*>(end)};
}

std::string QualifiedName(const xmlChar* prefix, const xmlChar* localName) {
    return prefix ? ToString(prefix) + ":" + ToString(localName) : ToString(localName);
}

/// Collects the parser's events into a tree. Nothing may be thrown through the parser's C code:
/// the first failure is kept and raised by Finish.
class TreeBuilder {
 public:
    explicit TreeBuilder(xmlParserCtxt& parser) : parser_(parser) {}

    template <typename Event>
    void Handle(Event event) noexcept {
        if (failure_) return;
        try {
            event();
        } catch (...) {
            failure_ = std::current_exception();
            xmlStopParser(&parser_);
        }
    }

    /// Keeps a failure of the parser itself. It ends by itself, and must not be stopped: it still
    /// uses the buffers that stopping frees.
    void NoteError(const xmlError& error) noexcept {
        if (failure_) return;
        try {
            if (error.code == XML_ERR_NO_MEMORY) throw std::bad_alloc();
            const std::string_view message =
                error.message ? error.message : "the document is malformed";
            throw XmlErrorAtLine(error.line > 0 ? error.line : CurrentLine(),
                                 std::string(TrimmedEnd(message)));
        } catch (...) {
            failure_ = std::current_exception();
        }
    }

    void StartElement(XmlNode element, std::size_t declarations) {
        element.line = StartLine();
        declared_.push_back(declared_.empty() ? declarations : declared_.back() + declarations);
        if (declared_.back() > kXmlMaximumPrefixes) throw XmlTooManyPrefixesAtLine(element.line);
        if (open_.size() == static_cast<std::size_t>(kXmlMaximumDepth))
            throw XmlTooDeepAtLine(element.line);
        open_.push_back(std::move(element));
    }

    void EndElement() {
        XmlNode element = std::move(open_.back());
        open_.pop_back();
        declared_.pop_back();
        if (open_.empty())
            document_.root = std::move(element);
        else
            open_.back().children.push_back(std::move(element));
    }

    void AddText(std::string_view text) {
        if (open_.empty()) return;
        std::vector<XmlNode>& siblings = open_.back().children;
        if (siblings.empty() || siblings.back().IsElement()) siblings.push_back(XmlNode::Text({}));
        siblings.back().text += text;
    }

    int CurrentLine() const { return parser_.input ? parser_.input->line : 0; }

    XmlDocument Finish() {
        if (failure_) std::rethrow_exception(failure_);
        // Some allocations of the parser fail without an error event.
        if (parser_.errNo == XML_ERR_NO_MEMORY) throw std::bad_alloc();
        if (document_.IsEmpty()) throw XmlEmpty();
        return std::move(document_);
    }

 private:
    /// The parser reports an element at the end of its start tag; the tag began at the last "<",
    /// which cannot stand within one.
    int StartLine() const {
        const xmlParserInput* input = parser_.input;
        if (!input) return 0;
        const auto last = std::find(std::make_reverse_iterator(input->cur),
                                    std::make_reverse_iterator(input->base), '<');
        const auto tag = last.base();
        if (tag == input->base) return input->line;
        return input->line - static_cast<int>(std::count(tag, input->cur, '\n'));
    }

    xmlParserCtxt& parser_;
    XmlDocument document_;
    std::vector<XmlNode> open_;
    std::vector<std::size_t> declared_;  ///< namespaces in scope, for each open element
    std::exception_ptr failure_;
};

TreeBuilder& BuilderOf(void* data) { return *static_cast<TreeBuilder*>(data); }

void OnStartElement(void* data, const xmlChar* localName, const xmlChar* prefix, const xmlChar* uri,
                    int namespaceCount, const xmlChar** namespaces, int attributeCount,
                    int /*defaulted*/, const xmlChar** attributes) {
    TreeBuilder& builder = BuilderOf(data);
    builder.Handle([&] {
        XmlNode element = XmlNode::Element(QualifiedName(prefix, localName));
        element.uri = ToString(uri);
        element.attributes.reserve(static_cast<std::size_t>(namespaceCount + attributeCount));
        for (int i = 0; i < namespaceCount; ++i) {
            const xmlChar* const* declaration = namespaces + 2 * i;
            element.attributes.push_back(
                {declaration[0] ? "xmlns:" + ToString(declaration[0]) : "xmlns",
                 ToString(declaration[1])});
        }
        for (int i = 0; i < attributeCount; ++i) {
            // Local name, prefix, namespace, first character of the value, end of the value.
            const xmlChar* const* attribute = attributes + 5 * i;
            element.attributes.push_back(
                {QualifiedName(attribute[1], attribute[0]), ToString(attribute[3], attribute[4])});
        }
        builder.StartElement(std::move(element), static_cast<std::size_t>(namespaceCount));
    });
}

void OnEndElement(void* data, const xmlChar*, const xmlChar*, const xmlChar*) {
    TreeBuilder& builder = BuilderOf(data);
    builder.Handle([&] { builder.EndElement(); });
}

void OnText(void* data, const xmlChar* text, int length) {
    TreeBuilder& builder = BuilderOf(data);
    builder.Handle([&] { builder.AddText(ToString(text, text + length)); });
}

/// RefuseUnsafeXml sees only encodings that are simple to read; this catches all others.
void OnDocumentType(void* data, const xmlChar*, const xmlChar*, const xmlChar*) {
    TreeBuilder& builder = BuilderOf(data);
    builder.Handle([&] { throw XmlTypeDeclaredAtLine(builder.CurrentLine()); });
}

/// Taking errors here also keeps the parser from printing them.
void OnError(void* data, xmlErrorPtr error) {
    if (error->level >= XML_ERR_ERROR) BuilderOf(data).NoteError(*error);
}

/// Failures to decode the bytes, and to set up the parser, bypass the parser's own handler: they
/// go to the thread's, which prints them unless it is replaced.
class ThreadErrors {
 public:
    ThreadErrors() { xmlSetStructuredErrorFunc(this, Note); }
    ~ThreadErrors() { xmlSetStructuredErrorFunc(outerData_, outer_); }
    ThreadErrors(const ThreadErrors&) = delete;
    ThreadErrors& operator=(const ThreadErrors&) = delete;

    /// From now on they belong to the document. Raises std::bad_alloc when one came before.
    void GoTo(TreeBuilder& builder) {
        if (failed_) throw std::bad_alloc();
        builder_ = &builder;
    }

 private:
    static void Note(void* data, xmlErrorPtr error) {
        ThreadErrors& errors = *static_cast<ThreadErrors*>(data);
        if (errors.builder_)
            OnError(errors.builder_, error);
        else
            errors.failed_ = true;
    }

    const xmlStructuredErrorFunc outer_ = xmlStructuredError;
    void* const outerData_ = xmlStructuredErrorContext;
    TreeBuilder* builder_ = nullptr;
    bool failed_ = false;
};

struct FreeParser {
    void operator()(xmlParserCtxt* parser) const { xmlFreeParserCtxt(parser); }
};

}  // namespace

XmlDocument ParseXmlBytes(std::string_view bytes) {
    RefuseUnsafeXml(bytes);
    if (bytes.empty()) throw XmlEmpty();
    ThreadErrors threadErrors;
    const std::unique_ptr<xmlParserCtxt, FreeParser> parser(
        xmlCreateMemoryParserCtxt(bytes.data(), static_cast<int>(bytes.size())));
    if (!parser) throw std::bad_alloc();

    // Without NOENT the parser hands over "&" in attributes as "&#38;"; only the five built-in
    // entities can occur, as there is no DTD. HUGE lifts the limit on the length of a text; depth
    // and size are bounded here.
    xmlCtxtUseOptions(parser.get(), XML_PARSE_NONET | XML_PARSE_NOENT | XML_PARSE_HUGE);
    TreeBuilder builder(*parser);
    xmlSAXHandler handler{};
    handler.initialized = XML_SAX2_MAGIC;
    handler.startElementNs = OnStartElement;
    handler.endElementNs = OnEndElement;
    handler.characters = OnText;
    handler.ignorableWhitespace = OnText;
    handler.cdataBlock = OnText;
    handler.internalSubset = OnDocumentType;
    handler.serror = OnError;
    *parser->sax = handler;
    parser->userData = &builder;
    threadErrors.GoTo(builder);
    xmlParseDocument(parser.get());
    return builder.Finish();
}

}  // namespace kestrel
