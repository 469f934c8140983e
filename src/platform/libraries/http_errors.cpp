#include "platform/libraries/http_errors.h"

#include <curl/curl.h>

#include <string>

#include "platform/http_head.h"

namespace zr {
namespace {

using namespace error_number;

constexpr const char* kTimedOut = "The operation timed out";
constexpr const char* kLost = "The connection with the server was lost";
constexpr const char* kNoConnection = "A connection with the server could not be made";
constexpr const char* kNotSecure = "A secure connection with the server could not be made";
constexpr const char* kNotHttp = "The reply of the server is not valid";
constexpr const char* kNoAuthorities = "The trusted certificates could not be read";
constexpr const char* kOtherHost = "The certificate of the server was issued for another host";
constexpr const char* kExpired = "The certificate of the server has expired or is not yet valid";
constexpr const char* kUnknownIssuer =
    "The certificate of the server was issued by an unknown authority";
constexpr const char* kBadCertificate = "The certificate of the server is not valid";

struct FailureRow {
    long code;
    std::int32_t number;
    const char* description;
};

constexpr FailureRow kFailures[] = {
    {CURLE_OPERATION_TIMEDOUT, kTimeout, kTimedOut},
    {CURLE_COULDNT_RESOLVE_HOST, kNameNotResolved, "The name of the server could not be resolved"},
    {CURLE_COULDNT_RESOLVE_PROXY, kNameNotResolved,
     "The name of the proxy server could not be resolved"},
    {CURLE_COULDNT_CONNECT, kCannotConnect, kNoConnection},
    {CURLE_PROXY, kCannotConnect, "A connection with the proxy server could not be made"},
    {CURLE_GOT_NOTHING, kConnectionLost, kLost},
    {CURLE_PARTIAL_FILE, kConnectionLost, kLost},
    {CURLE_SEND_ERROR, kConnectionLost, kLost},
    {CURLE_RECV_ERROR, kConnectionLost, kLost},
    {CURLE_SEND_FAIL_REWIND, kConnectionLost, kLost},
    {CURLE_URL_MALFORMAT, kInvalidAddress, "The address is not valid"},
    // The address was checked before, so this is a reply in another protocol or version.
    {CURLE_UNSUPPORTED_PROTOCOL, kInvalidReply, kNotHttp},
    {CURLE_WEIRD_SERVER_REPLY, kInvalidReply, kNotHttp},
    {CURLE_HTTP2, kInvalidReply, kNotHttp},
    {CURLE_BAD_CONTENT_ENCODING, kInvalidReply, kNotHttp},
    {CURLE_SSL_CONNECT_ERROR, kSecurityFailure, kNotSecure},
    {CURLE_SSL_CIPHER, kSecurityFailure, kNotSecure},
    {CURLE_SSL_ENGINE_INITFAILED, kSecurityFailure, kNotSecure},
    {CURLE_SSL_CERTPROBLEM, kSecurityFailure, kNotSecure},
    {CURLE_SSL_CLIENTCERT, kSecurityFailure, kNotSecure},
    {CURLE_USE_SSL_FAILED, kSecurityFailure, kNotSecure},
    {CURLE_SSL_CACERT_BADFILE, kSecurityFailure, kNoAuthorities},
    {CURLE_SSL_ISSUER_ERROR, kSecurityFailure, kBadCertificate},
    {CURLE_SSL_CRL_BADFILE, kSecurityFailure, kBadCertificate},
    {CURLE_SSL_PINNEDPUBKEYNOTMATCH, kSecurityFailure, kBadCertificate},
    {CURLE_SSL_INVALIDCERTSTATUS, kSecurityFailure, kBadCertificate},
};

// By the X509_V_* code of the certificate check, whose numbers are fixed.
constexpr FailureRow kCertificateFailures[] = {
    // The chain was not found at fault, so the host name was.
    {0, kCertificateOtherHost, kOtherHost},  {1, kCertificateOtherHost, kOtherHost},
    {62, kCertificateOtherHost, kOtherHost},  // host name mismatch
    {64, kCertificateOtherHost, kOtherHost},  // address mismatch
    {9, kCertificateExpired, kExpired},       // not yet valid
    {10, kCertificateExpired, kExpired},      // has expired
    {2, kUnknownAuthority, kUnknownIssuer},   // issuer not found
    {18, kUnknownAuthority, kUnknownIssuer},  // self-signed
    {19, kUnknownAuthority, kUnknownIssuer},  // self-signed in the chain
    {20, kUnknownAuthority, kUnknownIssuer},  // issuer not found locally
    {21, kUnknownAuthority, kUnknownIssuer},  // first certificate not verifiable
    {27, kUnknownAuthority, kUnknownIssuer},  // not trusted
};

template <std::size_t Size>
const FailureRow* find(const FailureRow (&rows)[Size], long code) {
    for (const FailureRow& row : rows)
        if (row.code == code) return &row;
    return nullptr;
}

PlatformError from(const FailureRow& row) { return {row.number, row.description}; }

}  // namespace

PlatformError http_error(int code, long verify_result, std::string_view detail) {
    if (code == CURLE_PEER_FAILED_VERIFICATION) {
        const FailureRow* row = find(kCertificateFailures, verify_result);
        return row != nullptr ? from(*row) : PlatformError(kSecurityFailure, kBadCertificate);
    }
    // A proxy's reply and a trailer are kept in buffers of a fixed size.
    for (const std::string_view overflow :
         {"CONNECT response too large", "Out of memory in chunked-encoding"})
        if (detail.find(overflow) != std::string_view::npos) return http_headers_too_large();
    // A malformed chunk has the code of a lost connection; only the remark tells them apart.
    if (code == CURLE_RECV_ERROR && detail.find("chunked-encoding") != std::string_view::npos)
        return {kInvalidReply, kNotHttp};
    if (const FailureRow* row = find(kFailures, code)) return from(*row);
    return {kUnexpected, "The exchange with the server failed (" + std::to_string(code) + ")"};
}

PlatformError certificate_error(CertificateFault fault) {
    switch (fault) {
        case CertificateFault::kUnknownAuthority:
            return {kUnknownAuthority, kUnknownIssuer};
        case CertificateFault::kExpired:
            return {kCertificateExpired, kExpired};
        case CertificateFault::kOtherHost:
            return {kCertificateOtherHost, kOtherHost};
        case CertificateFault::kNoAuthorities:
            return {kSecurityFailure, kNoAuthorities};
        case CertificateFault::kInvalid:
            break;
    }
    return {kSecurityFailure, kBadCertificate};
}

PlatformError http_timeout() { return {kTimeout, kTimedOut}; }

PlatformError http_connection_lost() { return {kConnectionLost, kLost}; }

}  // namespace zr
