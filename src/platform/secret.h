// Forgetting what nobody else should find in memory that is given back.
#pragma once

#include <cstddef>
#include <string>

namespace zr {

/// Overwrites all that the text has room for and leaves it empty. The compiler cannot leave it out.
inline void wipe(std::string& secret) {
    secret.resize(secret.capacity());
    volatile char* const bytes = secret.data();
    for (std::size_t i = 0; i < secret.size(); ++i) bytes[i] = 0;
    secret.clear();
}

}  // namespace zr
