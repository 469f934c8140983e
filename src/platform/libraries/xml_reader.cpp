#include "platform/libraries/xml_reader.h"

#include <libxml/SAX2.h>
#include <libxml/hash.h>
#include <libxml/parserInternals.h>
#include <libxml/xmlerror.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <limits>
#include <new>

#include "platform/unicode.h"
#include "platform/xml_attribute_count.h"

namespace zr {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t kMostBytes = std::numeric_limits<std::int32_t>::max();
constexpr std::size_t kShownOnEachSide = 100;  // code points of a long source line
constexpr std::size_t kLongestReason = 400;

xmlParserCtxtPtr new_context() {
    static const bool initialised = (xmlInitParser(), true);
    static_cast<void>(initialised);
    xmlParserCtxtPtr context = xmlNewParserCtxt();
    if (context == nullptr) throw std::bad_alloc();
    return context;
}

std::string refusal_reason(XmlParseError::Refusal refusal, const XmlLimits& limits) {
    switch (refusal) {
        case XmlParseError::kTooLarge:
            return "The document is larger than " + std::to_string(limits.bytes) + " bytes.";
        case XmlParseError::kTooDeep:
            return "Elements are nested more than " + std::to_string(limits.depth) + " deep.";
        case XmlParseError::kTooManyAttributes:
            return "An element has more than " + std::to_string(limits.attributes) + " attributes.";
        case XmlParseError::kDeclaresEntities:
            return "The document declares an entity.";
        case XmlParseError::kTooManyNamespaces:
            return "More than " + std::to_string(limits.attributes) +
                   " namespaces are in scope at once.";
        case XmlParseError::kHasInternalSubset:
            return "The document type declaration has an internal subset.";
        case XmlParseError::kTooManyNames:
            return "The document has more than " + std::to_string(limits.names) +
                   " different names.";
        case XmlParseError::kTooManyDistinctNamespaces:
            return "The document has more than " + std::to_string(limits.names) +
                   " different namespaces.";
        case XmlParseError::kDeclaresEncoding:
            return "The document declares an encoding in which markup can be hidden.";
    }
    return {};
}

// What the XML declaration says of the encoding; "" without one.
std::string_view declared_encoding(std::string_view text) {
    if (!text.starts_with("<?xml")) return {};
    text = text.substr(0, text.find("?>"));
    const std::size_t name = text.find("encoding");
    const std::size_t open =
        name == std::string_view::npos ? name : text.find_first_of("\"'", name);
    if (open == std::string_view::npos) return {};
    return text.substr(open + 1, text.find(text[open], open + 1) - open - 1);
}

bool is_continuation(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80; }

std::size_t count_code_points(std::string_view text) {
    return text.size() -
           static_cast<std::size_t>(std::count_if(text.begin(), text.end(), is_continuation));
}

// The position `count` code points before or after one.
std::size_t back(std::string_view text, std::size_t position, std::size_t count) {
    while (count > 0 && position > 0) {
        --position;
        if (!is_continuation(text[position])) --count;
    }
    return position;
}

std::size_t forward(std::string_view text, std::size_t position, std::size_t count) {
    while (position < text.size()) {
        if (!is_continuation(text[position]) && count-- == 0) break;
        ++position;
    }
    return position;
}

void locate(XmlParseError& error, std::string_view text, std::size_t offset) {
    constexpr std::string_view kLineEnds = "\r\n";
    offset = std::min(offset, text.size());
    const std::size_t before =
        offset == 0 ? std::string_view::npos : text.find_last_of(kLineEnds, offset - 1);
    const std::size_t begin = before == std::string_view::npos ? 0 : before + 1;
    const std::string_view line = text.substr(begin, text.find_first_of(kLineEnds, offset) - begin);
    const std::size_t at = offset - begin;
    error.line_position = static_cast<int>(count_code_points(line.substr(0, at))) + 1;
    const std::size_t from = back(line, at, kShownOnEachSide);
    const std::size_t to = forward(line, at, kShownOnEachSide);
    error.source_text = text::to_valid_utf8(line.substr(from, to - from));
}

}  // namespace

XmlReader::XmlReader(std::string_view text, Source source, const XmlLimits& limits)
    : text_(text), source_(source), limits_(limits), context_(new_context()) {
    context_->_private = this;
    // "Entities replaced" matters for &amp; in attributes, which otherwise arrives as &#38;.
    int options = XML_PARSE_NONET | XML_PARSE_NOENT | XML_PARSE_NOCDATA;
    if (source == Source::kText) {
        if (text_.starts_with(kByteOrderMark)) text_.remove_prefix(kByteOrderMark.size());
        options |= XML_PARSE_HUGE | XML_PARSE_IGNORE_ENC | XML_PARSE_COMPACT;
        // A known encoding keeps the parser from guessing one by the first bytes.
        context_->encoding = xmlStrdup(reinterpret_cast<const xmlChar*>("UTF-8"));
    }
    xmlCtxtUseOptions(context_, options);
    if (source == Source::kText) context_->loadsubset = XML_SKIP_IDS;  // their table is quadratic
}

