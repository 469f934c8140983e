#include "bureau_gateway/documents/schema.h"

#include <libxml/xmlschemas.h>

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string_view>

namespace zr::gateway {
namespace {

/// What libxml2 finds, and what the bureau calls it.
struct FindingRow {
    int finding;
    const char* code;
    const char* type;
    const char* description;
};
constexpr std::array kFindings = {
    FindingRow{XML_SCHEMAV_CVC_COMPLEX_TYPE_4, "E103", "mandatory", "lacks an attribute"},
    FindingRow{XML_SCHEMAV_CVC_MINLENGTH_VALID, "E102", "mandatory", "must not be empty"},
    FindingRow{XML_SCHEMAV_CVC_MAXLENGTH_VALID, "E201", "length", "is too long"},
    FindingRow{XML_SCHEMAV_CVC_PATTERN_VALID, "E301", "format", "is not of the right form"},
    FindingRow{XML_SCHEMAV_CVC_DATATYPE_VALID_1_2_1, "E302", "format", "is not a valid value"},
    FindingRow{XML_SCHEMAV_CVC_DATATYPE_VALID_1_2_3, "E401", "value", "has an unknown value"},
    FindingRow{XML_SCHEMAV_CVC_ENUMERATION_VALID, "E401", "value", "has an unknown value"},
    FindingRow{XML_SCHEMAV_ELEMENT_CONTENT, "E501", "structure", "is not expected here"},
    FindingRow{XML_SCHEMAV_CVC_COMPLEX_TYPE_3_2_1, "E502", "structure",
               "has an attribute that is not expected"},
    FindingRow{XML_SCHEMAV_CVC_COMPLEX_TYPE_3_2_2, "E502", "structure",
               "has an attribute that is not expected"},
};
constexpr FindingRow kMissing{0, "E101", "mandatory", "lacks an element"};
constexpr FindingRow kOther{0, "E503", "structure", "must not hold this"};

const FindingRow& row_of(const xmlError& error) {
    const std::string_view message = error.message ? error.message : "";
    if (error.code == XML_SCHEMAV_ELEMENT_CONTENT &&
        message.find("Missing child") != std::string_view::npos) {
        return kMissing;
    }
    const auto row = std::find_if(kFindings.begin(), kFindings.end(), [&](const FindingRow& each) {
        return each.finding == error.code;
    });
    return row == kFindings.end() ? kOther : *row;
}

/// Complaints about an element's text or place are in its parent; those about what is in it, and
/// about its attributes, are in the element itself.
bool is_in_parent(const xmlError& error, const FindingRow& row) {
    const std::string_view message = error.message ? error.message : "";
    return &row != &kMissing && row.finding != XML_SCHEMAV_CVC_COMPLEX_TYPE_4 &&
           message.find(", attribute '") == std::string_view::npos;
}

void take_finding(void* owner, xmlError* error) {
    auto* element = static_cast<xmlNode*>(error->node);
    if (!element) {
        return;
    }
    const FindingRow& row = row_of(*error);
    const bool in_parent =
        is_in_parent(*error, row) && element->parent && element->parent->type == XML_ELEMENT_NODE;
    static_cast<std::vector<Complaint>*>(owner)->push_back(
        {row.code, row.type,
         "Element '" + name_of(*element) + "'" + (in_parent ? " " : " or an attribute of it ") +
             row.description,
         name_of(in_parent ? *element->parent : *element), element});
}

void report_nothing(void* /*owner*/, xmlError* /*error*/) {}

struct SchemaFreer {
    void operator()(xmlSchema* schema) const { xmlSchemaFree(schema); }
    void operator()(xmlSchemaParserCtxt* parser) const { xmlSchemaFreeParserCtxt(parser); }
    void operator()(xmlSchemaValidCtxt* validator) const { xmlSchemaFreeValidCtxt(validator); }
};

}  // namespace

class Schema::Compiled {
  public:
    explicit Compiled(const std::filesystem::path& file) {
        const std::unique_ptr<xmlSchemaParserCtxt, SchemaFreer> parser(
            xmlSchemaNewParserCtxt(file.c_str()));
        xmlSchemaSetParserStructuredErrors(parser.get(), report_nothing, nullptr);
        schema_.reset(xmlSchemaParse(parser.get()));
        if (!schema_) {
            throw std::runtime_error("The schema '" + file.string() + "' is not in order.");
        }
    }
    void check(xmlNode& element, std::vector<Complaint>& found) const {
        const std::unique_ptr<xmlSchemaValidCtxt, SchemaFreer> validator(
            xmlSchemaNewValidCtxt(schema_.get()));
        xmlSchemaSetValidStructuredErrors(validator.get(), take_finding, &found);
        xmlSchemaValidateOneElement(validator.get(), &element);
    }

  private:
    std::unique_ptr<xmlSchema, SchemaFreer> schema_;
};

Schema::Schema(const std::filesystem::path& file)
    : document_(load(file)), compiled_(std::make_unique<Compiled>(file)) {}

Schema::~Schema() = default;

std::vector<Complaint> Schema::check(xmlNode& element,
                                     const std::function<void(XPath&)>& prepare) const {
    std::vector<Complaint> found;
    compiled_->check(element, found);
    XPath rules(*element.doc);
    prepare(rules);
    for (xmlNode* rule :
         XPath(*document_).nodes("//xs:appinfo/rule", *xmlDocGetRootElement(document_.get()))) {
        for (xmlNode* at : rules.nodes(attribute(*rule, "at"), element)) {
            if (!rules.test(attribute(*rule, "test"), *at)) {
                found.push_back({attribute(*rule, "code"), attribute(*rule, "type"), text_of(*rule),
                                 name_of(*at), at});
            }
        }
    }
    std::stable_sort(found.begin(), found.end(), [](const Complaint& a, const Complaint& b) {
        return xmlXPathCmpNodes(a.at, b.at) == 1;
    });
    return found;
}

}  // namespace zr::gateway
