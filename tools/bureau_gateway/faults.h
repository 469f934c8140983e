// Deliberate failures: what they are called, and how many exchanges each still applies to.
#pragma once

#include <cstdint>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zr::gateway {

enum class FaultKind {
    // of the server as a whole, before a request is read
    kDelayAccept,
    kDelayTls,
    kDropConnect,
    kNotTls,
    kCertHost,
    kCertExpired,
    kCertUnknown,
    // of one exchange
    kStatus,
    kDelayHeaders,
    kDelayBody,
    kDropBeforeHeaders,
    kDropInHeaders,
    kDropInBody,
    kTruncate,
    kOversize,
    kSlowBody,
    kCharset,
    kBom,
    kHtml,
    kRedirect,
    kMalformed,
    kEntity,
    kDeep,
    kAttributes,
    kEmpty,
    kNotHttp,
};

/// Which value a kind of fault is given.
enum class FaultValue { kNone, kOptional, kNumber, kText };

/// A row of the table of faults.
struct FaultRow {
    FaultKind kind;
    std::string_view name;
    FaultValue value;
    std::uint64_t low;   ///< smallest number
    std::uint64_t high;  ///< largest number: every fault is bounded
    bool whole_server;   ///< applies before a request is read, so no surname can ask for it
    std::string_view help;
};

/// Every fault, in the order of the help text.
std::span<const FaultRow> fault_rows();

/// The fault's name in the table.
std::string_view name_of(FaultKind kind);

/// One fault that was asked for.
struct Fault {
    FaultKind kind{};
    std::uint64_t number = 0;
    std::string text;
    std::optional<std::uint64_t> count;  ///< exchanges it still applies to; none: all
};

/// Reads KIND[=VALUE][@COUNT], without regard to letter case; throws std::invalid_argument with
/// one clear sentence.
Fault parse_fault(std::string_view spec);

/// As parse_fault, for the faults of one exchange only.
Fault parse_exchange_fault(std::string_view spec);

/// The faults in force, asked by every connection's thread.
class FaultBoard {
  public:
    explicit FaultBoard(std::vector<Fault> faults = {}) : faults_(std::move(faults)) {}

    void set(std::vector<Fault> faults);

    /// The first fault of this kind that still applies; its count goes down by one.
    std::optional<Fault> take(FaultKind kind);

    /// Every fault of an exchange that still applies, in the order given; their counts go down.
    std::vector<Fault> take_exchange_faults();

  private:
    std::mutex mutex_;
    std::vector<Fault> faults_;
};

}  // namespace zr::gateway