XmlReader::~XmlReader() {
    // Also a stand-in that the parser makes for itself when an entity is declared.
    if (context_->myDoc != nullptr) xmlFreeDoc(context_->myDoc);
    xmlFreeParserCtxt(context_);
}

void XmlReader::set_handlers(xmlSAXHandler handlers) {
    handlers.initialized = XML_SAX2_MAGIC;
    handlers.serror = report;
    handlers.warning = nullptr;
    handlers.error = nullptr;
    handlers.fatalError = nullptr;
    handlers.internalSubset = begin_type_declaration;
    handlers.entityDecl = declare_entity;
    handlers.unparsedEntityDecl = declare_unparsed_entity;
    handlers.externalSubset = end_type_declaration;
    handlers.resolveEntity = nullptr;
    *context_->sax = handlers;
}

void XmlReader::build_document(const std::string& address, xmlDictPtr dictionary) {
    address_ = address;
    if (dictionary != nullptr) {
        xmlDictFree(context_->dict);
        context_->dict = dictionary;
        xmlDictReference(dictionary);
    }
    xmlSAXHandler handlers{};
    xmlSAXVersion(&handlers, 2);
    handlers.startElementNs = [](void* context, const xmlChar* name, const xmlChar* prefix,
                                 const xmlChar* uri, int namespace_count,
                                 const xmlChar** namespaces, int attribute_count,
                                 int defaulted_count, const xmlChar** attributes) {
        of(context).drop_blank_text();
        if (!of(context).admit_element(namespace_count, namespaces)) return;
        xmlSAX2StartElementNs(context, name, prefix, uri, namespace_count, namespaces,
                              attribute_count, defaulted_count, attributes);
    };
    handlers.endElementNs = [](void* context, const xmlChar* name, const xmlChar* prefix,
                               const xmlChar* uri) {
        of(context).drop_blank_text();
        xmlSAX2EndElementNs(context, name, prefix, uri);
    };
    handlers.comment = [](void* context, const xmlChar* content) {
        of(context).drop_blank_text();
        xmlSAX2Comment(context, content);
    };
    handlers.processingInstruction = [](void* context, const xmlChar* name,
                                        const xmlChar* content) {
        of(context).drop_blank_text();
        if (of(context).admit_name()) xmlSAX2ProcessingInstruction(context, name, content);
    };
    set_handlers(handlers);
}

// White space between elements does not exist for a sheet either, as in every document; it would be
// a third of the tree. A style sheet itself says which of its white space counts.
void XmlReader::drop_blank_text() {
    const xmlNodePtr text = context_->node == nullptr ? nullptr : context_->node->last;
    if (source_ == Source::kFile || text == nullptr || xmlIsBlankNode(text) != 1 ||
        xmlNodeGetSpacePreserve(text) == 1) {
        return;
    }
    xmlUnlinkNode(text);
    xmlFreeNode(text);
}

std::optional<XmlParseError> XmlReader::parse() {
    if (refuse_unread()) return error_;
    xmlParserInputBufferPtr buffer =
        xmlParserInputBufferCreateIO(read, nullptr, this, XML_CHAR_ENCODING_NONE);
    if (buffer == nullptr) throw std::bad_alloc();
    xmlParserInputPtr input = xmlNewIOInputStream(context_, buffer, XML_CHAR_ENCODING_NONE);
    if (input == nullptr) {
        xmlFreeParserInputBuffer(buffer);
        throw std::bad_alloc();
    }
    if (!address_.empty()) {
        const auto* const address = reinterpret_cast<const xmlChar*>(address_.c_str());
        input->filename = reinterpret_cast<char*>(xmlStrdup(address));
    }
    first_names_ = static_cast<std::size_t>(xmlDictSize(context_->dict));
    inputPush(context_, input);
    errno = 0;
    xmlParseDocument(context_);
    if (thrown_) std::rethrow_exception(thrown_);
    // Not every failure to allocate is reported.
    if (errno == ENOMEM || context_->errNo == XML_ERR_NO_MEMORY) throw std::bad_alloc();
    if (!error_ && context_->wellFormed == 0) fail(XML_ERR_INTERNAL_ERROR, "Not well-formed.");
    return error_;
}

