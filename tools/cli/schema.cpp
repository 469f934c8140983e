#include "cli/schema.h"

#include <string>

#include "automation/fields.h"
#include "cli/countries.h"
#include "cli/job.h"
#include "zrcreditbureau/error.h"
#include "zrcreditbureau/request.h"
#include "zrcreditbureau/response.h"

namespace zr::cli {
namespace {

using automation::JsonWriter;

/// Writes `{"type":"object","additionalProperties":false,"properties":{...}}` around what `members`
/// writes: a name that this version does not have is a mistake.
template <class Members>
void write_object(JsonWriter& json, Members members, std::string_view title = {}) {
    json.begin_object();
    if (!title.empty()) {
        json.text("$schema", "https://json-schema.org/draft/2020-12/schema");
        json.text("title", title);
    }
    json.text("type", "object");
    json.boolean("additionalProperties", false);
    json.name("properties");
    json.begin_object();
    members();
    json.end_object();
    json.end_object();
}

template <class Members>
void write_array(JsonWriter& json, std::string_view name, Members members) {
    json.name(name);
    json.begin_object();
    json.text("type", "array");
    json.name("items");
    write_object(json, members);
    json.end_object();
}

void write_types(JsonWriter& json, std::string_view type, std::string_view other = {}) {
    json.name("type");
    if (other.empty()) {
        json.text(type);
        return;
    }
    json.begin_array();
    json.text(type);
    json.text(other);
    json.end_array();
}

void write_range(JsonWriter& json, std::int64_t least, std::int64_t most) {
    write_types(json, "integer");
    json.number("minimum", least);
    json.number("maximum", most);
}

/// A member of a type, as it is taken (`given`) or as it is written.
void write_member(JsonWriter& json, std::string_view name, ValueType type, std::string_view meaning,
                  bool given) {
    json.name(name);
    json.begin_object();
    switch (type) {
        case ValueType::kText:
            write_types(json, "string");
            break;
        case ValueType::kBoolean:
            write_types(json, "boolean");
            break;
        case ValueType::kCount:
            write_range(json, INT16_MIN, INT16_MAX);
            break;
        case ValueType::kInteger:
            write_range(json, INT32_MIN, INT32_MAX);
            break;
        case ValueType::kCurrency:
            // Money may be given as text too, in which many programs keep it exact.
            write_types(json, "number", given ? "string" : "");
            break;
        case ValueType::kDate:
        case ValueType::kDateOrNull:
            write_types(json, "string", given && type == ValueType::kDate ? "" : "null");
            break;
    }
    if (type == ValueType::kDate && !given) {
        json.text("pattern", "^[0-9]{4}-[0-9]{2}-[0-9]{2}(T[0-9]{2}:[0-9]{2}:[0-9]{2})?$");
    }
    json.text("description", meaning);
    json.end_object();
}

/// The properties of a record that may be given.
template <class Record>
void write_given(JsonWriter& json, std::span<const Property<Record>> properties) {
    for (const Property<Record>& property : properties) {
        if (property.write != nullptr) {
            write_member(json, property.name, property.type, property.meaning, true);
        }
    }
}

template <class Record>
void write_texts(JsonWriter& json, std::span<const Property<Record>> fields) {
    for (const Property<Record>& field : fields) {
        write_member(json, field.name, ValueType::kText, field.meaning, false);
    }
}

void write_options(JsonWriter& json) {
    json.name("Options");
    json.begin_object();
    write_types(json, "object");
    json.text("description", "product options by id");
    json.name("additionalProperties");
    write_object(json, [&] {
        write_member(json, "Checked", ValueType::kBoolean, "whether it is selected", true);
        write_member(json, "Value", ValueType::kText, "its text", true);
        write_member(json, "Tag", ValueType::kText, "the host's own", true);
    });
    json.end_object();
}

/// The places that fields by name, and lines in their order, come from.
void write_explanation_schema(JsonWriter& json) {
    const auto origins = [&](std::string_view name) {
        write_array(json, name, [&] {
            write_member(json, "Path", ValueType::kText, "with the position of each element",
                         false);
            write_member(json, "Line", ValueType::kInteger, "of the reply's text", false);
            write_member(json, "Column", ValueType::kInteger, "likewise, in bytes", false);
        });
    };
    json.name("Fields");
    json.begin_object();
    write_types(json, "object");
    origins("additionalProperties");
    json.end_object();
    json.name("Lines");
    json.begin_object();
    write_types(json, "array");
    origins("items");
    json.end_object();
}

void write_kinds(JsonWriter& json) {
    json.name("ErrorKind");
    json.begin_object();
    json.name("enum");
    json.begin_array();
    for (auto kind = FailureKind::kMisuse; kind <= FailureKind::kInternal;
         kind = FailureKind(static_cast<std::uint8_t>(kind) + 1)) {
        json.text(failure_kind_name(kind));
    }
    json.end_array();
    json.end_object();
}

}  // namespace

void write_job_schema(JsonWriter& json) {
    write_object(
        json,
        [&] {
            for (const JobMember& member : job_members()) {
                write_member(json, member.name, member.type, member.meaning, true);
            }
            json.name("Request");
            write_object(json, [&] {
                write_given(json, request_properties());
                write_options(json);
            });
            json.name("Services");
            write_object(json, [&] {
                for_each_service([&](const Service& service) {
                    json.name(service.ServiceName());
                    write_object(json, [&] { write_given(json, service.settings()); });
                });
            });
            write_member(json, "ResponseXML", ValueType::kText, "the stored reply, of translate",
                         true);
        },
        "A job: one operation on the credit bureau of a country");
}

void write_result_schema(JsonWriter& json) {
    write_object(
        json,
        [&] {
            const auto text = [&](std::string_view name, std::string_view meaning) {
                write_member(json, name, ValueType::kText, meaning, false);
            };
            text("File", "of many replies in files: where the reply was read");
            write_member(json, "Result", ValueType::kBoolean, "whether the operation succeeded",
                         false);
            text("ErrorMessage", "why it did not, for people; else empty");
            write_kinds(json);
            text("ErrorCode", "which failure of its kind it was");
            text("Warning", "what makes the response doubtful");
            text("RequestXML", "of compose: what would be sent");
            json.name("Response");
            json.begin_object();
            json.name("anyOf");
            json.begin_array();
            json.begin_object();
            write_types(json, "null");
            json.end_object();
            write_object(json, [&] {
                for (const Property<Response>& property : response_properties()) {
                    write_member(json, property.name, property.type, property.meaning, false);
                }
                write_array(json, "ResponseElements",
                            [&] { write_texts(json, automation::response_element_properties()); });
                write_array(json, "CompanySelections",
                            [&] { write_texts(json, automation::company_selection_properties()); });
            });
            json.end_array();
            json.end_object();
            json.name("Explanation");
            write_object(json, [&] { write_explanation_schema(json); });
        },
        "The result of a job");
}

}  // namespace zr::cli
