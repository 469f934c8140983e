// The operations that the commands perform, one job at a time.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "checks/reply_check.h"
#include "cli/bureau_pool.h"
#include "cli/job.h"
#include "cli/telling_transport.h"
#include "zrcreditbureau/error.h"
#include "zrcreditbureau/response.h"

namespace zr::cli {

/// What is done with a job.
enum class Operation {
    kCompose,    ///< composes the request document and sends nothing
    kEnquire,    ///< sends an enquiry and translates its reply
    kList,       ///< searches for companies
    kVerify,     ///< tests the connection of a service
    kTranslate,  ///< translates a stored reply
};

/// Whether it asks the bureau: what it gets may have been charged for and cannot be had again.
constexpr bool asks_bureau(Operation operation) {
    return operation == Operation::kEnquire || operation == Operation::kList ||
           operation == Operation::kVerify;
}

struct Outcome {
    bool result = false;
    std::string error_message;  ///< "" when the result is true
    Failure failure;            ///< the same for programs
    std::string warning{};      ///< what makes the response doubtful; "" when nothing does
    std::string request_xml{};  ///< of compose
    /// Of the others, with whatever was kept where the result is false; none where there was no
    /// job.
    std::shared_ptr<const Response> response{};
    std::vector<Finding> findings{};           ///< where the job asks for a check
    std::optional<Explanation> explanation{};  ///< and for where everything comes from
};

/// Performs one operation on job after job.
class Performer {
  public:
    explicit Performer(Operation operation);
    ~Performer();
    Performer(const Performer&) = delete;
    Performer& operator=(const Performer&) = delete;

    /// Performs a job. Throws automation::JsonError where the job cannot be understood.
    Outcome perform(const Job& job);

    Operation operation() const { return operation_; }

    /// The facade of the job's country with the job's settings, until the next call. Throws as
    /// `perform` does.
    ZRCreditBureau& bureau(const Job& job);
    /// What the last exchange was like; null where nothing is ever sent.
    const HttpRecord* record() const { return telling_ == nullptr ? nullptr : &telling_->record; }

  private:
    class CapturingTransport;

    /// The check of a service's replies, made once.
    ReplyCheck& check_of(const ServiceEngine& service, ReplyCheck::Depth depth);
    bool run(ZRCreditBureau& bureau, Request& request, const Job& job);
    bool run_checked(ZRCreditBureau& bureau, Request& request, const Job& job, Outcome& outcome);

    Operation operation_;
    CapturingTransport* capture_ = nullptr;  // the transport of compose
    TellingTransport* telling_ = nullptr;    // that of the others
    std::unique_ptr<HttpTransport> transport_;
    BureauPool bureaus_;
    std::map<std::string, std::unique_ptr<ReplyCheck>> checks_;  // by service
};

}  // namespace zr::cli