// What is refused before the parser sees it.
bool XmlReader::refuse_unread() {
    if (text_.size() > std::min(limits_.bytes, kMostBytes)) {
        refuse(XmlParseError::kTooLarge);
    } else if (source_ == Source::kText && text_.find('\0') != std::string_view::npos) {
        fail(XML_ERR_INVALID_CHAR, "Char 0x0 out of allowed range");
        locate(*error_, text_, text_.find('\0'));
    } else if (source_ == Source::kText && text::hides_markup(declared_encoding(text_))) {
        refuse(XmlParseError::kDeclaresEncoding);
    } else if (has_too_many_attributes(text_, limits_.attributes)) {
        refuse(XmlParseError::kTooManyAttributes);
    }
    return error_.has_value();
}

// The text is handed over in the parser's own small portions. After a fault there is no more of
// it: so the parser ends soon, without being torn down from inside one of its own calls.
int XmlReader::read(void* reader, char* buffer, int size) {
    XmlReader& self = *static_cast<XmlReader*>(reader);
    if (self.stopped_) return 0;
    const std::size_t left = self.text_.size() - self.given_;
    const std::size_t count = std::min(left, static_cast<std::size_t>(size));
    std::memcpy(buffer, self.text_.data() + self.given_, count);
    self.given_ += count;
    return static_cast<int>(count);
}

void XmlReader::report(void* context, xmlErrorPtr error) {
    XmlReader& reader = of(context);
    const bool about_types = error->domain == XML_FROM_DTD || error->domain == XML_FROM_VALID;
    // A namespace may have any name; the parser would have it look like an address.
    const bool about_spelling = error->code == XML_WAR_NS_URI;
    if (error->level < XML_ERR_ERROR || about_types || about_spelling || reader.error_) return;
    reader.run([&] {
        std::string_view reason = error->message == nullptr ? "" : error->message;
        reader.fail(error->code, reason.substr(0, reason.find('\n')));
        const xmlParserInputPtr input = reader.context_->input;
        reader.error_line_ = error->line;
        if (reader.source_ != Source::kText || input == nullptr) return;
        const auto used = static_cast<std::size_t>(input->cur - input->base);
        locate(*reader.error_, reader.text_, input->consumed + used);
    });
}

void XmlReader::declare_entity(void* context, const xmlChar* name, int type,
                               const xmlChar* public_id, const xmlChar* system_id,
                               xmlChar* content) {
    XmlReader& reader = of(context);
    const bool internal =
        type == XML_INTERNAL_GENERAL_ENTITY || type == XML_INTERNAL_PARAMETER_ENTITY;
    if (internal) {
        xmlSAX2EntityDecl(context, name, type, public_id, system_id, content);
    } else {
        reader.refuse(XmlParseError::kDeclaresEntities);
    }
}

void XmlReader::declare_unparsed_entity(void* context, const xmlChar*, const xmlChar*,
                                        const xmlChar*, const xmlChar*) {
    XmlReader& reader = of(context);
    reader.refuse(XmlParseError::kDeclaresEntities);
}

// Before what stands in brackets: there the parser is quadratic, and recurses without a bound.
void XmlReader::begin_type_declaration(void* context, const xmlChar* name, const xmlChar* public_id,
                                       const xmlChar* system_id) {
    XmlReader& reader = of(context);
    if (reader.source_ == Source::kFile) {
        xmlSAX2InternalSubset(context, name, public_id, system_id);
    } else if (*reader.context_->input->cur == '[') {
        reader.refuse(XmlParseError::kHasInternalSubset);
    }
}

// At the end of the document type declaration: default attributes that it gave are forgotten.
void XmlReader::end_type_declaration(void* context, const xmlChar*, const xmlChar*,
                                     const xmlChar*) {
    auto* const parser = static_cast<xmlParserCtxtPtr>(context);
    if (parser->attsDefault == nullptr) return;
    xmlHashFree(parser->attsDefault, xmlHashDefaultDeallocator);
    parser->attsDefault = nullptr;
}

bool XmlReader::admit_namespaces(int count, const xmlChar** namespaces) {
    if (static_cast<std::uint32_t>(context_->nsNr) / 2 > limits_.attributes) {
        return refuse(XmlParseError::kTooManyNamespaces);
    }
    run([&] {
        for (int i = 0; i < count; ++i) namespaces_.insert(namespaces[2 * i + 1]);
    });
    return namespaces_.size() <= limits_.names || refuse(XmlParseError::kTooManyDistinctNamespaces);
}

bool XmlReader::refuse(XmlParseError::Refusal refusal) {
    run([&] { fail(refusal, refusal_reason(refusal, limits_)); });
    return false;
}

void XmlReader::fail(int code, std::string_view reason) {
    stop();
    if (error_) return;
    std::string line(text::first(text::to_valid_utf8(reason), kLongestReason));
    error_.emplace(XmlParseError{code, line + "\r\n", {}, 0});
}

void XmlReader::stop() {
    stopped_ = true;
    context_->disableSAX = 1;
    context_->wellFormed = 0;
}

}  // namespace zr
