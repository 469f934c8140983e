#include "cli/job.h"

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

constexpr JobMember kMembers[] = {
    {"Country", ValueType::kText, "AU or NZ; required unless it is an option",
     [](Job& job, const Value& value) { job.country = text_of(value); }},
    {"TestMode", ValueType::kBoolean,
     "whether the bureau's test system is addressed; true at first",
     [](Job& job, const Value& value) { job.test_mode = std::get<bool>(value); }},
    {"DateFormat", ValueType::kText, "pattern of dates in the report",
     [](Job& job, const Value& value) { job.date_format = text_of(value); }},
    {"CurrencyFormat", ValueType::kText, "pattern of amounts in the report",
     [](Job& job, const Value& value) { job.currency_format = text_of(value); }},
    {"CurrencyFormatSymbol", ValueType::kText, "pattern of summary amounts",
     [](Job& job, const Value& value) { job.currency_format_symbol = text_of(value); }},
    {"Operation", ValueType::kText,
     "what compose composes: CreditEnquiry (at first), GetList or VerifyConnection",
     [](Job& job, const Value& value) { job.operation = text_of(value); }},
    {"ResponseDate", ValueType::kDate,
     "day from which the statistics of a stored reply count back; today at first",
     [](Job& job, const Value& value) { job.response_date = std::get<DateTime>(value); }},
};

}  // namespace

void read_job(JsonValue&& document, Job& job) {
    if (!document.is_object()) {
        throw JsonError("A job must be an object.");
    }
    for (JsonValue::Member& given : document.members()) {
        const auto is = [&](std::string_view name) {
            return text::equal_ignoring_case(name, given.first);
        };
        const auto* const found = std::ranges::find_if(kMembers, is, &JobMember::name);
        if (found != std::end(kMembers)) {
            found->set(job, automation::to_value(found->type, given.second, found->name));
        } else if (is("Services")) {
            job.services.push_back({SettingsLayer::Scope::kNamed, std::move(given.second)});
        } else if (is("Request")) {
            job.requests.push_back(std::move(given.second));
        } else if (is("ResponseXML")) {
            (void)automation::to_value(ValueType::kText, given.second, "ResponseXML");
            job.response_xml = std::move(given.second.text());  // large: moved, not copied
        } else {
            throw JsonError(std::string(text::first(given.first, 64)) +
                            " is not a member of a job.");
        }
    }
}

std::span<const JobMember> job_members() { return kMembers; }

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
