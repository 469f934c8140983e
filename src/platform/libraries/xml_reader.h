// One guarded parse: the parser with the component's bounds and refusals, whatever is made of what
// it reports.
#pragma once

#include <libxml/parser.h>

#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "platform/xml_parser.h"

namespace zr {

class XmlReader {
  public:
    enum class Source {
        kText,  ///< UTF-8 whatever it says of itself; nothing may be declared in it
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
    /// and `address` as the base of what it refers to; see take_document. That of a text has no
    /// white space between its elements.
    void build_document(const std::string& address, xmlDictPtr dictionary = nullptr);

    /// The document that was built, for the caller to free. Once, after a parse without an error.
    xmlDocPtr take_document() { return std::exchange(context_->myDoc, nullptr); }

    /// The line of the error that parse() returned, 0 when unknown.
    int error_line() const { return error_line_; }

    /// What the handlers work for.
    void* target = nullptr;

    /// Parses; none when the text is a document. Rethrows what a handler threw.
    std::optional<XmlParseError> parse();

    /// Called for each start tag, with the namespaces that it declares as the parser reports them:
    /// false, and the parse ends, when a bound is passed.
    bool admit_element(int namespace_count, const xmlChar** namespaces) {
        const bool deep = static_cast<std::uint32_t>(context_->nameNr) >= limits_.depth;
        if (deep) [[unlikely]]
            return refuse(XmlParseError::kTooDeep);
        if (namespace_count > 0 && !admit_namespaces(namespace_count, namespaces)) return false;
        return admit_name();
    }

    /// Called for whatever else has a name. The parser looks names up in chains that grow with
    /// their number.
    bool admit_name() {
        const auto known = static_cast<std::size_t>(xmlDictSize(context_->dict));
        const bool crowded = known - first_names_ > limits_.names + namespaces_.size();
        return !crowded || refuse(XmlParseError::kTooManyNames);
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
    static void begin_type_declaration(void* context, const xmlChar* name, const xmlChar* public_id,
                                       const xmlChar* system_id);
    static void end_type_declaration(void* context, const xmlChar*, const xmlChar*, const xmlChar*);

    bool refuse_unread();
    void drop_blank_text();
    bool admit_namespaces(int count, const xmlChar** namespaces);
    bool refuse(XmlParseError::Refusal refusal);  // always false
    void fail(int code, std::string_view reason);
    void stop();

    std::string_view text_;
    Source source_;
    const XmlLimits& limits_;
    xmlParserCtxtPtr context_;
    std::size_t given_ = 0;  // of the text, to the parser
    bool stopped_ = false;
    std::size_t first_names_ = 0;                    // those that are not the document's
    std::unordered_set<const xmlChar*> namespaces_;  // distinct ones, by their address
    std::string address_;
    std::optional<XmlParseError> error_;
    int error_line_ = 0;
    std::exception_ptr thrown_;
};

}  // namespace zr
