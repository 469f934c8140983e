// One guarded parse: the parser with the component's bounds and refusals, whatever is made of what
// it reports.
#pragma once

#include <libxml/parser.h>

#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/xml_document.h"

namespace zr {

class XmlReader {
  public:
    enum class Source {
        kText,  ///< UTF-8 whatever it says of itself; no entity may be declared
        kFile,  ///< bytes of a file of the deployment: its encoding counts, and it may declare
                ///< internal entities, which the parser keeps from growing out of hand
    };

    /// Both `text` and `limits` must live as long as the reader.
    XmlReader(std::string_view text, Source source, const XmlLimits& limits);
    ~XmlReader();
    XmlReader(const XmlReader&) = delete;
    XmlReader& operator=(const XmlReader&) = delete;

    /// The reader of a parser's context, for the handlers that a user of the reader adds.
    static XmlReader& of(void* context) {
        return *static_cast<XmlReader*>(static_cast<xmlParserCtxtPtr>(context)->_private);
    }

    /// Sets the handlers of markup events. Their first argument is the parser's context.
    void set_handlers(xmlSAXHandler handlers);

    xmlParserCtxtPtr context() const { return context_; }

    /// Makes the parser build its own document, with the names of `dictionary` where one is given
    /// and `address` as the base of what it refers to; see take_document.
    void build_document(const std::string& address, xmlDictPtr dictionary = nullptr);

    /// The document that was built, for the caller to free. Once, after a parse without an error.
    xmlDocPtr take_document() { return std::exchange(context_->myDoc, nullptr); }

    /// The line of the error that parse() returned, 0 when unknown.
    int error_line() const { return error_line_; }

    /// What the handlers work for.
    void* target = nullptr;

    /// Parses; none when the text is a document. Rethrows what a handler threw.
    std::optional<XmlParseError> parse();

    /// Called for each start tag: false, and the parse ends, when it passes a bound.
    bool admit_element() {
        const bool deep = static_cast<std::uint32_t>(context_->nameNr) >= limits_.depth;
        const bool crowded = static_cast<std::uint32_t>(context_->nsNr) / 2 > limits_.attributes;
        if (deep || crowded) [[unlikely]] {
            refuse(deep ? XmlParseError::kTooDeep : XmlParseError::kTooManyNamespaces);
            return false;
        }
        return true;
    }

    /// Runs part of a handler; an exception ends the parse and leaves it by parse().
    template <class Action>
    void run(Action action) noexcept {
        try {
            action();
        } catch (...) {
            thrown_ = std::current_exception();
            stop();
        }
    }

  private:
    static int read(void* reader, char* buffer, int size);
    static void report(void* context, xmlErrorPtr error);
    static void declare_entity(void* context, const xmlChar* name, int type,
                               const xmlChar* public_id, const xmlChar* system_id,
                               xmlChar* content);
    static void declare_unparsed_entity(void* context, const xmlChar*, const xmlChar*,
                                        const xmlChar*, const xmlChar*);
    static void end_type_declaration(void* context, const xmlChar*, const xmlChar*, const xmlChar*);

    bool refuse_unread();
    void refuse(XmlParseError::Refusal refusal);
    void fail(int code, std::string_view reason);
    void stop();

    std::string_view text_;
    Source source_;
    const XmlLimits& limits_;
    xmlParserCtxtPtr context_;
    std::size_t given_ = 0;  // of the text, to the parser
    bool stopped_ = false;
    std::string address_;
    std::optional<XmlParseError> error_;
    int error_line_ = 0;
    std::exception_ptr thrown_;
};

}  // namespace zr
