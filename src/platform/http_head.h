// The heads of the replies of one exchange, line by line as they come in: what they say, and how
// much of them is borne.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "zrcreditbureau/error.h"

namespace zr {

/// The error of an exchange whose replies' heads are more than is borne.
PlatformError http_headers_too_large();

/// Challenges, interim replies, a proxy's replies and the trailers behind a body all count.
class HttpHeads {
  public:
    // Bounds on all lines of an exchange together.
    static constexpr std::int64_t kMostBytes = std::int64_t{64} << 10;
    static constexpr int kMostLines = 256;
    /// The challenge, and two answers that were refused: one may have been stale.
    static constexpr int kMostRefusals = 3;

    /// Takes the next line, an empty one at the end of a head. Throws PlatformError(kInvalidReply)
    /// when there is too much, and for a length that is no number or not the only one.
    void take(std::string_view line);

    std::int64_t bytes() const { return bytes_; }

    /// True when the last head has come to its end.
    bool is_complete() const { return is_complete_; }

    /// The reason phrase of the last reply, may be empty.
    const std::string& status_text() const { return status_text_; }

    /// True when the server, or the proxy at one stretch, has refused so often that it gets no
    /// further answer.
    bool is_refused() const {
        return refusals_ >= kMostRefusals || proxy_refusals_ >= kMostRefusals;
    }

  private:
    void begin(std::string_view status_line);
    void take_field(std::string_view line);

    std::int64_t bytes_ = 0;
    int lines_ = 0;
    int refusals_ = 0;
    int proxy_refusals_ = 0;
    bool status_line_is_next_ = true;
    bool is_complete_ = false;
    std::string status_text_;
    std::optional<std::uint64_t> length_;  // of the last reply
};

}  // namespace zr
