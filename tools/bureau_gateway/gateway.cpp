#include "bureau_gateway/gateway.h"

#include <utility>

#include "bureau_gateway/files.h"
#include "bureau_gateway/reception.h"

namespace zr::gateway {

namespace {

/// The file of the authority's certificate, which goes with its owner when it is a temporary one.
class CertificateFile {
  public:
    CertificateFile(const std::filesystem::path& wanted, const std::string& certificate)
        : temporary_(wanted.empty()),
          path_(temporary_ ? std::filesystem::temp_directory_path() /
                                 ("bureau-gateway-" + random_hex(8) + ".pem")
                           : wanted) {
        write_file_atomically(path_, certificate);
    }
    ~CertificateFile() {
        if (temporary_) {
            std::error_code ignored;
            std::filesystem::remove(path_, ignored);
        }
    }
    CertificateFile(const CertificateFile&) = delete;
    CertificateFile& operator=(const CertificateFile&) = delete;

    const std::filesystem::path& path() const { return path_; }

  private:
    bool temporary_;
    std::filesystem::path path_;
};

}  // namespace

class Gateway::Impl {
  public:
    explicit Impl(const Settings& settings)
        : faults(settings.faults),
          certificate(settings.certificate_file, authority.certificate()),
          reception(settings, faults),
          server(settings, authority, faults,
                 [this](const HttpExchange& exchange) { return reception.answer(exchange); }) {}

    FaultBoard faults;
    Authority authority;
    CertificateFile certificate;
    Reception reception;
    Server server;  // after all that it uses, so that it ends first
};

Gateway::Gateway(const Settings& settings) : impl_(std::make_unique<Impl>(settings)) {}

Gateway::~Gateway() = default;

const std::string& Gateway::address() const { return impl_->server.address(); }

const std::filesystem::path& Gateway::certificate_file() const { return impl_->certificate.path(); }

void Gateway::set_faults(std::vector<Fault> faults) { impl_->faults.set(std::move(faults)); }

void Gateway::set_faults(const std::vector<std::string>& specs) {
    std::vector<Fault> faults;
    faults.reserve(specs.size());
    for (const std::string& each : specs) {
        faults.push_back(parse_fault(each));
    }
    set_faults(std::move(faults));
}

Counts Gateway::counts() const { return impl_->server.counts(); }

void Gateway::stop() { impl_->server.stop(); }

}  // namespace zr::gateway
