#include "naive_reader.h"

#include <libxml/parser.h>
#include <libxml/xpath.h>

#include <array>
#include <memory>
#include <span>
#include <stdexcept>
#include <string_view>
#include <variant>

#include "facade/reports.h"

namespace zr::bench {
namespace {

struct FreeDocument {
    void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
};
struct FreeContext {
    void operator()(xmlXPathContext* context) const { xmlXPathFreeContext(context); }
};
struct FreeObject {
    void operator()(xmlXPathObject* object) const { xmlXPathFreeObject(object); }
};
using Document = std::unique_ptr<xmlDoc, FreeDocument>;
using Context = std::unique_ptr<xmlXPathContext, FreeContext>;
using Object = std::unique_ptr<xmlXPathObject, FreeObject>;

Document read(const std::string& text) {
    Document document(xmlReadMemory(text.data(), static_cast<int>(text.size()), nullptr, nullptr,
                                    XML_PARSE_HUGE));
    if (document == nullptr) {
        throw std::runtime_error("The benchmark's reply does not parse.");
    }
    return document;
}

Object evaluate(xmlXPathContext* context, xmlNode* node, std::string_view path) {
    context->node = node;
    const std::string expression(path);
    return Object(
        xmlXPathEvalExpression(reinterpret_cast<const xmlChar*>(expression.c_str()), context));
}

std::size_t read_value(xmlXPathContext* context, xmlNode* record, std::string_view path) {
    const Object found = evaluate(context, record, path);
    if (found == nullptr || found->nodesetval == nullptr || found->nodesetval->nodeNr == 0) {
        return 0;
    }
    xmlChar* content = xmlNodeGetContent(found->nodesetval->nodeTab[0]);
    xmlFree(content);
    return 1;
}

/// Calls `read` for every node at the path.
template <class Read>
void for_each_node(xmlXPathContext* context, xmlNode* node, std::string_view path, Read read) {
    const Object found = evaluate(context, node, path);
    const int count =
        found != nullptr && found->nodesetval != nullptr ? found->nodesetval->nodeNr : 0;
    for (int index = 0; index < count; ++index) {
        read(found->nodesetval->nodeTab[index]);
    }
}

xmlNode* first_node(xmlXPathContext* context, xmlNode* node, std::string_view path) {
    xmlNode* first = nullptr;
    for_each_node(context, node, path,
                  [&](xmlNode* found) { first = first == nullptr ? found : first; });
    return first;
}

std::size_t read_pieces(xmlXPathContext* context, xmlNode* record,
                        std::span<const layout::Piece> pieces);

/// Reads what each kind of piece reads.
struct PieceReader {
    xmlXPathContext* context;
    xmlNode* record;

