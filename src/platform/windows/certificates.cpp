#include "platform/windows/certificates.h"

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/libraries/http_errors.h"
#include "platform/windows/wide_text.h"

namespace zr {
namespace {

struct CloseStore {
    void operator()(void* store) const { CertCloseStore(store, 0); }
};
struct FreeEngine {
    void operator()(void* engine) const { CertFreeCertificateChainEngine(engine); }
};
struct FreeChain {
    void operator()(const CERT_CHAIN_CONTEXT* chain) const { CertFreeCertificateChain(chain); }
};
using Store = std::unique_ptr<void, CloseStore>;
using Engine = std::unique_ptr<void, FreeEngine>;
using Chain = std::unique_ptr<const CERT_CHAIN_CONTEXT, FreeChain>;

// How long the system may look for an authority that this machine has not met before.
constexpr DWORD kLookUpMilliseconds = 10'000;

[[noreturn]] void refuse(CertificateFault fault) { throw certificate_error(fault); }

/// Adds one certificate in its text form; false when it is none.
bool add(HCERTSTORE store, std::string_view text) {
    const auto length = static_cast<DWORD>(text.size());
    DWORD size = 0;
    const auto read = [&](BYTE* bytes) {
        return CryptStringToBinaryA(text.data(), length, CRYPT_STRING_BASE64HEADER, bytes, &size,
                                    nullptr, nullptr) != 0;
    };
    if (!read(nullptr)) return false;
    std::vector<BYTE> bytes(size);
    return read(bytes.data()) &&
           CertAddEncodedCertificateToStore(store, X509_ASN_ENCODING, bytes.data(), size,
                                            CERT_STORE_ADD_USE_EXISTING, nullptr) != 0;
}

Store read_authorities(const std::wstring& file) {
    constexpr std::string_view kBegin = "-----BEGIN CERTIFICATE-----";
    constexpr std::string_view kEnd = "-----END CERTIFICATE-----";
    std::ifstream stream(std::filesystem::path(file), std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    Store store(CertOpenStore(CERT_STORE_PROV_MEMORY, 0, 0, CERT_STORE_CREATE_NEW_FLAG, nullptr));
    bool found = false;
    for (std::size_t from = 0; store && (from = text.find(kBegin, from)) != std::string::npos;) {
        const std::size_t end = text.find(kEnd, from);
        if (end == std::string::npos) break;
        const std::size_t to = end + kEnd.size();
        found = add(store.get(), std::string_view(text).substr(from, to - from)) || found;
        from = to;
    }
    if (!found) refuse(CertificateFault::kNoAuthorities);
    return store;
}

/// An engine that trusts these authorities and no others.
Engine engine_for(HCERTSTORE authorities) {
    CERT_CHAIN_ENGINE_CONFIG settings{};
    // The structure as it was when it learned of exclusive roots: a longer one is not known
    // everywhere.
    settings.cbSize = offsetof(CERT_CHAIN_ENGINE_CONFIG, dwExclusiveFlags);
    settings.hExclusiveRoot = authorities;
    HCERTCHAINENGINE engine = nullptr;
    if (CertCreateCertificateChainEngine(&settings, &engine) == 0 || engine == nullptr) {
        refuse(CertificateFault::kNoAuthorities);
    }
    return Engine(engine);
}

Chain chain_of(const CERT_CONTEXT& certificate, HCERTCHAINENGINE engine) {
    char usage[] = szOID_PKIX_KP_SERVER_AUTH;
    LPSTR usages[] = {usage};
    CERT_CHAIN_PARA wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.RequestedUsage.dwType = USAGE_MATCH_TYPE_AND;
    wanted.RequestedUsage.Usage = {1, usages};
    wanted.dwUrlRetrievalTimeout = kLookUpMilliseconds;
    const CERT_CHAIN_CONTEXT* chain = nullptr;
    if (CertGetCertificateChain(engine, &certificate, nullptr, certificate.hCertStore, &wanted, 0,
                                nullptr, &chain) == 0 ||
        chain == nullptr) {
        refuse(CertificateFault::kInvalid);
    }
    return Chain(chain);
}

/// In the order in which the faults of a chain are told.
struct ChainFault {
    DWORD bits;
    CertificateFault fault;
};
constexpr ChainFault kChainFaults[] = {
    {CERT_TRUST_IS_UNTRUSTED_ROOT | CERT_TRUST_IS_PARTIAL_CHAIN,
     CertificateFault::kUnknownAuthority},
    {CERT_TRUST_IS_NOT_TIME_VALID, CertificateFault::kExpired},
    {~DWORD{0}, CertificateFault::kInvalid},
};

void check_chain(const CERT_CHAIN_CONTEXT& chain) {
    for (const auto& [bits, fault] : kChainFaults) {
        if ((chain.TrustStatus.dwErrorStatus & bits) != 0) refuse(fault);
    }
    if (chain.cChain == 0) refuse(CertificateFault::kInvalid);
}

CertificateFault policy_fault(DWORD error) {
    switch (static_cast<HRESULT>(error)) {
        case CERT_E_CN_NO_MATCH:
            return CertificateFault::kOtherHost;
        case CERT_E_EXPIRED:
            return CertificateFault::kExpired;
        case CERT_E_UNTRUSTEDROOT:
        case CERT_E_CHAINING:
            return CertificateFault::kUnknownAuthority;
        default:
            return CertificateFault::kInvalid;
    }
}

void check_policy(const CERT_CHAIN_CONTEXT& chain, std::wstring host) {
    SSL_EXTRA_CERT_CHAIN_POLICY_PARA server{};
    server.cbSize = sizeof server;
    server.dwAuthType = AUTHTYPE_SERVER;
    server.pwszServerName = host.data();
    CERT_CHAIN_POLICY_PARA policy{};
    policy.cbSize = sizeof policy;
    policy.pvExtraPolicyPara = &server;
    CERT_CHAIN_POLICY_STATUS status{};
    status.cbSize = sizeof status;
    if (CertVerifyCertificateChainPolicy(CERT_CHAIN_POLICY_SSL, &chain, &policy, &status) == 0) {
        refuse(CertificateFault::kInvalid);
    }
    if (status.dwError != 0) refuse(policy_fault(status.dwError));
}

}  // namespace

void check_certificate(const CERT_CONTEXT& certificate, const std::string& host,
                       const std::wstring& authorities) {
    const Store store = authorities.empty() ? nullptr : read_authorities(authorities);
    const Engine engine = store ? engine_for(store.get()) : nullptr;
    const Chain chain = chain_of(certificate, engine.get());
    check_chain(*chain);
    check_policy(*chain, to_wide(host));
}

}  // namespace zr
