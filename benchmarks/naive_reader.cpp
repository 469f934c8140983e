#include "naive_reader.h"

#include <libxml/parser.h>
#include <libxml/xpath.h>

#include <array>
#include <memory>
#include <span>
#include <stdexcept>
#include <string_view>

#include "reports/statistics.h"
#include "services/b2bay/report_layout_au.h"
#include "services/b2bay/report_tables_nz.h"
#include "services/vedaxml_au/report_layout.h"
#include "services/vedaxml_nz/report_layout.h"
#include "services/vedaxml_nz/statistics_tables.h"

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

std::size_t read_piece(xmlXPathContext* context, xmlNode* record, const layout::Piece& piece) {
    std::size_t values = 0;
    if (!piece.condition.empty()) {
        values += read_value(context, record, piece.condition);
    }
    switch (piece.form) {
        case layout::Form::kPersonName:
            for (const std::string_view name :
                 {"individual-name/first-given-name", "individual-name/other-given-name",
                  "individual-name/family-name"}) {
                values += read_value(context, record, name);
            }
            return values;
        case layout::Form::kEach:
            for_each_node(context, record, piece.path, [&](xmlNode* each) {
                values += read_pieces(context, each, piece.parts);
            });
            return values;
        case layout::Form::kAll:
        case layout::Form::kRun:
            return values + read_pieces(context, record, piece.parts);
        default:
            return values + (piece.path.empty() ? 0 : read_value(context, record, piece.path));
    }
}

std::size_t read_pieces(xmlXPathContext* context, xmlNode* record,
                        std::span<const layout::Piece> pieces) {
    std::size_t values = 0;
    for (const layout::Piece& piece : pieces) {
        values += read_piece(context, record, piece);
    }
    return values;
}

std::size_t read_line(xmlXPathContext* context, xmlNode* record, const layout::Line& line) {
    return read_pieces(context, record, line.label.all()) +
           read_pieces(context, record, line.value.all());
}

std::size_t read_sections(xmlXPathContext* context, std::span<xmlNode* const> sources,
                          std::span<const layout::Section> sections) {
    std::size_t values = 0;
    for (const layout::Section& section : sections) {
        if (section.source >= sources.size()) {
            continue;
        }
        for_each_node(context, sources[section.source], section.records, [&](xmlNode* record) {
            if (!section.id.empty()) {
                values += read_value(context, record, section.id);
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

/// What is read of a service's replies: of a person, and where the service has them of companies.
struct Tables {
    std::span<const layout::Section> sections;
    std::span<const StatisticsCategory> categories;
    std::span<const layout::Section> company_sections;
    std::span<const StatisticsCategory> company_categories;
};

Tables tables_of(std::string_view service) {
    const auto b2bay = [](const b2bay::ReportTables& tables) {
        return Tables{tables.individual_sections, tables.individual_categories,
                      tables.company_sections, tables.company_categories};
    };
    if (service == "VedaXMLAU") {
        return {australia::report_sections(), australia::statistics_categories(), {}, {}};
    }
    if (service == "VedaXMLNZ") {
        return {new_zealand::individual_sections(), new_zealand::individual_categories(),
                new_zealand::company_sections(), new_zealand::company_categories()};
    }
    if (service == "B2BayAU") {
        return {b2bay::australian_sections(), b2bay::australian_categories(), {}, {}};
    }
    return b2bay(service == "B2BayNZ" ? b2bay::version_1() : b2bay::version_2());
}

}  // namespace

void read_and_free(const std::string& text) { (void)read(text); }

std::size_t read_naively(const std::string& text, std::string_view service) {
    const Tables tables = tables_of(service);
    const Document document = read(text);
    const Context owner(xmlXPathNewContext(document.get()));
    xmlXPathContext* const context = owner.get();
    xmlNode* const report =
        first_node(context, xmlDocGetRootElement(document.get()),
                   "/BCAmessage/BCAservices/BCAservice/BCAservice-data/response/enquiry-report");
    const auto read_person = [&](xmlNode* person) {
        return read_statistics(context, person, tables.categories) +
               read_sections(context, std::array{person, report}, tables.sections);
    };
    xmlNode* const match = first_node(context, report, "primary-match");
    const std::size_t summary = read_summary(context, match != nullptr ? match : report);
    if (match != nullptr) {
        return summary + read_person(match);
    }
    xmlNode* const company = first_node(context, report, "company-report");
    if (company == nullptr) {
        return summary + read_statistics(context, report, tables.categories) +
               read_sections(context, std::array{report}, tables.sections);
    }
    std::size_t values = summary + read_statistics(context, report, tables.company_categories) +
                         read_sections(context, std::array{company}, tables.company_sections);
    for_each_node(context, report, "director-report", [&](xmlNode* director) {
        values += read_statistics(context, director, tables.categories) +
                  read_sections(context, std::array{director}, tables.sections);
    });
    return values;
}

}  // namespace zr::bench
