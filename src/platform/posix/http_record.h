// What an exchange was like, for its record.
#pragma once

#include <curl/curl.h>

#include "platform/http.h"

namespace zr {

/// The connection's TLS version and cipher, while there is a connection.
void record_tls(CURL* easy, HttpRecord& record);

/// Everything else, when the exchange is over. Where memory ends the rest stays empty.
void record_exchange(CURL* easy, HttpRecord& record) noexcept;

}  // namespace zr