    std::size_t operator()(const layout::Value& value) const {
        if (value.form != layout::Form::kPersonName) {
            return read_value(context, record, value.path);
        }
        std::size_t values = 0;
        for (const std::string_view name :
             {"individual-name/first-given-name", "individual-name/other-given-name",
              "individual-name/family-name"}) {
            values += read_value(context, record, name);
        }
        return values;
    }
    std::size_t operator()(const layout::Lookup& lookup) const {
        return read_value(context, record, lookup.path);
    }
    std::size_t operator()(const layout::Choice& choice) const {
        return read_value(context, record, choice.path);
    }
    std::size_t operator()(const layout::All& all) const {
        return read_pieces(context, record, all.parts);
    }
    std::size_t operator()(const layout::EachOfRun& each) const {
        return read_pieces(context, record, each.parts);
    }
    std::size_t operator()(const layout::Each& each) const {
        std::size_t values = 0;
        for_each_node(context, record, each.path,
                      [&](xmlNode* node) { values += read_pieces(context, node, each.parts); });
        return values;
    }
    std::size_t operator()(const layout::Constant& /*constant*/) const { return 0; }
    std::size_t operator()(const layout::Position& /*position*/) const { return 0; }
};

std::size_t read_pieces(xmlXPathContext* context, xmlNode* record,
                        std::span<const layout::Piece> pieces) {
    std::size_t values = 0;
    for (const layout::Piece& piece : pieces) {
        for (const layout::Condition& condition : piece.conditions) {
            values += read_value(context, record, condition.path);
        }
        values += std::visit(PieceReader{context, record}, piece.what);
    }
    return values;
}

std::size_t read_line(xmlXPathContext* context, xmlNode* record, const layout::Line& line) {
    return read_pieces(context, record, line.label.pieces) +
           read_pieces(context, record, line.value.pieces);
}

std::size_t read_sections(xmlXPathContext* context, std::span<xmlNode* const> sources,
                          std::span<const layout::Section> sections) {
    std::size_t values = 0;
    for (const layout::Section& section : sections) {
        if (section.source >= sources.size()) {
            continue;
        }
        for_each_node(context, sources[section.source], section.records, [&](xmlNode* record) {
            if (!section.sub_group.id.empty()) {
                values += read_value(context, record, section.sub_group.id);
            }
            for (const layout::Line& line : section.lines) {
                if (line.each.empty()) {
                    values += read_line(context, record, line);
                } else {
                    for_each_node(context, record, line.each, [&](xmlNode* nested) {
                        values += read_line(context, nested, line);
                    });
                }
            }
        });
    }
    return values;
}

std::size_t read_statistics(xmlXPathContext* context, xmlNode* node,
                            std::span<const StatisticsCategory> categories) {
    std::size_t values = 0;
    for (const StatisticsCategory& category : categories) {
        // XPath 1.0 has no union inside a step: the two credit files are written out.
        std::string records(category.records);
        if (const std::size_t close = records.find(")/"); close != std::string::npos) {
            const std::string child = records.substr(close + 1);
            records = "individual-consumer-credit-file" + child +
                      " | individual-commercial-credit-file" + child;
        }
        for_each_node(context, node, records, [&](xmlNode* record) {
            for (const std::string_view path :
                 {category.only_path, category.run_id, category.event_date, category.loaded,
                  category.outstanding, category.settled_path, category.status_path}) {
                if (!path.empty()) {
                    values += read_value(context, record, path);
                }
            }
        });
    }
    return values;
}

/// What the reply checks and the response's summary read, beneath the person's report.
constexpr std::string_view kSummaryPaths[] = {
    "//BCAservice-data/BCAerror",
    "//BCAservice-data/response/error",
    "/BCAmessage/@service-request-id",
    "bureau-reference | file-id",
    "@type | file-id/@match-type",
    "individual/individual-name/family-name",
    "individual/individual-name/first-given-name",
    "individual/individual-name/other-given-name",
    "individual/gender/@type",
    "individual/date-of-birth",
    "individual/drivers-licence-number | individual/marital-status/@type",
    "individual/employment[1]/employer",
    "individual/employment[1]/occupation",
    "individual/address[@type='residential-current' or @type='current']/unit-number",
    "individual/address[@type='residential-current' or @type='current']/street-number",
    "individual/address[@type='residential-current' or @type='current']/street-name",
    "individual/address[@type='residential-current' or @type='current']/street-type/@code",
    "individual/address[@type='residential-current' or @type='current']/suburb",
    "individual/address[@type='residential-current' or @type='current']/state | "
    "individual/address[@type='residential-current' or @type='current']/city",
    "individual/address[@type='residential-current' or @type='current']/postcode",
};

std::size_t read_summary(xmlXPathContext* context, xmlNode* person) {
    std::size_t values = 0;
    for (const std::string_view path : kSummaryPaths) {
        values += read_value(context, person, path);
    }
    return values;
}

}  // namespace

void read_and_free(const std::string& text) { (void)read(text); }

std::size_t read_naively(const std::string& text, std::string_view service) {
    const ReportDefinition& definition = *find_report(service);
    const ReportPart& individual = definition.individual;
    const Document document = read(text);
    const Context owner(xmlXPathNewContext(document.get()));
    xmlXPathContext* const context = owner.get();
    xmlNode* const report =
        first_node(context, xmlDocGetRootElement(document.get()),
                   "/BCAmessage/BCAservices/BCAservice/BCAservice-data/response/enquiry-report");
    const auto read_person = [&](xmlNode* person) {
        return read_statistics(context, person, individual.counted) +
               read_sections(context, std::array{person, report}, individual.sections);
    };
    xmlNode* const match = first_node(context, report, "primary-match");
    const std::size_t summary = read_summary(context, match != nullptr ? match : report);
    if (match != nullptr) {
        return summary + read_person(match);
    }
    xmlNode* const company = first_node(context, report, "company-report");
    if (company == nullptr) {
        return summary + read_statistics(context, report, individual.counted) +
               read_sections(context, std::array{report}, individual.sections);
    }
    std::size_t values =
        summary + read_statistics(context, report, definition.company->part.counted) +
        read_sections(context, std::array{company}, definition.company->part.sections);
    for_each_node(context, report, "director-report", [&](xmlNode* director) {
        values += read_statistics(context, director, individual.counted) +
                  read_sections(context, std::array{director}, individual.sections);
    });
    return values;
}

}  // namespace zr::bench
