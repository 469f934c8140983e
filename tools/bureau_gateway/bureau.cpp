#include "bureau_gateway/bureau.h"

#include <algorithm>
#include <array>
#include <utility>

#include "bureau_gateway/australia/desk.h"
#include "bureau_gateway/new_zealand/desk.h"
#include "bureau_gateway/random.h"

namespace zr::gateway {
namespace {

/// A path, the mode that requests posted to it must be in, and who answers them.
struct Route {
    std::string_view path;
    std::string_view mode;
    const Desk* desk;
};

constexpr std::array kRoutes = {
    Route{"/sys1", "production", &australia::kDesk},
    Route{"/cta/sys1", "test", &australia::kDesk},
    Route{"/nz/sys1", "production", &new_zealand::kDesk},
    Route{"/nz/cta/sys1", "test", &new_zealand::kDesk},
};

const Route* route_of(std::string_view path) {
    const auto route = std::find_if(kRoutes.begin(), kRoutes.end(),
                                    [&](const Route& each) { return each.path == path; });
    return route == kRoutes.end() ? nullptr : &*route;
}

/// The same request has the same id, so that replies can be compared whole.
std::string request_id_of(std::string_view document) {
    constexpr std::uint64_t kTwelveDigits = 1'000'000'000'000ull;
    const std::string digits = std::to_string(hash(document) % kTwelveDigits);
    return "R" + std::string(12 - digits.size(), '0') + digits;
}

}  // namespace

Answer refused(const Enquiry& enquiry, const Refusal& refusal) {
    const std::string& code = enquiry.message.service_code;
    return {
        write_reply(code, enquiry.request_id, [&](XmlWriter& xml) { write_refusal(xml, refusal); }),
        code, "refused"};
}

Answer rejected(const Enquiry& enquiry, std::vector<Violation> violations, ErrorForm form) {
    std::stable_sort(
        violations.begin(), violations.end(),
        [](const Violation& a, const Violation& b) { return a.position < b.position; });
    const std::string& code = enquiry.message.service_code;
    return {write_reply(code, enquiry.request_id,
                        [&](XmlWriter& xml) { write_violations(xml, violations, form); }),
            code, "errors"};
}

Bureau::Bureau(std::string user, std::string password, std::optional<Date> today)
    : user_(std::move(user)), password_(std::move(password)), today_(today) {}

bool Bureau::serves(std::string_view path) { return route_of(path) != nullptr; }

Answer Bureau::answer(std::string_view path, std::string_view document) const {
    const Route& route = *route_of(path);
    const std::string request_id = request_id_of(document);
    const auto unread = [&](const Refusal& refusal) {
        return Answer{
            write_reply("", request_id, [&](XmlWriter& xml) { write_refusal(xml, refusal); }), "-",
            "refused"};
    };
    const auto read = read_message(document, route.desk->envelope);
    if (const auto* refusal = std::get_if<Refusal>(&read)) {
        return unread(*refusal);
    }
    const auto& message = std::get<Message>(read);
    if (message.access_code != user_ || message.access_password != password_) {
        return unread(refusals::kAccessDenied);
    }
    const auto services = route.desk->services;
    const auto service = std::find_if(services.begin(), services.end(), [&](const ServiceRow& row) {
        return row.code == message.service_code;
    });
    if (service == services.end()) {
        return unread(refusals::kUnknownService);
    }
    const Enquiry enquiry{message, request_id, today_.value_or(current_date())};
    if (message.service_version != service->version) {
        return refused(enquiry, refusals::kUnknownVersion);
    }
    const bool bare = message.request.name.empty();
    if (!bare && message.request.attribute("mode") != route.mode) {
        return refused(enquiry, refusals::kWrongMode);
    }
    return route.desk->answer(enquiry);
}

}  // namespace zr::gateway
