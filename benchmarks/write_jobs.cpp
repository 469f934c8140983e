// Writes what benchmarks/throughput works on into a folder: jobs.ndjson, a few thousand mixed
// replies as translation jobs, and layouts.json, where the values of each kind of report are, for
// the script that does the same work without this component.
//
// write_jobs FOLDER COUNT EXAMPLES
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "automation/json.h"
#include "facade/reports.h"
#include "reply_maker.h"

namespace zr::bench {
namespace {

using automation::JsonWriter;

/// Example replies, by how the names of their files begin; the first that fits.
constexpr struct {
    std::string_view file;
    std::string_view country;
    std::string_view service;
    std::string_view product;
} kExamples[] = {
    {"b2bay_nz_v2_company", "NZ", "B2BayNZ_V2", "enquiry_company_with_directors"},
    {"b2bay_nz_v2", "NZ", "B2BayNZ_V2", "enquiry_individual"},
    {"b2bay_nz_company", "NZ", "B2BayNZ", "enquiry_company"},
    {"b2bay_nz", "NZ", "B2BayNZ", "enquiry_individual"},
    {"b2bay_au", "AU", "B2BayAU", "consumer-plus-commercial-enquiry"},
    {"vedaxml_au_adverse", "AU", "VedaXMLAU", "consumer-plus-commercial-enquiry"},
    {"vedaxml_au_clean", "AU", "VedaXMLAU", "consumer-enquiry"},
};

/// Made replies have from 4 to 60 KB.
constexpr std::size_t kSmallest = 4'000;
constexpr std::size_t kSizeSteps = 8;
constexpr std::size_t kSizeStep = 8'000;

void text_member(JsonWriter& json, std::string_view name, std::string_view value) {
    json.name(name);
    json.text(value);
}

std::string job(std::string_view country, std::string_view service, std::string_view product,
                std::string_view reply) {
    JsonWriter json;
    json.begin_object();
    text_member(json, "Country", country);
    text_member(json, "ResponseDate", "2014-06-15");
    json.name("Request");
    json.begin_object();
    text_member(json, "ServiceName", service);
    text_member(json, "ProductId", product);
    json.end_object();
    text_member(json, "ResponseXML", reply);
    json.end_object();
    return std::string(json.view());
}

std::vector<std::string> example_jobs(const std::filesystem::path& folder) {
    std::vector<std::string> jobs;
    const std::set<std::filesystem::path> paths(std::filesystem::directory_iterator(folder), {});
    for (const std::filesystem::path& path : paths) {
        const std::string name = path.filename().string();
        for (const auto& row : kExamples) {
            if (name.starts_with(row.file) && name.ends_with(".xml")) {
                std::ifstream file(path, std::ios::binary);
                const std::string reply{std::istreambuf_iterator<char>(file), {}};
                jobs.push_back(job(row.country, row.service, row.product, reply));
                break;
            }
        }
    }
    return jobs;
}

/// Examples and made replies of every kind by turns.
void write_jobs(const std::filesystem::path& path, std::size_t count,
                const std::filesystem::path& examples) {
    std::ofstream file(path, std::ios::binary);
    const std::vector<std::string> stored = example_jobs(examples);
    const auto kinds = reply_kinds();
    for (std::size_t number = 0; number < count; ++number) {
        const std::size_t turn = number / 2;
        if (number % 2 == 0 && !stored.empty()) {
            file << stored[turn % stored.size()] << '\n';
        } else {
            const ReplyKind& kind = kinds[turn % kinds.size()];
            const std::size_t size = kSmallest + turn / kinds.size() % kSizeSteps * kSizeStep;
            file << job(kind.country, kind.service, kind.product, kind.make(size)) << '\n';
        }
    }
}

std::string_view form_name(layout::Form form) {
    switch (form) {
        case layout::Form::kDate:
        case layout::Form::kGeneralDate:
            return "date";
        case layout::Form::kMoney:
        case layout::Form::kMoneySymbol:
        case layout::Form::kMoneyText:
            return "money";
        case layout::Form::kPersonName:
            return "name";
        default:
            return "text";
    }
}

/// What the naive translation reads of a piece.
struct PieceShape {
    std::string_view form = "text";
    std::string_view path{};
    std::string_view separator{};
    std::string_view constant{};
    const std::vector<layout::Piece>* parts = nullptr;
};

PieceShape shape(const layout::Piece::What& what) {
    PieceShape shape;
    if (const auto* constant = std::get_if<layout::Constant>(&what)) {
        shape.constant = constant->text;
    } else if (const auto* value = std::get_if<layout::Value>(&what)) {
        shape.form = form_name(value->form);
        shape.path = value->path;
    } else if (const auto* lookup = std::get_if<layout::Lookup>(&what)) {
        shape.path = lookup->path;
    } else if (const auto* choice = std::get_if<layout::Choice>(&what)) {
        shape.path = choice->path;
    } else if (const auto* all = std::get_if<layout::All>(&what)) {
        shape.parts = &all->parts;
    } else if (const auto* run = std::get_if<layout::EachOfRun>(&what)) {
        shape.parts = &run->parts;
    } else if (const auto* each = std::get_if<layout::Each>(&what)) {
        shape.path = each->path;
        shape.separator = each->separator;
        shape.parts = &each->parts;
    } else {
        shape.form = "position";
    }
    return shape;
}

void write_pieces(JsonWriter& json, std::string_view name,
                  const std::vector<layout::Piece>& pieces) {
    json.name(name);
    json.begin_array();
    for (const layout::Piece& piece : pieces) {
        const PieceShape its = shape(piece.what);
        const std::string before =
            std::string(piece.separator).append(piece.before).append(its.constant);
        json.begin_object();
        text_member(json, "form", its.form);
        text_member(json, "path", its.path);
        text_member(json, "before", before);
        text_member(json, "after", piece.after);
        text_member(json, "condition",
                    piece.conditions.empty() ? "" : piece.conditions.front().path);
        text_member(json, "separator", its.separator);
        write_pieces(json, "parts",
                     its.parts != nullptr ? *its.parts : std::vector<layout::Piece>());
        json.end_object();
    }
    json.end_array();
}

void write_sections(JsonWriter& json, std::span<const layout::Section> sections) {
    json.name("sections");
    json.begin_array();
    for (const layout::Section& section : sections) {
        json.begin_object();
        json.name("source");
        json.number(section.source);
        text_member(json, "group", section.group.word);
        text_member(json, "sub_group", section.sub_group.words);
        text_member(json, "records", section.records);
        text_member(json, "id", section.sub_group.id);
        json.name("lines");
        json.begin_array();
        for (const layout::Line& line : section.lines) {
            json.begin_object();
            text_member(json, "each", line.each);
            write_pieces(json, "label", line.label.pieces);
            write_pieces(json, "value", line.value.pieces);
            json.end_object();
        }
        json.end_array();
        json.end_object();
    }
    json.end_array();
}

void write_categories(JsonWriter& json, std::span<const StatisticsCategory> categories) {
    json.name("statistics");
    json.begin_array();
    for (const StatisticsCategory& category : categories) {
        json.begin_object();
        text_member(json, "records", category.records);
        text_member(json, "date", category.event_date);
        json.name("values");
        json.begin_array();
        for (const std::string_view path :
             {category.only_path, category.run_id, category.loaded, category.outstanding,
              category.settled_path, category.status_path}) {
            if (!path.empty()) {
                json.text(path);
            }
        }
        json.end_array();
        json.end_object();
    }
    json.end_array();
}

void write_layouts(const std::filesystem::path& path) {
    JsonWriter json;
    json.begin_object();
    const auto write_part = [&](const std::string& name, const ReportPart& part) {
        json.name(name);
        json.begin_object();
        write_sections(json, part.sections);
        write_categories(json, part.counted);
        json.end_object();
    };
    for (const std::string_view service : all_service_names()) {
        const ReportDefinition& report = *find_report(service);
        write_part(std::string(service) + " person", report.individual);
        if (report.company) {
            write_part(std::string(service) + " company", report.company->part);
        }
    }
    json.end_object();
    std::ofstream(path, std::ios::binary) << json.view();
}

}  // namespace
}  // namespace zr::bench

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: write_jobs FOLDER COUNT EXAMPLES\n");
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    zr::bench::write_jobs(folder / "jobs.ndjson", std::strtoul(argv[2], nullptr, 10), argv[3]);
    zr::bench::write_layouts(folder / "layouts.json");
    return 0;
}
