#include "cli/option_values.h"

#include <utility>

#include "automation/json_form.h"
#include "cli/countries.h"
#include "cli/failure.h"
#include "cli/files.h"
#include "values/convert.h"
#include "values/text.h"

namespace zr::cli {
namespace {

using automation::JsonError;
using automation::JsonValue;

JsonValue number_value(const std::string& text, const std::string& option) {
    try {
        JsonValue value = automation::parse_json(text);
        if (value.kind() == JsonValue::Kind::kNumber) {
            return value;
        }
    } catch (const JsonError&) {
        // Not a number either: the reason that follows is the clearer one.
    }
    throw MisuseError(option + " must be a number in plain digits.");
}

JsonValue boolean_value(const std::string& text, const std::string& option) {
    for (const std::string_view word : {"true", "1", "yes", "on"}) {
        if (text::equal_ignoring_case(text, word)) {
            return JsonValue::boolean(true);
        }
    }
    for (const std::string_view word : {"false", "0", "no", "off"}) {
        if (text::equal_ignoring_case(text, word)) {
            return JsonValue::boolean(false);
        }
    }
    throw MisuseError(option + " must be true or false.");
}

/// Unlike a record, which takes what is no date for none, a command line means a date.
JsonValue date_value(const std::string& text, const std::string& option) {
    if (!convert::to_date_time(text) && !convert::to_host_date(text)) {
        throw MisuseError(option + " must be a date, for example 2012-06-15.");
    }
    return JsonValue::text(text);
}

JsonValue unchecked_value(ValueType type, const std::string& text, const std::string& option) {
    switch (type) {
        case ValueType::kText:
            return JsonValue::text(text);
        case ValueType::kBoolean:
            return boolean_value(text, option);
        case ValueType::kCount:
        case ValueType::kInteger:
        case ValueType::kCurrency:
            return number_value(text, option);
        case ValueType::kDate:
        case ValueType::kDateOrNull:
            break;
    }
    return date_value(text, option);
}

JsonValue read_json_file(const std::string& path) {
    const std::string content = read_text_file(path);
    try {
        JsonValue document = automation::parse_json(content);
        if (!document.is_object()) {
            throw JsonError("It must hold an object.");
        }
        return document;
    } catch (const JsonError& error) {
        throw MisuseError(path + ": " + error.what());
    }
}

}  // namespace

JsonValue option_value(ValueType type, const std::string& text, const std::string& option) {
    if (!text::is_valid_utf8(text)) {
        throw MisuseError(option + " must be UTF-8 text.");
    }
    JsonValue value = unchecked_value(type, text, option);
    try {
        (void)automation::to_value(type, value, option);
    } catch (const JsonError& error) {
        throw MisuseError(error.what());
    }
    return value;
}

void add_member(JsonValue& object, std::string_view name, JsonValue value) {
    object.members().emplace_back(std::string(name), std::move(value));
}

void read_request_file(const std::string& path, Job& job) {
    JsonValue document = read_json_file(path);
    if (!is_job_document(document)) {
        job.requests.push_back(std::move(document));
        return;
    }
    try {
        read_job(std::move(document), job);
    } catch (const JsonError& error) {
        throw MisuseError(path + ": " + error.what());
    }
}

void read_settings_file(const std::string& path, Job& job) {
    JsonValue document = read_json_file(path);
    if (document.members().size() == 1 &&
        text::equal_ignoring_case(document.members().front().first, "Services")) {
        JsonValue services = std::move(document.members().front().second);
        document = std::move(services);
    }
    if (!document.is_object()) {
        throw MisuseError(path + ": Services must be an object.");
    }
    // One file may serve every country; a name that no country knows is a mistake.
    for (const auto& [name, settings] : document.members()) {
        if (country_of_service(name).empty()) {
            throw MisuseError(path + ": Service '" + std::string(text::first(name, 64)) +
                              "' does not exist.");
        }
    }
    job.services.push_back({SettingsLayer::Scope::kNamedIfThere, std::move(document)});
}

}  // namespace zr::cli
