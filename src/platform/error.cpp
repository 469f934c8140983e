#include "zrcreditbureau/error.h"

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
