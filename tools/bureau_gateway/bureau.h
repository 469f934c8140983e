// The bureau behind the gateway: a request document in, a reply document out. What it answers, and
// with what, stands in its data: requests/services.xml and the schemas and templates named there.
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "bureau_gateway/dates.h"
#include "bureau_gateway/documents/schema.h"
#include "bureau_gateway/documents/xml.h"
#include "bureau_gateway/faults.h"
#include "bureau_gateway/settings.h"

namespace zr::gateway {

/// What a request is answered with.
struct Answer {
    std::string reply;           ///< the whole document
    std::string service_code{};  ///< for the log; only ever a code that is known
    std::string outcome{};       ///< for the log: report, candidates, pong, stored, errors, refused
    std::vector<Fault> faults{};  ///< asked for by the applicant's surname
};

/// A refusal of the whole message.
struct Refusal {
    const char* type;
    const char* code;
    const char* description;
};

class Bureau {
  public:
    /// Reads the data; throws std::runtime_error with one clear sentence.
    explicit Bureau(const Settings& settings);

    /// True when requests may be posted to this path.
    bool serves(std::string_view path) const { return desk_of(path) != nullptr; }

    /// Answers a document that was posted to a path that is served. Never throws for what the
    /// document says.
    Answer answer(std::string_view path, std::string_view document) const;

  private:
    /// A row of services.xml.
    struct Service {
        std::string code, version, when, reply, outcome, surname, keys;
        std::shared_ptr<const Schema> schema;  ///< null: asked without a request
    };
    /// One country's side of the gateway.
    struct Desk {
        std::string country, production, test;
        bool located = false;  ///< complaints tell of what type they are and where
        std::unique_ptr<const Schema> envelope;
        Document codes;
        std::map<std::string, Document> templates;
        std::vector<Service> services;
    };
    struct Enquiry;

    const Desk* desk_of(std::string_view path) const;
    Desk read_desk(const xmlNode& row) const;
    std::optional<Refusal> refusal_of(const Desk& desk, Enquiry& enquiry) const;
    static const Service* service_of(const Desk& desk, const Enquiry& enquiry);
    Answer reject(const Desk& desk, const Enquiry& enquiry,
                  const std::vector<Complaint>& complaints) const;
    Answer report(const Desk& desk, const Service& service, const Enquiry& enquiry) const;
    std::optional<std::filesystem::path> chosen(const Desk& desk, const Service& service,
                                                const Enquiry& enquiry) const;
    Answer send_chosen(const Desk& desk, const Service& service, const Enquiry& enquiry,
                       const std::filesystem::path& file) const;
    Answer make(const Desk& desk, const Service& service, const Enquiry& enquiry,
                const xmlNode& form, const std::filesystem::path& beside,
                std::size_t large_bytes) const;

    std::string user_;
    std::string password_;
    std::optional<Date> today_;
    std::filesystem::path data_;
    std::filesystem::path own_replies_;
    Document words_;
    std::vector<Desk> desks_;
};

}  // namespace zr::gateway
