#include "platform/libraries/http_address.h"

#include <curl/curl.h>

#include <memory>
#include <string_view>

#include "zrcreditbureau/error.h"

namespace zr {
namespace {

struct UrlCleanup {
    void operator()(CURLU* url) const { curl_url_cleanup(url); }
};
using Url = std::unique_ptr<CURLU, UrlCleanup>;

[[noreturn]] void refuse(const char* description) {
    throw PlatformError(error_number::kInvalidAddress, description);
}

/// Empty when the text is no address.
Url parse(const std::string& text) {
    if (text.find('\0') != std::string::npos) return {};
    Url url(curl_url());
    if (!url) throw std::bad_alloc();
    if (curl_url_set(url.get(), CURLUPART_URL, text.c_str(), CURLU_NON_SUPPORT_SCHEME) != CURLUE_OK)
        return {};
    return url;
}

/// Empty when the part is missing.
std::string part(const Url& url, CURLUPart what, unsigned flags = 0) {
    char* value = nullptr;
    if (curl_url_get(url.get(), what, &value, flags) != CURLUE_OK) return {};
    const std::unique_ptr<char, decltype(&curl_free)> owner(value, curl_free);
    return value;
}

bool has(const Url& url, CURLUPart what) {
    char* value = nullptr;
    const bool found = curl_url_get(url.get(), what, &value, 0) == CURLUE_OK;
    curl_free(value);
    return found;
}

bool names_someone(const Url& url) {
    return has(url, CURLUPART_USER) || has(url, CURLUPART_PASSWORD);
}

bool is_web(const std::string& scheme) { return scheme == "https" || scheme == "http"; }

}  // namespace

std::string checked_address(const std::string& url) {
    const Url address = parse(url);
    if (!address) refuse("The address is not valid");
    if (!is_web(part(address, CURLUPART_SCHEME)))
        refuse("The address is not valid: only https and http are supported");
    if (names_someone(address))
        refuse("The address is not valid: it must not contain a user or a password");
    return part(address, CURLUPART_URL);
}

bool is_secure(const std::string& url) { return part(parse(url), CURLUPART_SCHEME) == "https"; }

std::string host_of(const std::string& url) {
    std::string host = part(parse(url), CURLUPART_HOST, CURLU_PUNYCODE);
    if (host.ends_with('.')) host.pop_back();
    if (host.starts_with('[')) host = host.substr(1, host.find(']') - 1);
    return host;
}

std::string checked_proxy(const std::string& server) {
    const bool has_scheme = server.find("://") != std::string::npos;
    const Url proxy = parse(has_scheme ? server : "http://" + server);
    if (!proxy) refuse("The proxy server is not valid");
    const std::string scheme = part(proxy, CURLUPART_SCHEME);
    if (!is_web(scheme)) refuse("The proxy server is not valid: only http and https are supported");
    if (names_someone(proxy))
        refuse("The proxy server is not valid: it must not contain a user or a password");
    return scheme + "://" + part(proxy, CURLUPART_HOST) + ":" +
           part(proxy, CURLUPART_PORT, CURLU_DEFAULT_PORT);
}

}  // namespace zr
