#include "bureau_gateway/crypto.h"

#include <openssl/err.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/rand.h>
#include <openssl/x509v3.h>

#include <array>
#include <memory>
#include <stdexcept>
#include <vector>

namespace zr::gateway {
namespace {

template <auto Free>
struct Freer {
    template <class T>
    void operator()(T* object) const {
        Free(object);
    }
};
using Key = std::unique_ptr<EVP_PKEY, Freer<EVP_PKEY_free>>;
using Certificate = std::unique_ptr<X509, Freer<X509_free>>;
using Memory = std::unique_ptr<BIO, Freer<BIO_free>>;
using Extension = std::unique_ptr<X509_EXTENSION, Freer<X509_EXTENSION_free>>;

void require(bool good) {
    if (!good) {
        std::array<char, 256> text{};
        ERR_error_string_n(ERR_get_error(), text.data(), text.size());
        throw std::runtime_error("The certificate could not be made: " + std::string(text.data()));
    }
}

std::string contents(BIO* memory) {
    char* data = nullptr;
    const long size = BIO_get_mem_data(memory, &data);
    return {data, static_cast<std::size_t>(size)};
}

Identity to_pem(X509* certificate, EVP_PKEY* key) {
    const Memory certificate_text(BIO_new(BIO_s_mem()));
    const Memory key_text(BIO_new(BIO_s_mem()));
    require(PEM_write_bio_X509(certificate_text.get(), certificate) == 1);
    require(PEM_write_bio_PrivateKey(key_text.get(), key, nullptr, nullptr, 0, nullptr, nullptr) ==
            1);
    return {contents(certificate_text.get()), contents(key_text.get())};
}

Memory reader(const std::string& text) {
    return Memory(BIO_new_mem_buf(text.data(), static_cast<int>(text.size())));
}

Key new_key() {
    Key key(EVP_EC_gen("P-256"));
    require(key != nullptr);
    return key;
}

void set_name(X509_NAME* name, const std::string& common_name) {
    const auto add = [&](const char* field, const std::string& value) {
        require(X509_NAME_add_entry_by_txt(name, field, MBSTRING_UTF8,
                                           reinterpret_cast<const unsigned char*>(value.c_str()),
                                           -1, -1, 0) == 1);
    };
    add("O", "Bureau gateway stand-in");
    add("CN", common_name);
}

void add_extension(X509* certificate, X509* issuer, int nid, const char* value) {
    X509V3_CTX context;
    X509V3_set_ctx(&context, issuer, certificate, nullptr, nullptr, 0);
    const Extension extension(X509V3_EXT_conf_nid(nullptr, &context, nid, value));
    require(extension != nullptr);
    require(X509_add_ext(certificate, extension.get(), -1) == 1);
}

constexpr long kDay = 24L * 60 * 60;

/// Days from now that a certificate is good for.
struct Validity {
    long from = -1;
    long until = 365;
};

Certificate new_certificate(const std::string& common_name, EVP_PKEY* key, Validity days) {
    Certificate certificate(X509_new());
    require(certificate != nullptr);
    X509_set_version(certificate.get(), X509_VERSION_3);
    std::array<unsigned char, 16> serial{};
    require(RAND_bytes(serial.data(), static_cast<int>(serial.size())) == 1);
    serial[0] &= 0x7F;  // a serial number is positive
    const std::unique_ptr<BIGNUM, Freer<BN_free>> number(
        BN_bin2bn(serial.data(), static_cast<int>(serial.size()), nullptr));
    BN_to_ASN1_INTEGER(number.get(), X509_get_serialNumber(certificate.get()));
    X509_gmtime_adj(X509_getm_notBefore(certificate.get()), days.from * kDay);
    X509_gmtime_adj(X509_getm_notAfter(certificate.get()), days.until * kDay);
    require(X509_set_pubkey(certificate.get(), key) == 1);
    set_name(X509_get_subject_name(certificate.get()), common_name);
    return certificate;
}

Identity sign(const Certificate& certificate, const Key& key, EVP_PKEY* signer) {
    require(X509_sign(certificate.get(), signer, EVP_sha256()) > 0);
    return to_pem(certificate.get(), key.get());
}

Identity new_authority(const std::string& name) {
    const Key key = new_key();
    const Certificate certificate = new_certificate(name, key.get(), {});
    X509_set_issuer_name(certificate.get(), X509_get_subject_name(certificate.get()));
    const auto extend = [&](int nid, const char* value) {
        add_extension(certificate.get(), certificate.get(), nid, value);
    };
    extend(NID_basic_constraints, "critical,CA:TRUE,pathlen:0");
    extend(NID_key_usage, "critical,keyCertSign,cRLSign");
    extend(NID_subject_key_identifier, "hash");
    return sign(certificate, key, key.get());
}

std::string to_hex(const unsigned char* bytes, std::size_t size) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string hex;
    for (std::size_t i = 0; i < size; ++i) {
        hex += kDigits[bytes[i] >> 4];
        hex += kDigits[bytes[i] & 15];
    }
    return hex;
}

}  // namespace

Authority::Authority() : Authority("Bureau gateway authority") {}

Authority::Authority(std::string_view name) : self_(new_authority(std::string(name))) {}

Identity Authority::issue(CertificateKind kind) const {
    if (kind == CertificateKind::kUnknown) {
        return Authority("Unknown authority").issue(CertificateKind::kGood);
    }
    const Certificate issuer(
        PEM_read_bio_X509(reader(self_.certificate).get(), nullptr, nullptr, nullptr));
    const Key signer(PEM_read_bio_PrivateKey(reader(self_.key).get(), nullptr, nullptr, nullptr));
    require(issuer && signer);

    const bool other_host = kind == CertificateKind::kHost;
    const Key key = new_key();
    const Certificate certificate =
        new_certificate(other_host ? "elsewhere.invalid" : "localhost", key.get(),
                        kind == CertificateKind::kExpired ? Validity{-365, -2} : Validity{});
    X509_set_issuer_name(certificate.get(), X509_get_subject_name(issuer.get()));
    const auto extend = [&](int nid, const char* value) {
        add_extension(certificate.get(), issuer.get(), nid, value);
    };
    extend(NID_basic_constraints, "critical,CA:FALSE");
    extend(NID_key_usage, "critical,digitalSignature");
    extend(NID_ext_key_usage, "serverAuth");
    extend(NID_subject_key_identifier, "hash");
    extend(NID_authority_key_identifier, "keyid");
    extend(NID_subject_alt_name,
           other_host ? "DNS:elsewhere.invalid" : "DNS:localhost,IP:127.0.0.1,IP:::1");
    return sign(certificate, key, signer.get());
}

std::string md5_hex(std::string_view text) {
    std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
    unsigned size = 0;
    require(EVP_Digest(text.data(), text.size(), digest.data(), &size, EVP_md5(), nullptr) == 1);
    return to_hex(digest.data(), size);
}

std::string random_hex(int bytes) {
    std::vector<unsigned char> random(static_cast<std::size_t>(bytes));
    require(RAND_bytes(random.data(), bytes) == 1);
    return to_hex(random.data(), random.size());
}

std::string base64(std::string_view text) {
    std::vector<unsigned char> encoded(4 * (text.size() / 3 + 1) + 1);
    const int size =
        EVP_EncodeBlock(encoded.data(), reinterpret_cast<const unsigned char*>(text.data()),
                        static_cast<int>(text.size()));
    return {encoded.begin(), encoded.begin() + size};
}

}  // namespace zr::gateway
