// A row of a code table.
#pragma once

#include <string_view>

namespace zr::gateway {

struct CodeRow {
    std::string_view code;
    std::string_view text;
};

}  // namespace zr::gateway
