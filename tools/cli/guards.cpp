#include "cli/guards.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "automation/json_form.h"
#include "cli/names.h"
#include "cli/nearest.h"
#include "values/convert.h"
#include "values/text.h"

namespace zr::cli {
namespace {

using automation::JsonError;
using automation::JsonValue;
using Names = std::vector<std::string>;

/// "WHAT is not known. Did you mean NAME? Known are A, B and so on." The value itself may be an
/// applicant's and is not repeated.
[[noreturn]] void unknown(const std::string& what, std::string_view value, const Names& names) {
    throw JsonError(what + " is not known." + valid_names(value, names));
}

bool contains(const Names& names, std::string_view value) {
    return std::any_of(names.begin(), names.end(), [&](const std::string& name) {
        return text::equal_ignoring_case(name, value);
    });
}

/// Request properties that are descriptions of a code table.
constexpr struct {
    std::string_view property;
    std::string_view table;
    Writable<kind::Text> Request::*member;
} kDescriptions[] = {
    {"AccountType", "AccountTypes", &Request::AccountType},
    {"Purpose", "Purposes", &Request::Purpose},
    {"StreetType", "StreetTypes", &Request::StreetType},
    {"PrevStreetType", "StreetTypes", &Request::PrevStreetType},
};

void guard_descriptions(const Service& service, const Product& product, Request& request) {
    for (const auto& row : kDescriptions) {
        const std::string& value = (request.*row.member)();
        const CodeTableItems* table = product.CodeTables().find(row.table);
        table = table == nullptr ? service.CodeTables().find(row.table) : table;
        if (value.empty() || table == nullptr || !table->ValidateDescription(value).empty()) {
            continue;
        }
        const std::string description(table->GetDescriptionFromCode(value));
        if (description.empty()) {
            Names names;
            for (const CodeTableItem& item : *table) {
                names.push_back(item.Description());
            }
            unknown(std::string(row.property), value, names);
        }
        (request.*row.member)(description);
    }
}

void guard_options(const Job& job, const Product& product) {
    Names names;
    for (const ProductOption& option : product.ProductOptions()) {
        names.push_back(option.OptionId());
    }
    for (const JsonValue& request : job.requests) {
        const JsonValue* const options = request.find("Options");
        if (options == nullptr || !options->is_object()) {
            continue;
        }
        for (const auto& [name, option] : options->members()) {
            if (!contains(names, name)) {
                unknown("Option " + std::string(text::first(name, 64)), name, names);
            }
        }
    }
}

void guard_words(const ZRCreditBureau& bureau, const Job& job) {
    // As the request takes them; it takes anything else for "unknown".
    static const Names kGenders = {"Male", "Female", "M", "F", "unknown"};
    static const Names kAustralianStates = {"ACT", "NSW", "NT", "QLD", "SA", "TAS", "VIC", "WA"};
    const struct {
        std::string_view property;
        const Names& names;
        bool applies;
    } rows[] = {
        {"Gender", kGenders, true},
        {"State", kAustralianStates, bureau.Country() == "AU"},
        {"PrevState", kAustralianStates, bureau.Country() == "AU"},
    };
    for (const auto& row : rows) {
        const std::string_view value = request_text(job, row.property);
        if (row.applies && !value.empty() && !contains(row.names, value)) {
            unknown(std::string(row.property), value, row.names);
        }
    }
}

void guard_subject(const Request& request) {
    for (const std::string& value :
         {request.LastName(), request.FirstName(), request.CompanyName(), request.CompanyNumber(),
          request.BureauFileId(), request.DriverLicenceNumber()}) {
        if (!value.empty()) {
            return;
        }
    }
    throw JsonError("Nothing is asked: the request names no person, no company and no file.");
}

void guard_time_out(const JsonValue& settings) {
    constexpr std::int32_t kLeast = 30;
    constexpr std::int32_t kMost = 300;
    const JsonValue* const value = settings.find("TimeOutSeconds");
    if (value == nullptr || value->kind() != JsonValue::Kind::kNumber) {
        return;
    }
    const Value seconds = automation::to_value(ValueType::kInteger, *value, "TimeOutSeconds");
    if (const auto number = std::get<std::int32_t>(seconds); number < kLeast || number > kMost) {
        throw JsonError(told("TimeOutSeconds") + " must be from 30 to 300.");
    }
}

void guard_settings(const ZRCreditBureau& bureau, const Job& job, const Service& service) {
    const std::string_view address = bureau.TestMode() ? "RequestURLTest" : "RequestURL";
    const std::string url = setting_text(service, address);
    const std::size_t host = url.find("://");
    const std::size_t begin = host == std::string::npos ? 0 : host + 3;
    const std::string name = url.substr(begin, url.find_first_of(":/?", begin) - begin);
    if (name.ends_with(".invalid")) {
        throw JsonError("The bureau's address is not set: give " + told(address) + ".");
    }
    const std::string sheet = setting_text(service, "XSLTFileName");
    if (!sheet.empty() && ::access(sheet.c_str(), R_OK) != 0) {
        throw JsonError("The style sheet of " + told("XSLTFileName") + " cannot be read.");
    }
    for (const SettingsLayer& layer : job.services) {
        const JsonValue* const own = layer.settings.find(service.ServiceName());
        if (layer.scope == SettingsLayer::Scope::kEvery) {
            guard_time_out(layer.settings);
        } else if (own != nullptr && own->is_object()) {
            guard_time_out(*own);
        }
    }
}

}  // namespace

std::string setting_text(const Service& service, std::string_view name) {
    const Property<Service>* const setting = service.setting(name);
    return setting == nullptr ? std::string() : std::string(text_of(setting->read(service)));
}

std::string told(std::string_view setting) {
    return std::string(setting) + " (--" + option_name(setting) + ", " + environment_name(setting) +
           ")";
}

void guard_request(const ZRCreditBureau& bureau, const Job& job, bool searches, Request& request) {
    if (!bureau.Services().Exists(request.ServiceName())) {
        return;
    }
    const Service& service = bureau.Services().Item(request.ServiceName());
    const Product* const product = service.Products().find(request.ProductId());
    if (service.Obsolete() || service.settings().empty()) {
        return;
    }
    guard_settings(bureau, job, service);
    guard_words(bureau, job);
    if (product != nullptr) {
        guard_options(job, *product);
        guard_descriptions(service, *product, request);
    }
    if (product != nullptr || searches) {
        guard_subject(request);
    }
}

}  // namespace zr::cli
