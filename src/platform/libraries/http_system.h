// What of an exchange each system does in its own way: TLS, sockets, the machine's proxy.
#pragma once

#include <curl/curl.h>

#include <new>
#include <string>
#include <type_traits>

#include "platform/libraries/http_errors.h"
#include "zrcreditbureau/http.h"

namespace zr {

/// Sets an option of a handle. Throws where the library refuses it.
template <typename Value>
void set_option(CURL* easy, CURLoption option, Value value) {
    static_assert(std::is_same_v<Value, long> || std::is_same_v<Value, curl_off_t> ||
                  std::is_pointer_v<Value>);
    const CURLcode code = curl_easy_setopt(easy, option, value);
    if (code == CURLE_OUT_OF_MEMORY) throw std::bad_alloc();
    if (code != CURLE_OK) throw http_error(code, 0, {});
}

inline void set_option(CURL* easy, CURLoption option, const std::string& value) {
    set_option(easy, option, value.c_str());
}

namespace http_system {

/// Starts the library, once in a process.
CURLcode start();

/// Whom a handle trusts, and what its TLS may not do.
void set_security(CURL* easy);

/// The proxy that the machine is set up with for an address, beyond the environment's, which the
/// library knows itself.
void set_machine_proxy(CURL* easy, const std::string& address);

/// A socket that no other program inherits.
curl_socket_t open_socket(const curl_sockaddr& address);

/// Asked when a connection is made, before anything of the request is sent on it. Throws where its
/// other end is not who it should be, and the library has not seen to that.
void check_connection(CURL* easy, const std::string& address);

/// The connection's TLS version and cipher, while there is a connection.
void record_tls(CURL* easy, HttpRecord& record);

}  // namespace http_system
}  // namespace zr
