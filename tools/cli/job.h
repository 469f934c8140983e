// A job: one operation on the credit bureau of a country, as a document.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "automation/json.h"
#include "checks/reply_check.h"
#include "zrcreditbureau/date_time.h"
#include "zrcreditbureau/property.h"

namespace zr::cli {

/// Settings of services, from one of the places where they can be given.
struct SettingsLayer {
    enum class Scope {
        kNamed,         ///< an object of settings by service name
        kNamedIfThere,  ///< likewise, passing over services that the country does not have
        kEvery,         ///< one object of settings, for whichever services have them
    };
    Scope scope = Scope::kNamed;
    automation::JsonValue settings;
};

/// What a job document holds. Only the country is required of every job.
struct Job {
    std::string country;
    std::optional<bool> test_mode;
    std::optional<std::string> date_format;
    std::optional<std::string> currency_format;
    std::optional<std::string> currency_format_symbol;
    /// Each is written over those before it.
    std::vector<SettingsLayer> services;
    /// Objects of request properties, likewise.
    std::vector<automation::JsonValue> requests;
    /// What compose composes: "CreditEnquiry", "GetList" or "VerifyConnection".
    std::string operation = "CreditEnquiry";
    std::optional<DateTime> response_date;
    std::optional<std::string> response_xml;
    /// Exchanges are told on standard error; no member of the document.
    bool verbose = false;
    /// What is doubtful is a failure; no member of the document.
    bool strict = false;
    /// What is probably a mistake is refused before it is sent; likewise.
    bool guarded = true;
    /// Whether it is told what became of everything in the reply; likewise.
    std::optional<ReplyCheck::Depth> check{};
    std::string encoding{};  ///< in which the reply's file was; "" where it was no file
};

/// A plain member of a job document. Beside these it has Services, Request and ResponseXML.
struct JobMember {
    std::string_view name;
    ValueType type;
    std::string_view meaning;
    void (*set)(Job& job, const Value& value);
};
std::span<const JobMember> job_members();

/// Reads the members of a job document into `job`. Throws automation::JsonError.
void read_job(automation::JsonValue&& document, Job& job);

/// The text of a request property as the job's requests together set it; "" when none does.
std::string_view request_text(const Job& job, std::string_view property);

/// True for a document in the form of a job, false for the properties of a request alone.
bool is_job_document(const automation::JsonValue& document);

}  // namespace zr::cli
