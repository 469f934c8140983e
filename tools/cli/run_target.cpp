#include "cli/run_target.h"

#include <algorithm>
#include <utility>

#include "cli/countries.h"
#include "cli/failure.h"
#include "cli/fingerprint.h"
#include "values/convert.h"
#include "values/text.h"
#include "zrcreditbureau/zr_credit_bureau.h"

namespace zr::cli {
namespace {

bool is_secret(std::string_view name) {
    static const std::vector<Property<Service>> kSettings = known_settings();
    return std::ranges::any_of(kSettings, [name](const Property<Service>& setting) {
        return setting.secret && text::equal_ignoring_case(setting.name, name);
    });
}

void add_value(Fingerprint& fingerprint, const automation::JsonValue& value) {
    fingerprint.add(value.text());
    fingerprint.add(value.boolean() ? "1" : "0");
    for (const auto& [name, member] : value.members()) {
        if (!is_secret(name)) {
            fingerprint.add(name);
            add_value(fingerprint, member);
        }
    }
}

/// What the run's results depend on besides the input; not the day, which is kept beside it.
std::string options_identity(const Job& job, const automation::ResponseFields& fields) {
    Fingerprint fingerprint;
    fingerprint.add(job.country);
    fingerprint.add(job.date_format.value_or("-"));
    fingerprint.add(job.currency_format.value_or("-"));
    fingerprint.add(job.currency_format_symbol.value_or("-"));
    for (const Property<Response>* const property : fields.properties) {
        fingerprint.add(property->name);
    }
    fingerprint.add(fields.elements ? "lines" : "-");
    fingerprint.add(fields.selections ? "companies" : "-");
    fingerprint.add(job.strict ? "strict" : "-");
    fingerprint.add(job.response_date ? job.response_date->to_iso() : "-");
    for (const SettingsLayer& layer : job.services) {
        add_value(fingerprint, layer.settings);
    }
    for (const automation::JsonValue& request : job.requests) {
        add_value(fingerprint, request);
    }
    return fingerprint.text();
}

/// What a line says its job's result was; nothing where it is not the result of this job.
std::optional<bool> read_result(std::string_view line, std::string_view file) {
    try {
        const automation::JsonValue result = automation::parse_json(line);
        const automation::JsonValue* const name = result.find("File");
        const automation::JsonValue* const outcome = result.find("Result");
        if ((name == nullptr ? std::string_view() : name->text()) == file && outcome != nullptr &&
            outcome->kind() == automation::JsonValue::Kind::kBoolean &&
            result.find("Response") != nullptr) {
            return outcome->boolean();
        }
    } catch (const automation::JsonError&) {
        // no result at all
    }
    return std::nullopt;
}

}  // namespace

RunTarget::RunTarget(const Batch& batch, Job& base, JobSource& source, const std::string& path) {
    const bool file = place_of(path) == Place::kFile;
    if (asks_bureau(batch.operation) && file) {
        part_.emplace(path);
    } else if (batch.results_only || batch.csv || !batch.has_results || !file ||
               !source.identity()) {
        plain_.emplace(path);
    }
    if (batch.results_only) {
        return;
    }
    if (!source.identity() && (batch.resume || batch.database)) {
        throw MisuseError(std::string(batch.resume ? "--resume" : "--format sqlite") +
                          " needs an input that can be read again: name files, folders or --input "
                          "FILE.");
    }
    const DateTime today = base.response_date.value_or(DateTime::now().date_only());
    if (plain_) {
        base.response_date = today;
    } else {
        gather(batch, base, source, path, today);
    }
}

void RunTarget::gather(const Batch& batch, Job& base, JobSource& source, const std::string& path,
                       const DateTime& today) {
    RunIdentity identity{"zrcreditbureau " + ZRCreditBureau::Version() + " " + *source.identity() +
                             " " + options_identity(base, batch.fields),
                         today.to_iso()};
    part_.emplace(path, batch.resume, identity, [&](std::string_view line, std::uint64_t number) {
        return read_result(line, source.file(number));
    });
    base.response_date = convert::to_date_time(identity.day).value_or(today);
    if (!source.skip(part_->finished())) {
        throw MisuseError(path + ".part has more results than the input has replies.");
    }
}

bool RunTarget::finish(const Batch& batch, const std::string& path, const GoesOn& goes_on) {
    if (batch.database) {
        return part_->finish([&](const std::string& results) {
            return write_database(results, path, batch.fields, goes_on);
        });
    }
    part_ ? part_->finish() : plain_->finish();
    return true;
}

}  // namespace zr::cli
