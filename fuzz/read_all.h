// Reads every property and line of a response, so that a dangling one is found.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <string>

#include "zrcreditbureau/response.h"

namespace zr::fuzz {

/// All that a host can read, as one text.
inline std::string read_all(const Response& response) {
    std::string all;
    for (const auto& property : response_properties()) {
        all += text_of(property.read(response));
    }
    for (const ResponseElement& line : response.ResponseElements()) {
        if (line.ResponseDescription().empty()) {
            std::abort();  // a line without a value must never be added
        }
        all += line.ResponseGroupSort();
        all += line.ResponseSubGroup();
        all += line.ResponseName();
        all += line.ResponseDescription();
    }
    return all;
}

}  // namespace zr::fuzz
