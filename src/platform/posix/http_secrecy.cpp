#include "platform/posix/http_secrecy.h"

#include <openssl/ssl.h>

namespace zr {

int log_no_keys(void* /*easy*/, void* tls_context, void* /*user*/) {
    SSL_CTX_set_keylog_callback(static_cast<SSL_CTX*>(tls_context), nullptr);
    return 0;
}

}  // namespace zr
