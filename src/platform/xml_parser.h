// Parsing XML: a library reports the markup of a text, within bounds.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zr {

/// Why a text is not a document that the component reads.
struct XmlParseError {
    /// Codes of the component's own refusals; all others are the parser's.
    enum Refusal : int {
        kTooLarge = 10000,
        kTooDeep,
        kTooManyAttributes,
        kDeclaresEntities,
        kTooManyNamespaces,
        kHasInternalSubset,
        kTooManyNames,
        kTooManyDistinctNamespaces,
        kDeclaresEncoding,
    };

    int code = 0;             ///< the parser's own code or a Refusal, never 0
    std::string reason;       ///< ends with CR LF
    std::string source_text;  ///< the line that the error is in, a long one cut around it
    int line_position = 0;    ///< 1-based character position in the line; 0 when unknown
};

/// Bounds on a document, each with its own reason when it is passed.
struct XmlLimits {
    std::size_t bytes = std::size_t{64} << 20;
    std::uint32_t depth = 256;
    std::uint32_t attributes = 256;  ///< of one element; also the namespaces in scope at once
    std::uint32_t names = 10'000;    ///< distinct ones; also the distinct namespaces
};

/// What is told of a text while it is parsed, in its order. Equal names have equal addresses during
/// one parse. An exception ends the parse.
class XmlEvents {
  public:
    XmlEvents() = default;
    XmlEvents(const XmlEvents&) = delete;
    XmlEvents& operator=(const XmlEvents&) = delete;

    /// The name is without its prefix.
    virtual void start_element(const char* name, bool in_namespace) = 0;
    /// An attribute of the element started last; the name is as written.
    virtual void attribute(const char* name, std::string_view value) = 0;
    virtual void end_element() = 0;
    /// A part of a run of text.
    virtual void text(std::string_view chars) = 0;
    /// A comment or an instruction.
    virtual void other_markup() = 0;

  protected:
    ~XmlEvents() = default;
};

/// Parses UTF-8 text, whatever it says of its encoding; none when it is a document. Rethrows what
/// an event threw.
std::optional<XmlParseError> parse_xml(std::string_view text, const XmlLimits& limits,
                                       XmlEvents& events);

}  // namespace zr
