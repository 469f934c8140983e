// Whether the other end of a TLS connection is who it should be. The check is the component's own,
// so that a fault has its own error, and so that nothing depends on what the system's TLS leaves
// out.
#pragma once

// For the limit on what the system looks up.
#define CERT_CHAIN_PARA_HAS_EXTRA_FIELDS
#include <windows.h>

// After the system's types.
#include <wincrypt.h>

#include <string>

namespace zr {

/// Refuses a certificate unless its chain and its use for this host are both without a fault,
/// against the system's authorities or, where `authorities` names a file of certificates, against
/// those alone. Throws PlatformError.
void check_certificate(const CERT_CONTEXT& certificate, const std::string& host,
                       const std::wstring& authorities);

}  // namespace zr
