#include "platform/posix/http_secrecy.h"

#include <openssl/ssl.h>

#include <cstdlib>

namespace zr {

int log_no_keys(void* /*easy*/, void* tls_context, void* /*user*/) {
    SSL_CTX_set_keylog_callback(static_cast<SSL_CTX*>(tls_context), nullptr);
    return 0;
}

HiddenKeyLog::HiddenKeyLog()
    : value_(std::getenv("SSLKEYLOGFILE")), first_(value_ == nullptr ? '\0' : *value_) {
    if (first_ != '\0') *value_ = '\0';
}

HiddenKeyLog::~HiddenKeyLog() {
    if (first_ != '\0') *value_ = first_;
}

}  // namespace zr
