// Lines of a person's report that both versions of the New Zealand B2Bay reports have.
#pragma once

#include "reports/layout.h"

namespace zr::b2bay::lines {

using namespace zr::layout;  // the vocabulary of the tables below

inline constexpr Piece kFirstAddress = lines_at("free-format-address[1]/address-line");
inline constexpr Piece kSecondAddress = lines_at("free-format-address[2]/address-line");

// A bankruptcy's narratives, each behind its identifier.
inline constexpr Piece kNarrative[] = {text_at("@unique-id").within("", ": "), text_at(".")};
inline constexpr Piece kNarratives = each_at("narrative", kNarrative, "\r\n");

}  // namespace zr::b2bay::lines
