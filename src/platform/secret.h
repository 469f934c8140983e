// Forgetting what nobody else should find in memory that is given back.
#pragma once

#include <cstring>
#include <string>

namespace zr {

/// Overwrites all that the text has room for and leaves it empty. The compiler cannot leave it out.
inline void wipe(std::string& secret) {
    secret.resize(secret.capacity());
    char* const bytes = secret.data();
    std::memset(bytes, 0, secret.size());
    asm volatile("" : : "r"(bytes) : "memory");
    secret.clear();
}

}  // namespace zr
