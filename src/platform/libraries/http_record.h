// What an exchange was like, for its record.
#pragma once

#include <curl/curl.h>

#include "zrcreditbureau/http.h"

namespace zr {

/// Everything but its TLS, when the exchange is over. Where memory ends the rest stays empty.
void record_exchange(CURL* easy, HttpRecord& record) noexcept;

}  // namespace zr
