// The gateway as an object: starts on construction, serves in background threads, ends with it.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "bureau_gateway/net/server.h"
#include "bureau_gateway/settings.h"

namespace zr::gateway {

class Gateway {
  public:
    /// Starts to listen. Throws std::invalid_argument or std::runtime_error with one clear
    /// sentence when it cannot.
    explicit Gateway(const Settings& settings = {});
    ~Gateway();
    Gateway(const Gateway&) = delete;
    Gateway& operator=(const Gateway&) = delete;

    /// "https://127.0.0.1:PORT", without a path.
    const std::string& address() const;

    /// The Australian endpoints.
    std::string production_url() const { return address() + "/sys1"; }
    std::string test_url() const { return address() + "/cta/sys1"; }

    /// The authority's certificate in PEM, for clients to trust: in a file of the settings, or else
    /// a temporary one that goes when the gateway does.
    const std::filesystem::path& certificate_file() const;

    /// Replaces the faults in force, from the next connection or exchange on.
    void set_faults(std::vector<Fault> faults);

    /// As above, each in the form KIND[=VALUE][@COUNT]; throws std::invalid_argument.
    void set_faults(const std::vector<std::string>& specs);

    Counts counts() const;

    /// Ends every connection and stops listening. May be called more than once.
    void stop();

  private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace zr::gateway
