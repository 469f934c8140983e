// What the tests of the HTTP transport share.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "support/loopback_server.h"
#include "zrcreditbureau/error.h"
#include "zrcreditbureau/http.h"

namespace zr::test {

inline HttpRequest post(std::string url, std::string body = "<message/>") {
    HttpRequest request;
    request.url = std::move(url);
    request.body = std::move(body);
    request.content_type = "text/xml";
    return request;
}

/// More than the buffers between two programs hold.
inline std::string large_body(std::size_t megabytes = 20) {
    return std::string(megabytes << 20, 'x');
}

inline HttpReply exchange(const HttpRequest& request) {
    return make_http_transport()->exchange(request);
}

/// The error of an exchange that must fail; number 0 when it does not.
inline PlatformError failure_of(HttpTransport& transport, const HttpRequest& request) {
    try {
        return {0, "status " + std::to_string(transport.exchange(request).status)};
    } catch (const PlatformError& error) {
        return error;
    }
}

inline PlatformError failure_of(const HttpRequest& request) {
    return failure_of(*make_http_transport(), request);
}

}  // namespace zr::test
