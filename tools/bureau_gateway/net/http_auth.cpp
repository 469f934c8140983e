#include "bureau_gateway/net/http_auth.h"

#include <algorithm>
#include <utility>

#include "bureau_gateway/ascii.h"
#include "bureau_gateway/crypto.h"

namespace zr::gateway {
namespace {

constexpr std::string_view kRealm = "bureau";

/// The value of `name` in a Digest header's list of name="value" pairs; "" when it is not there.
std::string_view parameter(std::string_view header, std::string_view name) {
    for (std::size_t at = header.find(name); at != std::string_view::npos;
         at = header.find(name, at + 1)) {
        const bool starts = at == 0 || header[at - 1] == ' ' || header[at - 1] == ',';
        const std::size_t equals = at + name.size();
        if (!starts || equals >= header.size() || header[equals] != '=') {
            continue;
        }
        std::string_view value = header.substr(equals + 1);
        if (value.starts_with('"')) {
            value.remove_prefix(1);
            return value.substr(0, value.find('"'));
        }
        return trim(value.substr(0, value.find(',')));
    }
    return {};
}

bool has_scheme(std::string_view header, std::string_view scheme) {
    return header.size() > scheme.size() && to_lower(header.substr(0, scheme.size())) == scheme &&
           header[scheme.size()] == ' ';
}

}  // namespace

HttpGuard::HttpGuard(HttpAuth auth, std::string user, std::string password)
    : auth_(auth), user_(std::move(user)), password_(std::move(password)), nonce_(random_hex(16)) {}

bool HttpGuard::admits(std::string_view method, std::string_view authorization) const {
    if (auth_ == HttpAuth::kNone) {
        return true;
    }
    if (auth_ == HttpAuth::kBasic) {
        return has_scheme(authorization, "basic") &&
               trim(authorization.substr(6)) == base64(user_ + ":" + password_);
    }
    if (!has_scheme(authorization, "digest")) {
        return false;
    }
    const auto value = [&](std::string_view name) {
        return std::string(parameter(authorization.substr(7), name));
    };
    if (value("username") != user_ || value("nonce") != nonce_ || value("qop") != "auth") {
        return false;
    }
    const std::string secret = md5_hex(user_ + ":" + std::string(kRealm) + ":" + password_);
    const std::string request = md5_hex(std::string(method) + ":" + value("uri"));
    return value("response") == md5_hex(secret + ":" + nonce_ + ":" + value("nc") + ":" +
                                        value("cnonce") + ":auth:" + request);
}

std::string HttpGuard::challenge() const {
    const std::string realm = "realm=\"" + std::string(kRealm) + "\"";
    switch (auth_) {
        case HttpAuth::kNone:
            return {};
        case HttpAuth::kBasic:
            return "Basic " + realm;
        case HttpAuth::kDigest:
            break;
    }
    return "Digest " + realm + ", qop=\"auth\", algorithm=MD5, nonce=\"" + nonce_ + "\"";
}

}  // namespace zr::gateway
