// Coverage by catalogue: what a service offers stands in catalogues/<service>.txt, and nothing of
// it, of its report or of what its replies fill is without a case that would notice its loss.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "case_file.h"
#include "services/b2bay/report_layout_au.h"
#include "services/b2bay/report_tables_nz.h"
#include "services/shared_procedures.h"
#include "services/vedaxml_au/report_layout.h"
#include "services/vedaxml_nz/report_layout.h"
#include "support/fake_bureau.h"

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

void append_table(std::string& text, const std::string& indent, const std::string& name,
                  const CodeTableItems& table) {
    text += indent + "table " + name + "\n";
    for (const CodeTableItem& item : table) {
        text += indent + "  " + item.Code() + ": " + item.Description() + "\n";
    }
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
        EXPECT_EQ(
            shown_catalogue(bureau.service(row.service)),
            read_file(std::filesystem::path(ZR_TEST_DATA) / "services/catalogues" / row.record));
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
bool could_be(std::string_view name, const layout::Pieces& label) {
    std::size_t at = 0;
    for (const layout::Piece& piece : label.all()) {
        for (const std::string_view constant : {piece.before, piece.after}) {
            at = name.find(constant, at);
            if (at == std::string_view::npos) {
                return false;
            }
            at += constant.size();
        }
    }
    const layout::Piece& first = label.all().front();
    return first.form != layout::Form::kConstant || name.starts_with(first.before);
}

bool is_shown(const std::vector<ShownLine>& lines, std::string_view group,
              const layout::Section& section, const layout::Line* line = nullptr) {
    return std::any_of(lines.begin(), lines.end(), [&](const ShownLine& shown) {
        return shown.group == group && shown.sub_group.starts_with(section.sub_group) &&
               (line == nullptr || could_be(shown.name, line->label));
    });
}

TEST(Catalogue, EverySectionAndLabelOfEveryReportHasALine) {
    const struct {
        const char* service;
        std::span<const layout::Section> sections;
    } reports[] = {
        {"VedaXMLAU", australia::report_sections()},
        {"VedaXMLNZ", new_zealand::individual_sections()},
        {"VedaXMLNZ", new_zealand::company_sections()},
        {"B2BayAU", b2bay::australian_sections()},
        {"B2BayNZ", b2bay::individual_sections()},
        {"B2BayNZ", b2bay::company_sections()},
        {"B2BayNZ_V2", b2bay::individual_sections_of_version_2()},
        {"B2BayNZ_V2", b2bay::company_sections_of_version_2()},
    };
    for (const auto& report : reports) {
        const std::vector<ShownLine> lines = shown_lines_of(report.service);
        for (const layout::Section& section : report.sections) {
            EXPECT_TRUE(is_shown(lines, section.word, section)) << report.service << section.word;
            for (const layout::Line& line : section.lines) {
                // A label of sections that have the same lines is shown in one of them.
                EXPECT_TRUE(std::any_of(report.sections.begin(), report.sections.end(),
                                        [&](const layout::Section& like) {
                                            return like.lines.data() == section.lines.data() &&
                                                   is_shown(lines, like.word, like, &line);
                                        }))
                    << report.service << " " << section.word << ": "
                    << line.label.all().front().before;
            }
        }
    }
}

TEST(Catalogue, EverySectionOfAPossibleMatchHasALine) {
    const std::vector<ShownLine> lines = shown_lines_of("VedaXMLAU");
    for (const layout::Section& section : australia::report_sections()) {
        const std::string word(section.word);
        std::string prefixed = "Possible Match";
        if (section.group != layout::Group::kPerson) {
            prefixed = section.group == layout::Group::kPlain ? word : prefixed + ": " + word;
        }
        EXPECT_TRUE(is_shown(lines, prefixed, section)) << prefixed;
    }
    for (const auto& blocks : {australia::quick_summary(), australia::statistics_blocks()}) {
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
    const std::set<std::string_view> exempt = {
        "ResponseDate", "ResponseXML", "ResponseHTML", "Company", "Name",
        // Persons only, whose city, country and one-line address are not read.
        "ResponseMessage", "Individual", "CompanyName", "CompanyNumber", "MaritalStatus",
        "StreetAddress", "City", "Country", "BureauFileAge", "DirectorsCount", "MOJFinesAmount",
        "PublicNoticeCount", "PublicNoticeCount1Y", "PublicNoticeCount2Y", "PublicNoticeCount3Y",
        "PublicNoticeCount4Y", "PublicNoticeAdverseCount",
        // Every count and yearly edge has its row in the statistics' own tests.
        "BankruptcyCount1Y", "BankruptcyCount2Y", "BankruptcyCount3Y", "CollectionCount1Y",
        "CollectionCount2Y", "CollectionCount3Y", "CollectionCount4Y", "JudgementCountUnpaid",
        "JudgementLoadedBalance"};
    std::set<std::string, std::less<>> filled;
    for (const CaseFile& file : all_cases()) {
        for (const std::string_view line : split(file.section("response"), "\n")) {
            filled.emplace(line.substr(0, line.find(" = ")));
        }
    }
    for (const auto& property : response_properties()) {
        EXPECT_TRUE(filled.contains(property.name) || exempt.contains(property.name))
            << property.name;
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
