// The transport library's failures as the platform's errors.
#pragma once

#include <string_view>

#include "zrcreditbureau/error.h"

namespace zr {

/// The error of a failed exchange: `code` is the library's result, `verify_result` what the check
/// of the certificate gave, `detail` the library's own remark, which only helps to tell failures
/// apart and is not shown.
PlatformError http_error(int code, long verify_result, std::string_view detail);

/// What is wrong with a server's certificate.
enum class CertificateFault { kUnknownAuthority, kExpired, kOtherHost, kInvalid, kNoAuthorities };
PlatformError certificate_error(CertificateFault fault);

PlatformError http_timeout();
PlatformError http_connection_lost();

}  // namespace zr
