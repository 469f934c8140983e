#include "cli/operation.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "automation/json_form.h"
#include "cli/files.h"
#include "cli/guards.h"
#include "values/text.h"
#include "zrcreditbureau/error.h"

namespace zr::cli {

using automation::JsonError;
using automation::JsonValue;

/// Keeps what would be sent and sends nothing.
class Performer::CapturingTransport final : public HttpTransport {
  public:
    HttpReply exchange(const HttpRequest& request) override {
        body_ = request.body;
        throw PlatformError(error_number::kCannotConnect, "Nothing is sent.");
    }

    /// The body captured since the last call.
    std::optional<std::string> take() { return std::exchange(body_, std::nullopt); }

  private:
    std::optional<std::string> body_;
};

namespace {

/// What the facade does for a job.
using Procedure = bool (*)(ZRCreditBureau&, Request&, const Job&);

bool enquire(ZRCreditBureau& bureau, Request& request, const Job& /*job*/) {
    return bureau.ExecuteCreditEnquiry(request);
}

bool list(ZRCreditBureau& bureau, Request& request, const Job& /*job*/) {
    return bureau.ExecuteGetList(request);
}

bool verify(ZRCreditBureau& bureau, Request& request, const Job& /*job*/) {
    return bureau.ExecuteVerifyConnection(request.ServiceName());
}

bool translate(ZRCreditBureau& bureau, Request& request, const Job& job) {
    if (!job.response_xml) {
        throw JsonError("ResponseXML is missing.");
    }
    // Without a date the reply counts as received today, as a live one does.
    const DateTime date = job.response_date.value_or(DateTime::now().date_only());
    return bureau.BuildResponse(request, date, *job.response_xml);
}

/// The operations that compose a document, by the name that a job gives.
constexpr struct {
    std::string_view name;
    Procedure procedure;
} kComposed[] = {
    {"CreditEnquiry", enquire},
    {"GetList", list},
    {"VerifyConnection", verify},
};

bool compose(ZRCreditBureau& bureau, Request& request, const Job& job) {
    for (const auto& row : kComposed) {
        if (text::equal_ignoring_case(row.name, job.operation)) {
            return row.procedure(bureau, request, job);
        }
    }
    throw JsonError("Operation must be CreditEnquiry, GetList or VerifyConnection.");
}

constexpr std::array<Procedure, 5> kProcedures = {compose, enquire, list, verify, translate};

void apply_to_named(const SettingsLayer& layer, const Services& services) {
    if (!layer.settings.is_object()) {
        throw JsonError("Services must be an object.");
    }
    for (const auto& [name, settings] : layer.settings.members()) {
        if (services.Exists(name)) {
            automation::read_settings(settings, services.Item(name));
        } else if (layer.scope == SettingsLayer::Scope::kNamed) {
            throw JsonError("Service '" + std::string(text::first(name, 64)) + "' does not exist.");
        }
    }
}

void apply_to_every(const JsonValue& settings, const Services& services) {
    for (Service& service : services) {
        for (const JsonValue::Member& setting : settings.members()) {
            if (service.setting(setting.first) != nullptr) {
                JsonValue one = JsonValue::object();
                one.members().push_back(setting);
                automation::read_settings(one, service);
            }
        }
    }
}

void apply_settings(const Job& job, ZRCreditBureau& bureau) {
    if (job.test_mode) {
        bureau.TestMode(*job.test_mode);
    }
    if (job.date_format) {
        bureau.DateFormat(*job.date_format);
    }
    if (job.currency_format) {
        bureau.CurrencyFormat(*job.currency_format);
    }
    if (job.currency_format_symbol) {
        bureau.CurrencyFormatSymbol(*job.currency_format_symbol);
    }
    for (const SettingsLayer& layer : job.services) {
        if (layer.scope == SettingsLayer::Scope::kEvery) {
            apply_to_every(layer.settings, bureau.Services());
        } else {
            apply_to_named(layer, bureau.Services());
        }
    }
}

/// A reply that matched no file reads like that of a person without any record. Most often it is
/// the reply of another service.
std::string doubt(Operation operation, const Response& response, const std::string& service) {
    if ((operation != Operation::kEnquire && operation != Operation::kTranslate) ||
        !response.MatchType().empty() || !response.BureauFileId().empty()) {
        return {};
    }
    return "No matched file in the reply; is it a reply of " + service + "?";
}

/// What is wrong where a reply's text says that it is in another encoding than its file was.
std::optional<Finding> encoding_finding(std::string_view xml, std::string_view encoding) {
    const std::string declared = declared_encoding(xml);
    const auto is_ascii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
    // "UTF-16" is both of its kinds.
    if (declared.empty() || encoding.empty() || std::ranges::all_of(xml, is_ascii) ||
        text::equal_ignoring_case(text::first(encoding, declared.size()), declared)) {
        return std::nullopt;
    }
    return Finding{
        Finding::Kind::kEncoding, {}, "says " + declared + ", read as " + std::string(encoding)};
}

}  // namespace

Performer::Performer(Operation operation)
    : operation_(operation),
      transport_([&]() -> std::unique_ptr<HttpTransport> {
          if (operation != Operation::kCompose) {
              auto telling = std::make_unique<TellingTransport>();
              telling_ = telling.get();
              return telling;
          }
          auto capture = std::make_unique<CapturingTransport>();
          capture_ = capture.get();
          return capture;
      }()),
      bureaus_(*transport_) {}

Performer::~Performer() = default;

ReplyCheck& Performer::check_of(const ServiceEngine& service, ReplyCheck::Depth depth) {
    std::unique_ptr<ReplyCheck>& check = checks_[std::string(service.definition().name)];
    if (check == nullptr) {
        check = std::make_unique<ReplyCheck>(service.definition().translator(), depth);
    }
    return *check;
}

bool Performer::run(ZRCreditBureau& bureau, Request& request, const Job& job) {
    return kProcedures[static_cast<std::size_t>(operation_)](bureau, request, job);
}

bool Performer::run_checked(ZRCreditBureau& bureau, Request& request, const Job& job,
                            Outcome& outcome) {
    const Service* const face = bureau.Services().find(request.ServiceName());
    if (face == nullptr) {
        return run(bureau, request, job);
    }
    ServiceEngine& service = ServiceEngine::of(*face);
    ReplyCheck& check = check_of(service, *job.check);
    const ReplyCheck::Watching watching(check, service);
    if (!run(bureau, request, job)) {
        return false;
    }
    outcome.findings = check.take_findings();
    if (std::optional<Finding> finding = encoding_finding(*job.response_xml, job.encoding)) {
        outcome.findings.push_back(*std::move(finding));
    }
    if (*job.check == ReplyCheck::Depth::kExplanation) {
        outcome.explanation = check.take_explanation();
    }
    return true;
}

ZRCreditBureau& Performer::bureau(const Job& job) {
    if (job.country.empty()) {
        throw JsonError("Country is missing.");
    }
    ZRCreditBureau& bureau = bureaus_.bureau(job.country);
    apply_settings(job, bureau);
    return bureau;
}

Outcome Performer::perform(const Job& job) {
    ZRCreditBureau& bureau = this->bureau(job);
    if (telling_ != nullptr) {
        telling_->verbose = job.verbose;
    }
    const std::unique_ptr<Request> request = bureau.CreateRequest();
    for (const JsonValue& properties : job.requests) {
        automation::read_request(properties, *request);
    }
    if (job.guarded && (operation_ == Operation::kEnquire || operation_ == Operation::kList)) {
        guard_request(bureau, job, operation_ == Operation::kList, *request);
    }
    Outcome outcome;
    outcome.result =
        job.check ? run_checked(bureau, *request, job, outcome) : run(bureau, *request, job);
    if (capture_ != nullptr) {
        if (std::optional<std::string> body = capture_->take()) {
            outcome.result = true;
            outcome.request_xml = std::move(*body);
        }
    } else {
        outcome.response = request->Response();
    }
    if (!outcome.result) {
        outcome.error_message = bureau.ErrorMessage();
        outcome.failure = {bureau.ErrorKind(), bureau.ErrorCode()};
    } else if (capture_ == nullptr) {
        outcome.warning = doubt(operation_, *outcome.response, request->ServiceName());
        if (job.strict && !outcome.warning.empty()) {
            outcome.result = false;
            outcome.error_message = outcome.warning;
            outcome.failure = {FailureKind::kContent, "no-match"};
        }
    }
    return outcome;
}

}  // namespace zr::cli
