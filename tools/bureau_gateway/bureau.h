// The bureau behind the gateway: a request document in, a reply document out.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "bureau_gateway/dates.h"
#include "bureau_gateway/desk.h"
#include "bureau_gateway/faults.h"

namespace zr::gateway {

class Bureau {
  public:
    /// `today` none: the current date of each exchange.
    Bureau(std::string user, std::string password, std::optional<Date> today);

    /// True when requests may be posted to this path.
    static bool serves(std::string_view path);

    /// Answers a document that was posted to a path that is served. Never throws for what the
    /// document says.
    Answer answer(std::string_view path, std::string_view document) const;

  private:
    std::string user_;
    std::string password_;
    std::optional<Date> today_;
};

}  // namespace zr::gateway
