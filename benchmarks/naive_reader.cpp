#include "naive_reader.h"

#include <libxml/parser.h>
#include <libxml/xpath.h>

#include <memory>
#include <stdexcept>
#include <string_view>

#include "services/vedaxml_au/report_layout.h"

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

std::size_t read_piece(xmlXPathContext* context, xmlNode* record, const layout::Piece& piece) {
    std::size_t values = 0;
    if (piece.form == layout::Form::kPersonName) {
        for (const std::string_view name :
             {"individual-name/first-given-name", "individual-name/other-given-name",
              "individual-name/family-name"}) {
            values += read_value(context, record, name);
        }
    } else if (!piece.path.empty()) {
        values += read_value(context, record, piece.path);
    }
    if (!piece.condition.empty()) {
        values += read_value(context, record, piece.condition);
    }
    return values;
}

std::size_t read_line(xmlXPathContext* context, xmlNode* record, const layout::Line& line) {
    std::size_t values = 0;
    for (const layout::Pieces* pieces : {&line.label, &line.value}) {
        for (const layout::Piece& piece : pieces->all()) {
            values += read_piece(context, record, piece);
        }
    }
    return values;
}

/// Calls `read` for every node at the path.
template <class Read>
void for_each_node(xmlXPathContext* context, xmlNode* node, std::string_view path, Read read) {
    const Object found = evaluate(context, node, path);
    const int count = found->nodesetval != nullptr ? found->nodesetval->nodeNr : 0;
    for (int index = 0; index < count; ++index) {
        read(found->nodesetval->nodeTab[index]);
    }
}

std::size_t read_sections(xmlXPathContext* context, xmlNode* match, xmlNode* report) {
    std::size_t values = 0;
    xmlNode* const sources[] = {match, report};
    for (const layout::Section& section : australia::report_sections()) {
        for_each_node(context, sources[section.source], section.records, [&](xmlNode* record) {
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

std::size_t read_statistics(xmlXPathContext* context, xmlNode* match) {
    std::size_t values = 0;
    for (const StatisticsCategory& category : australia::statistics_categories()) {
        // XPath 1.0 has no union inside a step: the two credit files are written out.
        std::string records(category.records);
        if (const std::size_t close = records.find(")/"); close != std::string::npos) {
            const std::string child = records.substr(close + 1);
            records = "individual-consumer-credit-file" + child +
                      " | individual-commercial-credit-file" + child;
        }
        for_each_node(context, match, records, [&](xmlNode* record) {
            for (const std::string_view path :
                 {category.only_path, category.event_date, category.loaded, category.outstanding,
                  category.settled_path, category.status_path}) {
                if (!path.empty()) {
                    values += read_value(context, record, path);
                }
            }
        });
    }
    return values;
}

}  // namespace

void read_and_free(const std::string& text) { (void)read(text); }

std::size_t read_naively(const std::string& text) {
    const Document document = read(text);
    const Context context(xmlXPathNewContext(document.get()));
    constexpr std::string_view kReport =
        "/BCAmessage/BCAservices/BCAservice/BCAservice-data/response/enquiry-report";
    const Object report = evaluate(context.get(), xmlDocGetRootElement(document.get()), kReport);
    xmlNode* const report_node = report->nodesetval->nodeTab[0];
    const Object match = evaluate(context.get(), report_node, "primary-match");
    xmlNode* const match_node = match->nodesetval->nodeTab[0];
    return read_statistics(context.get(), match_node) +
           read_sections(context.get(), match_node, report_node);
}

}  // namespace zr::bench
