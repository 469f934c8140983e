// Writes documents whose values are whatever it is given: what the writer escapes must come back
// as it went in.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <variant>

#include "values/text.h"
#include "xml/xml_document.h"
#include "zrcreditbureau/zr_xml_builder.h"

namespace {

/// Text that an XML document can carry and that reading leaves as it is.
bool survives_reading(std::string_view text) {
    for (const char character : text) {
        if (static_cast<unsigned char>(character) < 0x20) {
            return false;
        }
    }
    const bool noncharacter = text.find("\xEF\xBF\xBE") != std::string_view::npos ||
                              text.find("\xEF\xBF\xBF") != std::string_view::npos;
    return !noncharacter && zr::text::is_valid_utf8(text) && !text.empty() && text.front() != ' ' &&
           text.back() != ' ';
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view value(reinterpret_cast<const char*>(data), size);

    zr::ZRXMLBuilder builder;
    builder.TagOpen("a");
    builder.WriteAttribute("b", value);
    builder.WriteTagWithText("c", value);
    builder.TagClose("a");
    const std::string document = builder.XML(true);

    if (survives_reading(value)) {
        zr::XmlNames names;
        const zr::XmlPath attribute("a/@b", names);
        const zr::XmlPath element("a/c", names);
        const auto parsed = zr::XmlDocument::parse(document, names);
        const auto* read = std::get_if<zr::XmlDocument>(&parsed);
        if (read == nullptr || read->root().value(attribute) != value ||
            read->root().value(element) != value) {
            std::abort();
        }
    }

    builder.EncodeOptions(zr::zreXMLBuilderEncodeOptions::zreXMLBuilderEncodeOptionsNonASCII |
                          zr::zreXMLBuilderEncodeOptions::zreXMLBuilderEncodeOptionsLineFeeds);
    builder.WriteText(value);
    for (const char character :
         builder.XML().substr(document.size() - builder.XMLHeader().size())) {
        if (static_cast<unsigned char>(character) >= 0x80 || character == '\n') {
            std::abort();  // nothing but ASCII, and no line break, passes the encoding step
        }
    }
    return 0;
}
