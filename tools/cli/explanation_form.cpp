#include "cli/explanation_form.h"

#include <string_view>
#include <vector>

#include "cli/report_text.h"

namespace zr::cli {
namespace {

void append_origins(std::string& text, const std::vector<Origin>& origins) {
    for (const Origin& origin : origins) {
        text.append("    ").append(std::to_string(origin.position.line)).append(":");
        text.append(std::to_string(origin.position.column)).append("  ");
        text.append(origin.path).append("\n");
    }
}

void write_origins(automation::JsonWriter& json, const std::vector<Origin>& origins) {
    json.begin_array();
    for (const Origin& origin : origins) {
        json.begin_object();
        json.text("Path", origin.path);
        json.number("Line", origin.position.line);
        json.number("Column", origin.position.column);
        json.end_object();
    }
    json.end_array();
}

}  // namespace

std::string explanation_text(const Response& response, const Explanation& explanation) {
    std::string text = "Fields\n";
    for (const Explanation::Field& field : explanation.fields) {
        text.append("  ").append(field.name).append("\n");
        append_origins(text, field.origins);
    }
    text += "\nLines\n";
    auto origins = explanation.lines.begin();
    for (const ResponseElement& line : response.ResponseElements()) {
        text.append("  ").append(line.ResponseGroup()).append(" / ");
        text.append(line.ResponseSubGroup()).append(" / ").append(line.ResponseName()).append("\n");
        if (origins != explanation.lines.end()) {
            append_origins(text, *origins++);
        }
    }
    return printable(text);
}

void write_explanation(automation::JsonWriter& json, const Explanation& explanation) {
    json.begin_object();
    json.name("Fields");
    json.begin_object();
    for (const Explanation::Field& field : explanation.fields) {
        json.name(field.name);
        write_origins(json, field.origins);
    }
    json.end_object();
    json.name("Lines");
    json.begin_array();
    for (const std::vector<Origin>& origins : explanation.lines) {
        write_origins(json, origins);
    }
    json.end_array();
    json.end_object();
}

}  // namespace zr::cli
