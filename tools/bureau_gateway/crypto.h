// Certificates, digests and codes. OpenSSL is named in the source file only.
#pragma once

#include <string>
#include <string_view>

namespace zr::gateway {

enum class CertificateKind {
    kGood,     ///< for localhost and the loopback addresses, by the authority that clients are told
    kHost,     ///< for another host name
    kExpired,  ///< of last year
    kUnknown,  ///< by an authority that nobody is told of
};

/// A certificate with its key, both in PEM.
struct Identity {
    std::string certificate;
    std::string key;
};

/// The authority of one gateway: it signs the gateway's certificates and lives in memory only.
class Authority {
  public:
    Authority();

    /// The authority's own certificate in PEM, for clients to trust.
    const std::string& certificate() const { return self_.certificate; }

    Identity issue(CertificateKind kind) const;

  private:
    explicit Authority(std::string_view name);
    Identity self_;
};

/// MD5 of the text in lower-case hexadecimal, as HTTP's digest authentication asks for.
std::string md5_hex(std::string_view text);

/// `bytes` random bytes in hexadecimal.
std::string random_hex(int bytes);

std::string base64(std::string_view text);

}  // namespace zr::gateway
