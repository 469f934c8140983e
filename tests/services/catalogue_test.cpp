// Coverage by catalogue: what a service offers stands in catalogues/<service>.txt, and nothing of
// it, of its report or of what its replies fill is without a case that would notice its loss.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "case_file.h"
#include "facade/reports.h"
#include "reports/description.h"
#include "services/shared_procedures.h"
#include "support/fake_bureau.h"
#include "values/text.h"

namespace zr::test {
namespace {

/// The services that send documents.
constexpr struct {
    const char* country;
    const char* service;
} kServices[] = {{"AU", "VedaXMLAU"}, {"NZ", "VedaXMLNZ"}};

/// The catalogues on record: one that joins the registry joins this list. The two Australian
/// services have the same one.
constexpr struct {
    const char* country;
    const char* service;
    const char* record;
} kCatalogues[] = {{"AU", "VedaXMLAU", "VedaXMLAU.txt"},
                   {"AU", "B2BayAU", "VedaXMLAU.txt"},
                   {"NZ", "VedaXMLNZ", "VedaXMLNZ.txt"},
                   {"NZ", "B2BayNZ", "B2BayNZ.txt"},
                   {"NZ", "B2BayNZ_V2", "B2BayNZ_V2.txt"}};

constexpr std::size_t kWidth = 100;  ///< of the lines that a table's rows are written in

void append_table(std::string& text, const std::string& indent, const std::string& name,
                  const CodeTableItems& table) {
    text += indent + "table " + name + (table.AllowDuplicateCodes() ? ", codes twice" : "");
    std::size_t column = kWidth;
    for (const CodeTableItem& item : table) {
        const std::string row = item.Code() + ": " + item.Description();
        const bool fits = column + row.size() < kWidth;
        column = (fits ? column : indent.size()) + row.size() + 2;
        text += (fits ? "; " : "\n  " + indent) + row;
    }
    text += '\n';
}

void append_tables(std::string& text, const std::string& indent,
                   const CodeTableCollection& tables) {
    for (std::int32_t at = 1; at <= tables.Count(); ++at) {
        append_table(text, indent, tables.Key(at), tables.Item(at));
    }
}

std::string shown_catalogue(const Service& service) {
    std::string text;
    for (const Product& product : service.Products()) {
        const bool enquiry = product.ProductType() == zreProductType::zreProductTypeEnquiry;
        text += "product " + product.ProductId() + ":" + (product.Available() ? " available" : "") +
                (enquiry ? " enquiry" : " default") +
                (product.Individual() ? " individual" : " company") +
                (product.Chargeable() ? " chargeable" : "") +
                (product.Listable() ? " listable" : "") + "\n  fields " + product.RequestOptions() +
                "\n" + (product.Warning().empty() ? "" : "  warning " + product.Warning() + "\n");
        for (const ProductOption& option : product.ProductOptions()) {
            const bool general = option.OptionType() == zreOptionType::zreOptionTypeGeneral;
            text += "  option " + option.OptionId() + ": " + (general ? "General" : "Boolean") +
                    " \"" + option.Description() + "\"\n";
        }
        append_tables(text, "  ", product.CodeTables());
    }
    append_tables(text, "", service.CodeTables());
    return text;
}

TEST(Catalogue, IsTheOneOnRecord) {
    for (const auto& row : kCatalogues) {
        const FakeBureau bureau(row.country);
        const auto record =
            std::filesystem::path(ZR_TEST_DATA) / "services/catalogues" / row.record;
        EXPECT_EQ(shown_catalogue(bureau.service(row.service)), read_file(record));
    }
}

TEST(Catalogue, EveryProductAndOptionHasADocument) {
    // "option" of "product" in some case that compares the document; "" for the product itself.
    std::set<std::pair<std::string, std::string>> shown;
    for (const CaseFile& file : all_cases()) {
        if (!file.has("document")) {
            continue;
        }
        const std::string product = text::lower(file.given_value("request.ProductId"));
        shown.emplace(product, "");
        for (const auto& [name, value] : file.given) {
            if (name.starts_with("option.")) {
                shown.emplace(product, text::lower(name.substr(7)));
                shown.emplace("", text::lower(name.substr(7)));
            }
        }
    }
    for (const auto& row : kServices) {
        const FakeBureau bureau(row.country);
        for (const Product& product : bureau.service(row.service).Products()) {
            EXPECT_TRUE(shown.contains({product.ProductId(), ""})) << product.ProductId();
            for (const ProductOption& option : product.ProductOptions()) {
                // What an option makes of the document is the product's own for the scores only.
                const bool score = option.OptionId().starts_with("score");
                const std::string where = score ? product.ProductId() : std::string();
                EXPECT_TRUE(shown.contains({where, text::lower(option.OptionId())}))
                    << product.ProductId() << " " << option.OptionId();
            }
        }
    }
}

/// A line that some case expects.
struct ShownLine {
    std::string group, sub_group, name;
};

std::vector<ShownLine> shown_lines_of(std::string_view service) {
    std::vector<ShownLine> lines;
    for (const CaseFile& file : all_cases()) {
        const std::string_view named = file.given_value("service");
        if ((named.empty() ? "VedaXMLAU" : named) != service) {
            continue;
        }
        for (const std::string_view line : split(file.section("lines"), "\n")) {
            const auto fields = split(line, " | ");
            if (fields.size() >= 4) {
                lines.push_back({unescaped(fields[0]), unescaped(fields[1]), unescaped(fields[2])});
            }
        }
    }
    return lines;
}

/// Whether a name could be what the pieces write: it has their constant texts in their order.
bool could_be(std::string_view name, const layout::Text& label) {
    std::size_t at = 0;
    for (const layout::Piece& piece : label.pieces) {
        const auto* own = std::get_if<layout::Constant>(&piece.what);
        for (const std::string_view constant :
             {own != nullptr ? own->text : std::string_view(), piece.before, piece.after}) {
            at = name.find(constant, at);
            if (at == std::string_view::npos) {
                return false;
            }
            at += constant.size();
        }
    }
    const auto* first = std::get_if<layout::Constant>(&label.pieces.front().what);
    return first == nullptr || name.starts_with(first->text);
}

bool is_shown(const std::vector<ShownLine>& lines, std::string_view group,
              const layout::Section& section, const layout::Line* line = nullptr) {
    return std::any_of(lines.begin(), lines.end(), [&](const ShownLine& shown) {
        return shown.group == group && shown.sub_group.starts_with(section.sub_group.words) &&
               (line == nullptr || could_be(shown.name, line->label));
    });
}

bool has_line_like(const layout::Section& section, const layout::Line& line) {
    return std::any_of(section.lines.begin(), section.lines.end(), [&](const layout::Line& other) {
        return layout::describe(other.label) == layout::describe(line.label) &&
               layout::describe(other.value) == layout::describe(line.value);
    });
}

void expect_all_shown(std::string_view service, const ReportPart& part) {
    const std::vector<ShownLine> lines = shown_lines_of(service);
    for (const layout::Section& section : part.sections) {
        EXPECT_TRUE(is_shown(lines, section.group.word, section)) << service << section.group.word;
        for (const layout::Line& line : section.lines) {
            // A line that several sections have is shown in one of them.
            EXPECT_TRUE(std::any_of(part.sections.begin(), part.sections.end(),
                                    [&](const layout::Section& like) {
                                        return has_line_like(like, line) &&
                                               is_shown(lines, like.group.word, like, &line);
                                    }))
                << service << " " << section.group.word << ": " << layout::describe(line.label);
        }
    }
}

TEST(Catalogue, EverySectionAndLabelOfEveryReportHasALine) {
    ASSERT_EQ(all_service_names().size(), std::size(kCatalogues));
    for (const std::string_view service : all_service_names()) {
        const ReportDefinition& report = *find_report(service);
        expect_all_shown(service, report.individual);
        if (report.company) {
            expect_all_shown(service, report.company->part);
        }
    }
    EXPECT_EQ(find_report("VedaXMLUK"), nullptr);
}

TEST(Catalogue, EverySectionOfAPossibleMatchHasALine) {
    const std::vector<ShownLine> lines = shown_lines_of("VedaXMLAU");
    const ReportDefinition& report = *find_report("VedaXMLAU");
    for (const layout::Section& section : report.individual.sections) {
        using Kind = layout::Group::Kind;
        const std::string word(section.group.word);
        std::string prefixed = "Possible Match";
        if (section.group.kind != Kind::kPerson) {
            prefixed = section.group.kind == Kind::kPlain ? word : prefixed + ": " + word;
        }
        EXPECT_TRUE(is_shown(lines, prefixed, section)) << prefixed;
    }
    for (const auto& blocks : {report.individual.quick_summary, report.statistics}) {
        for (const SummaryBlock& block : blocks) {
            EXPECT_TRUE(std::any_of(lines.begin(), lines.end(), [&](const ShownLine& shown) {
                return shown.sub_group == block.sub_group &&
                       (block.open_label.empty() || shown.name == block.open_label);
            })) << block.sub_group;
        }
    }
}

TEST(Catalogue, EveryPropertyOfAResponseIsFilledInSomeCase) {
    // Compared elsewhere, computed from others, or filled by no reply of the services built.
    const std::set<std::string_view> exempt = {"ResponseDate", "ResponseXML", "ResponseHTML",
                                               "Company",      "Name",        "StreetAddress",
                                               "Country"};
    std::set<std::string, std::less<>> filled;
    for (const CaseFile& file : all_cases()) {
        for (const std::string_view line : split(file.section("response"), "\n")) {
            filled.emplace(line.substr(0, line.find(" = ")));
        }
    }
    for (const auto& property : response_properties()) {
        EXPECT_NE(filled.contains(property.name), exempt.contains(property.name)) << property.name;
    }
}

TEST(JoinParts, SkipsEmptyParts) {
    EXPECT_EQ(JoinParts(" ", {"12", "", "High", "Street"}), "12 High Street");
    EXPECT_EQ(JoinParts("\r\n", {"", "a", "", " ", ""}), "a\r\n ");
    EXPECT_EQ(JoinParts(" ", {"", ""}), "");
    EXPECT_EQ(JoinParts(" ", {}), "");
}

}  // namespace
}  // namespace zr::test
