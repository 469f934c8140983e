// What keeps the keys of a TLS connection from being written down.
#pragma once

namespace zr {

/// Is given a connection's TLS context (SSL_CTX) before its handshake, and undoes what the library
/// made of the environment's SSLKEYLOGFILE. In the form the transport library calls; gives its
/// "ok".
int log_no_keys(void* easy, void* tls_context, void* user);

}  // namespace zr
