#include "bureau_gateway/invention/demonstration.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <stdexcept>
#include <utility>

#include "bureau_gateway/ascii.h"

namespace zr::gateway {
namespace {

constexpr std::size_t kMaxLargeKilobytes = 32'768;

}  // namespace

Demonstration demonstration(std::string_view family_name) {
    const std::string name = to_upper(trim(family_name));
    const auto after = [&](std::string_view prefix) -> std::optional<std::string> {
        if (!name.starts_with(prefix)) {
            return std::nullopt;
        }
        return name.substr(prefix.size());
    };
    Demonstration wanted;
    wanted.refused = name == "REFUSED";
    wanted.invalid = name == "INVALID";
    if (const auto kilobytes = after("LARGE-")) {
        std::size_t number = 0;
        std::from_chars(kilobytes->data(), kilobytes->data() + kilobytes->size(), number);
        wanted.large_bytes = std::min(number, kMaxLargeKilobytes) * 1024;
    }
    wanted.fault = after("FAULT-").value_or("");
    return wanted;
}

Answer demonstrate(const Enquiry& enquiry, const Demonstration& wanted,
                   const std::function<Answer()>& reject, const std::function<Answer()>& report) {
    if (wanted.refused) {
        return refused(enquiry, refusals::kRefused);
    }
    if (wanted.invalid) {
        return reject();
    }
    Answer answer = report();
    if (!wanted.fault.empty()) {
        try {
            answer.faults.push_back(parse_exchange_fault(wanted.fault));
        } catch (const std::invalid_argument&) {
            return refused(enquiry, refusals::kUnknownFault);
        }
    }
    return answer;
}

}  // namespace zr::gateway
