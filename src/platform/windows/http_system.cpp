// TLS by Schannel, with the component's own check of certificates.
#define SECURITY_WIN32
#include "platform/libraries/http_system.h"

#include <windows.h>

// After the system's types.
#include <schannel.h>
#include <security.h>
#include <winhttp.h>

#include <algorithm>
#include <memory>
#include <string>

#include "platform/libraries/http_address.h"
#include "platform/windows/certificates.h"
#include "platform/windows/wide_text.h"

namespace zr::http_system {
namespace {

/// The connection's security context; null without one.
CtxtHandle* security_context(CURL* easy) {
    curl_tlssessioninfo* session = nullptr;
    if (curl_easy_getinfo(easy, CURLINFO_TLS_SSL_PTR, &session) != CURLE_OK || session == nullptr ||
        session->backend != CURLSSLBACKEND_SCHANNEL) {
        return nullptr;
    }
    return static_cast<CtxtHandle*>(session->internals);
}

struct FreeCertificate {
    void operator()(const CERT_CONTEXT* certificate) const {
        CertFreeCertificateContext(certificate);
    }
};

struct FreeGlobal {
    void operator()(wchar_t* text) const { GlobalFree(text); }
};
using GlobalText = std::unique_ptr<wchar_t, FreeGlobal>;

bool is_proxy_in_environment() {
    for (const wchar_t* name : {L"http_proxy", L"https_proxy", L"all_proxy"}) {
        if (!environment(name).empty()) return true;
    }
    return false;
}

/// Of "host:port", or "http=host:port;https=host:port", the one for a scheme.
std::string proxy_for(const std::string& scheme, const std::string& list) {
    if (list.find('=') == std::string::npos) return list.substr(0, list.find_first_of("; "));
    const std::size_t at = list.find(scheme + "=");
    if (at == std::string::npos) return {};
    const std::size_t from = at + scheme.size() + 1;
    return list.substr(from, list.find_first_of("; ", from) - from);
}

/// The exceptions as the library knows them: a name and all below it, a comma between two.
std::string exceptions(std::string list) {
    std::replace(list.begin(), list.end(), ';', ',');
    std::string result;
    std::copy_if(list.begin(), list.end(), std::back_inserter(result),
                 [](char c) { return c != '*'; });
    return result;
}

}  // namespace

CURLcode start() { return curl_global_init(CURL_GLOBAL_DEFAULT); }

void set_security(CURL* easy) {
    // The library only makes the connection; see check_connection.
    set_option(easy, CURLOPT_SSL_VERIFYPEER, 0L);
    set_option(easy, CURLOPT_SSL_VERIFYHOST, 0L);
}

void set_machine_proxy(CURL* easy, const std::string& address) {
    if (is_proxy_in_environment()) return;
    WINHTTP_PROXY_INFO machine{};
    if (WinHttpGetDefaultProxyConfiguration(&machine) == 0) return;
    const GlobalText servers(machine.lpszProxy);
    const GlobalText bypass(machine.lpszProxyBypass);
    if (machine.dwAccessType != WINHTTP_ACCESS_TYPE_NAMED_PROXY || servers == nullptr) return;
    const std::string server =
        proxy_for(address.substr(0, address.find(':')), from_wide(servers.get()));
    if (server.empty()) return;
    set_option(easy, CURLOPT_PROXY, checked_proxy(server));
    if (bypass != nullptr) set_option(easy, CURLOPT_NOPROXY, exceptions(from_wide(bypass.get())));
}

curl_socket_t open_socket(const curl_sockaddr& address) {
    return WSASocketW(address.family, address.socktype, address.protocol, nullptr, 0,
                      WSA_FLAG_OVERLAPPED | WSA_FLAG_NO_HANDLE_INHERIT);
}

void check_connection(CURL* easy, const std::string& address) {
    if (!is_secure(address)) return;
    CtxtHandle* const context = security_context(easy);
    const CERT_CONTEXT* found = nullptr;
    if (context == nullptr ||
        QueryContextAttributesW(context, SECPKG_ATTR_REMOTE_CERT_CONTEXT, &found) != SEC_E_OK ||
        found == nullptr) {
        throw certificate_error(CertificateFault::kInvalid);
    }
    const std::unique_ptr<const CERT_CONTEXT, FreeCertificate> certificate(found);
    check_certificate(*certificate, host_of(address), environment(L"SSL_CERT_FILE"));
}

void record_tls(CURL* easy, HttpRecord& record) {
    CtxtHandle* const context = security_context(easy);
    SecPkgContext_CipherInfo cipher{};
    cipher.dwVersion = SECPKGCONTEXT_CIPHERINFO_V1;
    if (context == nullptr ||
        QueryContextAttributesW(context, SECPKG_ATTR_CIPHER_INFO, &cipher) != SEC_E_OK) {
        return;
    }
    constexpr DWORD kTls13 = 0x0304;
    record.tls = std::string(cipher.dwProtocol == kTls13 ? "TLSv1.3" : "TLSv1.2") + " " +
                 from_wide(cipher.szCipherSuite);
}

}  // namespace zr::http_system
