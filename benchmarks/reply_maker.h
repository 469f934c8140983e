// Replies of any size for measuring.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace zr::bench {

/// A kind of reply to measure with.
struct ReplyKind {
    std::string_view name;     ///< what the tables of figures call it
    std::string_view country;  ///< of the facade that translates it
    std::string_view service;
    std::string_view product;
    std::string (*make)(std::size_t bytes);
};

/// Every kind there is. Each makes a reply of about so many bytes, with as many records of every
/// sort as it takes; the same size always gives the same text.
std::span<const ReplyKind> reply_kinds();

/// The kind by name; null when there is none.
const ReplyKind* find_reply_kind(std::string_view name);

}  // namespace zr::bench
