#include "platform/error.h"

#include <new>
#include <utility>

namespace zr {
namespace {

std::string compose(std::int32_t number, std::string_view description, std::string_view source) {
    if (number == error_number::kMessageOnly) {
        return std::string(description);
    }
    if (description.ends_with("\r\n")) {
        description.remove_suffix(2);
    }
    std::string text(description);
    text += " (";
    if (!source.empty()) {
        text.append(source) += ' ';
    }
    return text.append("error ").append(std::to_string(number)).append(").");
}

/// By FailureKind.
constexpr std::string_view kKindNames[] = {"",         "misuse",      "configuration", "network",
                                           "time-out", "certificate", "reply",         "refused",
                                           "content",  "limits",      "internal"};

FailureKind kind_of(std::int32_t number) {
    switch (number) {
        case error_number::kTimeout:
            return FailureKind::kTimeOut;
        case error_number::kInvalidAddress:
            return FailureKind::kConfiguration;
        case error_number::kNameNotResolved:
        case error_number::kCannotConnect:
        case error_number::kConnectionLost:
            return FailureKind::kNetwork;
        case error_number::kCertificateExpired:
        case error_number::kCertificateOtherHost:
        case error_number::kUnknownAuthority:
        case error_number::kSecurityFailure:
            return FailureKind::kCertificate;
        case error_number::kInvalidReply:
            return FailureKind::kReply;
        default:
            return FailureKind::kInternal;
    }
}

}  // namespace

PlatformError::PlatformError(std::int32_t number, std::string description, std::string source)
    : number_(number), description_(std::move(description)), source_(std::move(source)) {}

std::string error_text(const PlatformError& error) {
    return compose(error.number(), error.description(), error.source());
}

std::string error_text(const std::exception& error) {
    if (const auto* platform_error = dynamic_cast<const PlatformError*>(&error)) {
        return error_text(*platform_error);
    }
    if (dynamic_cast<const std::bad_alloc*>(&error) != nullptr) {
        return std::string(kNoMemory);
    }
    return compose(error_number::kUnexpected, error.what(), {});
}

std::string_view failure_kind_name(FailureKind kind) {
    return kKindNames[static_cast<std::size_t>(kind)];
}

Failure current_failure() {
    try {
        throw;
    } catch (const PlatformError& error) {
        return {kind_of(error.number()), std::to_string(error.number())};
    } catch (const std::bad_alloc&) {
        return no_memory();
    } catch (...) {
        return {FailureKind::kInternal, std::to_string(error_number::kUnexpected)};
    }
}

std::string current_error_text() {
    try {
        throw;
    } catch (const std::exception& error) {
        return error_text(error);
    } catch (...) {
        return compose(error_number::kUnexpected, "Something unknown was thrown", {});
    }
}

}  // namespace zr
