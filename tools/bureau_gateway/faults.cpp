#include "bureau_gateway/faults.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <stdexcept>
#include <utility>

#include "bureau_gateway/ascii.h"

namespace zr::gateway {
namespace {

constexpr std::uint64_t kMinute = 60'000;
constexpr std::uint64_t kLargest = 256ull << 20;

using enum FaultKind;
using V = FaultValue;

constexpr std::array kRows = {
    // kind, name, value, low, high, whole server, help
    FaultRow{kDelayAccept, "delay-accept", V::kNumber, 0, kMinute, true,
             "N milliseconds before a connection is accepted"},
    FaultRow{kDelayTls, "delay-tls", V::kNumber, 0, kMinute, true,
             "N milliseconds before the TLS handshake"},
    FaultRow{kDropConnect, "drop-connect", V::kNone, 0, 0, true,
             "close the connection before the TLS handshake"},
    FaultRow{kNotTls, "not-tls", V::kNone, 0, 0, true, "plain text instead of a TLS handshake"},
    FaultRow{kCertHost, "cert-host", V::kNone, 0, 0, true, "a certificate for another host name"},
    FaultRow{kCertExpired, "cert-expired", V::kNone, 0, 0, true, "an expired certificate"},
    FaultRow{kCertUnknown, "cert-unknown", V::kNone, 0, 0, true,
             "a certificate of an unknown authority"},
    FaultRow{kStatus, "status", V::kNumber, 200, 599, false, "HTTP status N with a short page"},
    FaultRow{kDelayHeaders, "delay-headers", V::kNumber, 0, kMinute, false,
             "N milliseconds before the reply's headers"},
    FaultRow{kDelayBody, "delay-body", V::kNumber, 0, kMinute, false,
             "N milliseconds between headers and body"},
    FaultRow{kDropBeforeHeaders, "drop-before-headers", V::kNone, 0, 0, false,
             "close the connection instead of replying"},
    FaultRow{kDropInHeaders, "drop-in-headers", V::kNone, 0, 0, false,
             "close the connection within the headers"},
    FaultRow{kDropInBody, "drop-in-body", V::kNone, 0, 0, false,
             "close the connection within a chunked body"},
    FaultRow{kTruncate, "truncate", V::kNone, 0, 0, false,
             "promise a longer body than is sent, then close"},
    FaultRow{kOversize, "oversize", V::kNumber, 1, kLargest, false,
             "a well-formed reply of at least N bytes"},
    FaultRow{kSlowBody, "slow-body", V::kNumber, 1, kMinute, false,
             "the body in sixteen pieces, N milliseconds apart"},
    FaultRow{kCharset, "charset", V::kText, 0, 0, false,
             "iso-8859-1, utf-16le, utf-16be: declared and sent; others: declared only"},
    FaultRow{kBom, "bom", V::kOptional, 0, 0, false,
             "a byte-order mark, no charset; NAME utf-16le or utf-16be: sent so"},
    FaultRow{kHtml, "html", V::kNone, 0, 0, false, "an HTML page with status 200"},
    FaultRow{kRedirect, "redirect", V::kNone, 0, 0, false, "302 to another address"},
    FaultRow{kMalformed, "malformed", V::kNone, 0, 0, false, "a reply that ends within an element"},
    FaultRow{kEntity, "entity", V::kNone, 0, 0, false, "a reply that declares entities"},
    FaultRow{kDeep, "deep", V::kNone, 0, 0, false, "elements nested 10,000 deep"},
    FaultRow{kAttributes, "attributes", V::kNone, 0, 0, false,
             "an element with 100,000 attributes"},
    FaultRow{kEmpty, "empty", V::kNone, 0, 0, false, "status 200 with an empty body"},
    FaultRow{kNotHttp, "not-http", V::kNone, 0, 0, false, "bytes that are no HTTP reply"},
};

const FaultRow& row_of(FaultKind kind) {
    return *std::find_if(kRows.begin(), kRows.end(),
                         [&](const FaultRow& row) { return row.kind == kind; });
}

[[noreturn]] void refuse(std::string_view spec, std::string_view why) {
    throw std::invalid_argument("Fault '" + std::string(spec) + "' " + std::string(why) + ".");
}

std::uint64_t parse_number(std::string_view spec, std::string_view digits, std::uint64_t low,
                           std::uint64_t high) {
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error != std::errc{} || end != digits.data() + digits.size() || number < low ||
        number > high) {
        refuse(spec, "needs a number from " + std::to_string(low) + " to " + std::to_string(high));
    }
    return number;
}

/// "delay-before-headers" is the longer name of "delay-headers", and so on.
std::string short_name(std::string_view name) {
    std::string result = to_lower(name);
    constexpr std::string_view kLong = "delay-before-";
    if (result.starts_with(kLong)) {
        result.replace(0, kLong.size(), "delay-");
    }
    return result;
}

void read_value(std::string_view spec, const FaultRow& row, std::optional<std::string_view> value,
                Fault& fault) {
    const bool given = value && !value->empty();
    if (row.value == V::kNone && value) {
        refuse(spec, "takes no value");
    }
    if (row.value == V::kText && !given) {
        refuse(spec, "needs a value");
    }
    if (row.value == V::kNumber) {
        fault.number = parse_number(spec, value.value_or(""), row.low, row.high);
    } else if (given) {
        const bool plain = std::all_of(value->begin(), value->end(), [](char c) {
            return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
                   c == '-' || c == '_' || c == '.';
        });
        if (!plain) {
            refuse(spec, "needs a value of letters, digits, '-', '_' and '.'");
        }
        fault.text = to_lower(*value);
    }
}

}  // namespace

