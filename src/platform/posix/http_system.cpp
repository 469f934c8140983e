// TLS by OpenSSL, which is named here only.
#include "platform/libraries/http_system.h"

#include <openssl/ssl.h>
#include <sys/socket.h>

#include <cstdlib>

namespace zr::http_system {
namespace {

/// Undoes what the library made of SSLKEYLOGFILE: the keys of a connection are written down
/// nowhere. Is given its TLS context before the handshake.
int log_no_keys(void* /*easy*/, void* tls_context, void* /*user*/) {
    SSL_CTX_set_keylog_callback(static_cast<SSL_CTX*>(tls_context), nullptr);
    return CURLE_OK;
}

/// While one lives SSLKEYLOGFILE seems empty: the library opens the file when it is started. The
/// variable keeps its place and its length, since other threads may look at the environment.
class HiddenKeyLog {
  public:
    HiddenKeyLog()
        : value_(std::getenv("SSLKEYLOGFILE")), first_(value_ == nullptr ? '\0' : *value_) {
        if (first_ != '\0') *value_ = '\0';
    }
    ~HiddenKeyLog() {
        if (first_ != '\0') *value_ = first_;
    }
    HiddenKeyLog(const HiddenKeyLog&) = delete;
    HiddenKeyLog& operator=(const HiddenKeyLog&) = delete;

  private:
    char* value_;  // null where it is not set
    char first_;
};

/// Null when the variable is unset or empty.
const char* environment(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr && *value != '\0' ? value : nullptr;
}

void set_authorities(CURL* easy) {
    const char* file = environment("SSL_CERT_FILE");
    const char* folder = environment("SSL_CERT_DIR");
    // The system's bundle alone: the library reads one again for every connection when a folder is
    // named beside it, which takes longer than all else.
    if (file == nullptr && folder == nullptr) file = curl_version_info(CURLVERSION_NOW)->cainfo;
    if (file == nullptr && folder == nullptr) return;
    // Both are set even when one is null: those that are named replace the system's.
    set_option(easy, CURLOPT_CAINFO, file);
    set_option(easy, CURLOPT_CAPATH, folder);
    set_option(easy, CURLOPT_PROXY_CAINFO, file);
    set_option(easy, CURLOPT_PROXY_CAPATH, folder);
}

}  // namespace

CURLcode start() {
    const HiddenKeyLog hidden;
    return curl_global_init(CURL_GLOBAL_DEFAULT);
}

void set_security(CURL* easy) {
    set_option(easy, CURLOPT_SSL_VERIFYPEER, 1L);
    set_option(easy, CURLOPT_SSL_VERIFYHOST, 2L);
    set_option(easy, CURLOPT_SSL_CTX_FUNCTION, &log_no_keys);
    set_authorities(easy);
}

void set_machine_proxy(CURL* /*easy*/, const std::string& /*address*/) {}

curl_socket_t open_socket(const curl_sockaddr& address) {
    return ::socket(address.family, address.socktype | SOCK_CLOEXEC, address.protocol);
}

void check_connection(CURL* /*easy*/, const std::string& /*address*/) {}

void record_tls(CURL* easy, HttpRecord& record) {
    curl_tlssessioninfo* session = nullptr;
    if (curl_easy_getinfo(easy, CURLINFO_TLS_SSL_PTR, &session) != CURLE_OK || session == nullptr ||
        session->backend != CURLSSLBACKEND_OPENSSL || session->internals == nullptr) {
        return;
    }
    const auto* const tls = static_cast<const SSL*>(session->internals);
    record.tls = std::string(SSL_get_version(tls)) + " " + SSL_get_cipher_name(tls);
}

}  // namespace zr::http_system
