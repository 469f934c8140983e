// The platform's error object: what went wrong, by number, description and source.
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace zr {

/// Error numbers as the platform writes them: signed 32-bit decimals.
namespace error_number {
constexpr std::int32_t from_hresult(std::uint32_t value) {
    return static_cast<std::int32_t>(value);
}
/// Text alone, without source and number: see error_text.
inline constexpr std::int32_t kMessageOnly = 65535;
inline constexpr std::int32_t kApplicationFirst = from_hresult(0x80040000);
inline constexpr std::int32_t kTimeout = from_hresult(0x80072EE2);
inline constexpr std::int32_t kInvalidAddress = from_hresult(0x80072EE5);
inline constexpr std::int32_t kNameNotResolved = from_hresult(0x80072EE7);
inline constexpr std::int32_t kCannotConnect = from_hresult(0x80072EFD);
inline constexpr std::int32_t kConnectionLost = from_hresult(0x80072EFE);
inline constexpr std::int32_t kCertificateExpired = from_hresult(0x80072F05);
inline constexpr std::int32_t kCertificateOtherHost = from_hresult(0x80072F06);
inline constexpr std::int32_t kUnknownAuthority = from_hresult(0x80072F0D);
inline constexpr std::int32_t kInvalidReply = from_hresult(0x80072F78);
inline constexpr std::int32_t kSecurityFailure = from_hresult(0x80072F8F);
/// An unexpected failure inside the component itself.
inline constexpr std::int32_t kUnexpected = from_hresult(0x8000FFFF);
/// A collection has no item under the key or position asked for.
inline constexpr std::int32_t kItemNotFound = 5;
/// A collection already holds an item under the key.
inline constexpr std::int32_t kDuplicateKey = 457;
}  // namespace error_number

/// A failure with the platform's number, a description for people and, where one is known, the
/// source that raised it.
class PlatformError : public std::exception {
  public:
    PlatformError(std::int32_t number, std::string description, std::string source = {});

    std::int32_t number() const { return number_; }
    const std::string& description() const { return description_; }
    const std::string& source() const { return source_; }
    const char* what() const noexcept override { return description_.c_str(); }

  private:
    std::int32_t number_;
    std::string description_;
    std::string source_;
};

/// The error as one line: description + " (" + source and a blank where there is one + "error " +
/// number + ")."; a final CR LF of the description is dropped. Number 65535 gives the description
/// alone.
std::string error_text(const PlatformError& error);

/// The same of any exception: those that are not a PlatformError carry number kUnexpected. Where
/// memory ended the text is kNoMemory alone.
std::string error_text(const std::exception& error);

/// The same of whatever is being caught.
std::string current_error_text();

/// What kind of failure it was: enough to decide what to do next without reading the reason.
enum class FailureKind : std::uint8_t {
    kNone,
    kMisuse,         ///< the call or the request; nothing was sent
    kConfiguration,  ///< the settings of the deployment: address, credentials, proxy
    kNetwork,        ///< the bureau was not reached, or its server cannot answer now
    kTimeOut,        ///< no answer in time; the bureau may have the enquiry
    kCertificate,    ///< no secure connection
    kReply,          ///< what came is no reply of the bureau
    kRefused,        ///< the bureau's gateway refused the message
    kContent,        ///< the bureau rejected the enquiry's content
    kLimits,         ///< a bound was passed, or memory ended
    kInternal,       ///< something unexpected
};

/// A failure as programs read it.
struct Failure {
    FailureKind kind = FailureKind::kNone;
    /// Which one of its kind: a platform number, an HTTP status, the parser's or the bureau's code,
    /// or a word.
    std::string code;
};

/// "misuse", "time-out"; "" for none.
std::string_view failure_kind_name(FailureKind kind);

/// A misuse by its word.
inline Failure misuse(const char* word) { return {FailureKind::kMisuse, word}; }

/// The failure that memory ended.
inline Failure no_memory() { return {FailureKind::kLimits, "memory"}; }

/// Whatever is being caught.
Failure current_failure();

inline constexpr std::string_view kNoMemory = "Not enough memory.";

}  // namespace zr
