// Replies of any size for measuring.
#pragma once

#include <cstddef>
#include <string>

namespace zr::bench {

/// An Australian reply of about `bytes` bytes: one person whose credit files and public data hold
/// as many records of every kind as it takes. The same size always gives the same text.
std::string make_australian_reply(std::size_t bytes);

}  // namespace zr::bench
