#include "zrcreditbureau/job.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

#include "automation/json_form.h"
#include "values/text.h"

namespace zr::cli {
namespace {

using automation::JsonError;
using automation::JsonValue;

std::string text_value(const JsonValue& value, std::string_view name) {
    return std::string(text_of(automation::to_value(ValueType::kText, value, name)));
}

/// The members of a job document and where each goes.
constexpr struct {
    std::string_view name;
    void (*read)(Job&, JsonValue&&, std::string_view name);
} kMembers[] = {
    {"Country", [](Job& job, JsonValue&& value,
                   std::string_view name) { job.country = text_value(value, name); }},
    {"TestMode",
     [](Job& job, JsonValue&& value, std::string_view name) {
         job.test_mode = std::get<bool>(automation::to_value(ValueType::kBoolean, value, name));
     }},
    {"DateFormat", [](Job& job, JsonValue&& value,
                      std::string_view name) { job.date_format = text_value(value, name); }},
    {"CurrencyFormat",
     [](Job& job, JsonValue&& value, std::string_view name) {
         job.currency_format = text_value(value, name);
     }},
    {"CurrencyFormatSymbol",
     [](Job& job, JsonValue&& value, std::string_view name) {
         job.currency_format_symbol = text_value(value, name);
     }},
    {"Services",
     [](Job& job, JsonValue&& value, std::string_view /*name*/) {
         job.services.push_back({SettingsLayer::Scope::kNamed, std::move(value)});
     }},
    {"Request", [](Job& job, JsonValue&& value,
                   std::string_view /*name*/) { job.requests.push_back(std::move(value)); }},
    {"Operation", [](Job& job, JsonValue&& value,
                     std::string_view name) { job.operation = text_value(value, name); }},
    {"ResponseDate",
     [](Job& job, JsonValue&& value, std::string_view name) {
         job.response_date =
             std::get<DateTime>(automation::to_value(ValueType::kDate, value, name));
     }},
    {"ResponseXML",
     [](Job& job, JsonValue&& value, std::string_view name) {
         (void)automation::to_value(ValueType::kText, value, name);
         job.response_xml = std::move(value.text());  // large: moved, not copied
     }},
};

}  // namespace

void read_job(JsonValue&& document, Job& job) {
    if (!document.is_object()) {
        throw JsonError("A job must be an object.");
    }
    for (JsonValue::Member& given : document.members()) {
        const std::string& name = given.first;
        const auto* const found = std::find_if(
            std::begin(kMembers), std::end(kMembers),
            [&](const auto& member) { return text::equal_ignoring_case(member.name, name); });
        if (found == std::end(kMembers)) {
            throw JsonError(std::string(text::first(name, 64)) + " is not a member of a job.");
        }
        found->read(job, std::move(given.second), found->name);
    }
}

std::string_view request_text(const Job& job, std::string_view property) {
    for (auto request = job.requests.rbegin(); request != job.requests.rend(); ++request) {
        if (const JsonValue* const value = request->find(property)) {
            return value->text();
        }
    }
    return {};
}

bool is_job_document(const JsonValue& document) {
    // Country alone does not tell: a request has one too.
    constexpr std::array<std::string_view, 4> kTelling = {"Request", "Services", "Operation",
                                                          "ResponseXML"};
    return std::any_of(kTelling.begin(), kTelling.end(),
                       [&](std::string_view name) { return document.find(name) != nullptr; });
}

}  // namespace zr::cli
