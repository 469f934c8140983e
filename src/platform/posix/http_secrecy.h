// What keeps the keys of a TLS connection from being written down.
#pragma once

namespace zr {

/// Is given a connection's TLS context (SSL_CTX) before its handshake, and undoes what the library
/// made of the environment's SSLKEYLOGFILE. In the form the transport library calls; gives its
/// "ok".
int log_no_keys(void* easy, void* tls_context, void* user);

/// While one lives SSLKEYLOGFILE seems empty: the library opens the file when it is started. The
/// variable keeps its place and its length, since other threads may look at the environment.
class HiddenKeyLog {
  public:
    HiddenKeyLog();
    ~HiddenKeyLog();
    HiddenKeyLog(const HiddenKeyLog&) = delete;
    HiddenKeyLog& operator=(const HiddenKeyLog&) = delete;

  private:
    char* value_;  // null where it is not set
    char first_;
};

}  // namespace zr
