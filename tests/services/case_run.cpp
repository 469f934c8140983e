#include "case_run.h"

#include <algorithm>
#include <stdexcept>

#include "records/component.h"
#include "values/convert.h"

namespace zr::test {
namespace {

DateTime date_of(std::string_view text) {
    const auto date = convert::to_date_time(text);
    if (!date) {
        throw std::runtime_error("not a date: " + std::string(text));
    }
    return *date;
}

Value typed_value(ValueType type, const std::string& text) {
    switch (type) {
        case ValueType::kBoolean:
            return text == "True";
        case ValueType::kCount:
        case ValueType::kInteger:
            return std::stoi(text);
        case ValueType::kCurrency:
            return convert::to_currency(text);
        case ValueType::kDate:
            return date_of(text);
        default:
            return text;
    }
}

template <class Record>
void set(std::span<const Property<Record>> properties, Record& record, std::string_view name,
         const std::string& value) {
    const auto found = std::find_if(properties.begin(), properties.end(),
                                    [name](const auto& row) { return row.name == name; });
    if (found == properties.end() || found->write == nullptr) {
        throw std::runtime_error("cannot be set: " + std::string(name));
    }
    found->write(record, typed_value(found->type, value));
}

}  // namespace

std::string shown(const Value& value) {
    struct Visitor {
        std::string operator()(Null) const { return "null"; }
        std::string operator()(std::string_view text) const { return escaped(text); }
        std::string operator()(const std::string& text) const { return escaped(text); }
        std::string operator()(bool flag) const { return flag ? "True" : "False"; }
        std::string operator()(std::int32_t count) const { return std::to_string(count); }
        std::string operator()(Currency amount) const { return amount.to_plain(); }
        std::string operator()(const DateTime& date) const { return date.to_iso(); }
    };
    return std::visit(Visitor{}, value);
}

namespace {

std::string joined(std::initializer_list<std::string_view> fields) {
    std::string line;
    for (const std::string_view field : fields) {
        line += (line.empty() ? "" : " | ") + (field.empty() ? "-" : escaped(field));
    }
    return line + "\n";
}

std::string shown_lines(const Response& response) {
    std::string text;
    for (const ResponseElement& line : response.ResponseElements()) {
        text += joined({line.ResponseGroup(), line.ResponseSubGroup(), line.ResponseName(),
                        line.ResponseDescription()});
    }
    return text;
}

std::string shown_selections(const Response& response) {
    std::string text;
    for (const CompanySelection& company : response.CompanySelections()) {
        text += joined({company.CompanyName(), company.CompanyNumber(), company.CompanyStatus(),
                        company.CompanyType(), company.CompanyTypeDescription(),
                        company.RegistrationArea(), company.BureauFileId()});
    }
    return text;
}

/// The properties that are not as Clear leaves them, without those that only repeat others or are
/// the caller's own.
std::string shown_response(const Response& response) {
    constexpr std::string_view kLeftOut[] = {"ResponseDate", "ResponseXML", "ResponseHTML",
                                             "Company", "Name"};
    const auto request = Component::make_request();
    const Response& cleared = Component::new_response(*request);
    std::string text;
    for (const auto& property : response_properties()) {
        const std::string value = shown(property.read(response));
        if (std::ranges::count(kLeftOut, property.name) == 0 &&
            value != shown(property.read(cleared))) {
            text += std::string(property.name) + " = " + value + "\n";
        }
    }
    return text;
}

std::string shown_document(const Request& request) {
    std::string text;
    for (const std::string_view line : split(request.RequestXML(), "\r")) {
        text += escaped(line) + (line.empty() ? "" : "\n");
    }
    return text;
}

bool is_run_setting(std::string_view name) {
    return name == "operation" || name == "country" || name == "service" || name == "clock" ||
           name == "response-date";
}

}  // namespace

CaseRun::CaseRun(const CaseFile& file)
    : file_(file),
      bureau_(given("country", is_of_new_zealand() ? "NZ" : "AU"),
              date_of(given("clock", "2012-06-15T14:10:00"))) {
    bureau_.ask(is_of_new_zealand() ? "enquiry_individual" : "consumer-enquiry",
                given("service", "VedaXMLAU"));
    bureau_.script().reply.body = file.section("reply");
    for (const auto& [name, value] : file.given) {
        apply(name, value);
    }
}

bool CaseRun::is_of_new_zealand() const {
    return given("service", "").find("NZ") != std::string_view::npos;
}

bool CaseRun::run() {
    const std::string_view operation = given("operation", "translate");
    ZRCreditBureau& facade = bureau_.facade;
    Request& request = *bureau_.request;
    if (operation == "translate") {
        return facade.BuildResponse(request, date_of(given("response-date", "2012-06-15")),
                                    std::string(file_.section("reply")));
    }
    if (operation == "enquiry") {
        return facade.ExecuteCreditEnquiry(request);
    }
    if (operation == "search") {
        return facade.ExecuteGetList(request);
    }
    if (operation == "verify") {
        return facade.ExecuteVerifyConnection(request.ServiceName());
    }
    throw std::runtime_error("no such operation: " + std::string(operation));
}

std::string CaseRun::actual(std::string_view section) {
    const Request& request = *bureau_.request;
    const Response& response = *bureau_.request->Response();
    if (section == "lines") {
        return shown_lines(response);
    }
    if (section == "response") {
        return shown_response(response);
    }
    if (section == "selections") {
        return shown_selections(response);
    }
    if (section == "message") {
        return escaped(bureau_.facade.ErrorMessage()) + "\n";
    }
    if (section == "document") {
        return shown_document(request);
    }
    throw std::runtime_error("no such section: " + std::string(section));
}

std::string_view CaseRun::given(std::string_view name, std::string_view otherwise) const {
    const std::string_view value = file_.given_value(name);
    return value.empty() ? otherwise : value;
}

void CaseRun::apply(const std::string& name, const std::string& value) {
    ZRCreditBureau& facade = bureau_.facade;
    const std::size_t dot = name.find('.');
    const std::string prefix = name.substr(0, dot == std::string::npos ? 0 : dot);
    const std::string member = name.substr(dot == std::string::npos ? 0 : dot + 1);
    if (prefix == "service") {
        Service& service = bureau_.service(bureau_.request->ServiceName());
        set(service.settings(), service, member, value);
    } else if (prefix == "request") {
        set(request_properties(), *bureau_.request, member, value);
    } else if (prefix == "option") {
        bureau_.request->OptionChecked(member, value == "True");
    } else if (name == "TestMode") {
        facade.TestMode(value == "True");
    } else if (name == "DateFormat") {
        facade.DateFormat(value);
    } else if (name == "CurrencyFormat") {
        facade.CurrencyFormat(value);
    } else if (name == "CurrencyFormatSymbol") {
        facade.CurrencyFormatSymbol(value);
    } else if (name == "status") {
        bureau_.script().reply.status = std::stoi(value);
        bureau_.script().reply.status_text = value.substr(value.find(' ') + 1);
    } else if (name == "failure") {
        bureau_.script().failure =
            PlatformError(std::stoi(value), value.substr(value.find(' ') + 1));
    } else if (!is_run_setting(name)) {
        throw std::runtime_error("no such setting: " + name);
    }
}

}  // namespace zr::test
