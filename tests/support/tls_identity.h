// Certificates made while the test runs: an authority of its own, and servers it vouches for.
#pragma once

#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/ssl.h>
#include <openssl/x509v3.h>
#include <stdlib.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

namespace zr::test {

template <auto Free>
struct OpenSslFree {
    template <typename Type>
    void operator()(Type* value) const {
        Free(value);
    }
};
using Key = std::unique_ptr<EVP_PKEY, OpenSslFree<EVP_PKEY_free>>;
using Certificate = std::unique_ptr<X509, OpenSslFree<X509_free>>;
using TlsContext = std::unique_ptr<SSL_CTX, OpenSslFree<SSL_CTX_free>>;

constexpr long kDay = 24L * 60 * 60;

struct CertificateFacts {
    std::string names = "IP:127.0.0.1";  ///< subject alternative names
    long valid_from = -kDay;             ///< seconds from now
    long valid_to = kDay;
    int highest_tls = TLS1_3_VERSION;
    bool is_authority = false;
};

/// An authority whose certificate stands in a file until the object goes.
class TestAuthority {
  public:
    TestAuthority() : key_(EVP_EC_gen("P-256")), certificate_(make(key_.get(), authority())) {
        std::string folder = std::filesystem::temp_directory_path() / "zr_authority_XXXXXX";
        folder_ = mkdtemp(folder.data());
        std::FILE* out = std::fopen(file().c_str(), "w");
        PEM_write_X509(out, certificate_.get());
        std::fclose(out);
        // In a folder of authorities each is found by the hash of its name.
        char name[16];
        std::snprintf(name, sizeof name, "%08lx.0", X509_subject_name_hash(certificate_.get()));
        std::filesystem::copy(file(), folder_ / name);
    }
    ~TestAuthority() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    TestAuthority(const TestAuthority&) = delete;
    TestAuthority& operator=(const TestAuthority&) = delete;

    std::string file() const { return folder_ / "authority.pem"; }

    std::string folder() const { return folder_; }

    /// What a server needs to speak TLS under a certificate with these facts.
    TlsContext server(const CertificateFacts& facts = {}) const {
        TlsContext context(SSL_CTX_new(TLS_server_method()));
        const Key key(EVP_EC_gen("P-256"));
        const Certificate certificate = make(key.get(), facts);
        SSL_CTX_use_certificate(context.get(), certificate.get());
        SSL_CTX_use_PrivateKey(context.get(), key.get());
        SSL_CTX_set_min_proto_version(context.get(), TLS1_VERSION);
        SSL_CTX_set_max_proto_version(context.get(), facts.highest_tls);
        SSL_CTX_set_cipher_list(context.get(), "ALL:@SECLEVEL=0");
        return context;
    }

  private:
    static CertificateFacts authority() {
        CertificateFacts facts;
        facts.names = "DNS:authority.test";
        facts.is_authority = true;
        return facts;
    }

    Certificate make(EVP_PKEY* key, const CertificateFacts& facts) const {
        static long serial = 0;
        Certificate certificate(X509_new());
        X509* x509 = certificate.get();
        X509_set_version(x509, X509_VERSION_3);
        ASN1_INTEGER_set(X509_get_serialNumber(x509), ++serial);
        X509_gmtime_adj(X509_getm_notBefore(x509), facts.valid_from);
        X509_gmtime_adj(X509_getm_notAfter(x509), facts.valid_to);
        set_name(X509_get_subject_name(x509), "Test certificate " + std::to_string(serial));
        X509* issuer = facts.is_authority ? x509 : certificate_.get();
        X509_set_issuer_name(x509, X509_get_subject_name(issuer));
        X509_set_pubkey(x509, key);
        add_extension(x509, NID_subject_alt_name, facts.names);
        add_extension(x509, NID_basic_constraints, facts.is_authority ? "CA:TRUE" : "CA:FALSE");
        X509_sign(x509, facts.is_authority ? key : key_.get(), EVP_sha256());
        return certificate;
    }

    static void set_name(X509_NAME* name, const std::string& value) {
        X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC,
                                   reinterpret_cast<const unsigned char*>(value.c_str()), -1, -1,
                                   0);
    }

    static void add_extension(X509* certificate, int id, const std::string& value) {
        X509_EXTENSION* extension = X509V3_EXT_conf_nid(nullptr, nullptr, id, value.c_str());
        X509_add_ext(certificate, extension, -1);
        X509_EXTENSION_free(extension);
    }

    Key key_;
    Certificate certificate_;
    std::filesystem::path folder_;
};

}  // namespace zr::test