std::span<const FaultRow> fault_rows() { return kRows; }

std::string_view name_of(FaultKind kind) { return row_of(kind).name; }

Fault parse_fault(std::string_view spec) {
    Fault fault;
    std::string_view rest = spec;
    if (const auto at = rest.rfind('@'); at != std::string_view::npos) {
        fault.count = parse_number(spec, rest.substr(at + 1), 1, 1'000'000'000);
        rest = rest.substr(0, at);
    }
    std::optional<std::string_view> value;
    if (const auto equals = rest.find('='); equals != std::string_view::npos) {
        value = rest.substr(equals + 1);
        rest = rest.substr(0, equals);
    }
    const std::string name = short_name(rest);
    const auto row = std::find_if(kRows.begin(), kRows.end(),
                                  [&](const FaultRow& each) { return each.name == name; });
    if (row == kRows.end()) {
        refuse(spec, "is of no known kind");
    }
    fault.kind = row->kind;
    read_value(spec, *row, value, fault);
    return fault;
}

Fault parse_exchange_fault(std::string_view spec) {
    Fault fault = parse_fault(spec);
    if (row_of(fault.kind).whole_server) {
        refuse(spec, "is of the whole server");
    }
    return fault;
}

void FaultBoard::set(std::vector<Fault> faults) {
    const std::lock_guard lock(mutex_);
    faults_ = std::move(faults);
}

std::optional<Fault> FaultBoard::take(FaultKind kind) {
    const std::lock_guard lock(mutex_);
    for (Fault& fault : faults_) {
        if (fault.kind != kind || fault.count == 0u) {
            continue;
        }
        if (fault.count) {
            --*fault.count;
        }
        return fault;
    }
    return std::nullopt;
}

std::vector<Fault> FaultBoard::take_exchange_faults() {
    const std::lock_guard lock(mutex_);
    std::vector<Fault> taken;
    for (Fault& fault : faults_) {
        if (row_of(fault.kind).whole_server || fault.count == 0u) {
            continue;
        }
        if (fault.count) {
            --*fault.count;
        }
        taken.push_back(fault);
    }
    return taken;
}

}  // namespace zr::gateway
