#include "cli/result_form.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "automation/fields.h"
#include "cli/explanation_form.h"
#include "cli/failure.h"
#include "cli/nearest.h"
#include "values/text.h"

namespace zr::cli {
namespace {

using automation::ResponseFields;

bool is_summary(const Property<Response>& property) {
    return property.name != "ResponseXML" && property.name != "ResponseHTML";
}

/// Adds what one name stands for; false for a name that is not known.
bool add_field(ResponseFields& fields, std::string_view name) {
    const auto is = [&](std::string_view other) { return text::equal_ignoring_case(name, other); };
    const bool summary = is("summary");
    const std::size_t before = fields.properties.size();
    for (const Property<Response>& property : response_properties()) {
        if (summary ? is_summary(property) : is(property.name)) {
            fields.properties.push_back(&property);
        }
    }
    fields.elements = fields.elements || is("lines") || is("ResponseElements");
    fields.selections = fields.selections || is("lines") || is("CompanySelections");
    return fields.properties.size() > before || is("lines") || is("ResponseElements") ||
           is("CompanySelections");
}

void append_cell(std::string& row, std::string_view text) {
    if (text.find_first_of(",\"\r\n") == std::string_view::npos) {
        row += text;
        return;
    }
    row += '"';
    for (const char letter : text) {
        row.append(letter == '"' ? 2 : 1, letter);
    }
    row += '"';
}

/// A value as JSON has it, without the marks of a text; nothing for null.
std::string cell_text(const Value& value) {
    if (holds_text(value)) {
        return std::string(text_of(value));
    }
    automation::JsonWriter json;
    json.value(value);
    std::string_view text = json.view();
    if (text.starts_with('"')) {
        text = text.substr(1, text.size() - 2);
    }
    return text == "null" ? "" : std::string(text);
}

}  // namespace

ResponseFields parse_fields(const std::string& text) {
    if (text.empty()) {
        return ResponseFields::all();
    }
    ResponseFields fields;
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find(',', begin), text.size());
        const std::string name = text.substr(begin, end - begin);
        if (!add_field(fields, name)) {
            std::vector<std::string> names = {"summary", "lines", "ResponseElements",
                                              "CompanySelections"};
            for (const Property<Response>& property : response_properties()) {
                names.emplace_back(property.name);
            }
            throw MisuseError("--fields must be summary, lines, or names of the response." +
                              did_you_mean(name, names));
        }
        begin = end + 1;
    }
    return fields;
}

void write_result(automation::JsonWriter& json, Operation operation, const Outcome& outcome,
                  const ResponseFields& fields, std::string_view file) {
    json.begin_object();
    if (!file.empty()) {
        json.text("File", file);
    }
    json.boolean("Result", outcome.result);
    json.text("ErrorMessage", outcome.error_message);
    if (!outcome.result) {
        json.text("ErrorKind", failure_kind_name(outcome.failure.kind));
        json.text("ErrorCode", outcome.failure.code);
    }
    if (!outcome.warning.empty()) {
        json.text("Warning", outcome.warning);
    }
    if (operation == Operation::kCompose) {
        json.text("RequestXML", outcome.request_xml);
    } else {
        json.name("Response");
        if (outcome.response != nullptr) {
            automation::write_response(json, *outcome.response, fields);
        } else {
            json.null();
        }
    }
    if (outcome.explanation) {
        json.name("Explanation");
        write_explanation(json, *outcome.explanation);
    }
    json.end_object();
}

CsvForm::CsvForm(ResponseFields fields, std::string_view source)
    : fields_(std::move(fields)), source_(source) {}

std::string CsvForm::header() const {
    std::string row =
        source_ + (fields_.elements ? "" : ",Result,ErrorMessage,ErrorKind,ErrorCode,Warning");
    for (const Property<Response>* const property : fields_.properties) {
        row.append(",").append(property->name);
    }
    if (fields_.elements) {
        for (const auto& field : automation::response_element_properties()) {
            row.append(",").append(field.name);
        }
    }
    return row + "\r\n";
}

void CsvForm::append(std::string& rows, const Outcome& outcome, std::string_view source) const {
    std::string row;
    append_cell(row, source);
    if (!fields_.elements) {
        row += outcome.result ? ",true," : ",false,";
        append_cell(row, outcome.error_message);
        row.append(",").append(failure_kind_name(outcome.failure.kind)).append(",");
        append_cell(row, outcome.failure.code);
        row += ',';
        append_cell(row, outcome.warning);
    }
    const auto add = [](std::string& target, const std::string& text) {
        target += ',';
        append_cell(target, text);
    };
    for (const Property<Response>* const property : fields_.properties) {
        add(row, outcome.response ? cell_text(property->read(*outcome.response)) : "");
    }
    if (!fields_.elements) {
        rows.append(row).append("\r\n");
        return;
    }
    if (outcome.response == nullptr) {
        return;
    }
    for (const ResponseElement& element : outcome.response->ResponseElements()) {
        rows += row;
        for (const auto& field : automation::response_element_properties()) {
            add(rows, cell_text(field.read(element)));
        }
        rows += "\r\n";
    }
}

}  // namespace zr::cli
