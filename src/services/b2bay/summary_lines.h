// Lines that the B2Bay reports of both countries have.
#pragma once

#include "reports/layout.h"

namespace zr::b2bay::lines {

using namespace zr::layout;  // the vocabulary of the tables below

inline constexpr Case kSummaryValue[] = {
    {"amount", of(Form::kMoneyText, ".")},
    {"months", text_at(".").within("", " months")},
    {"years", text_at(".").within("", " years")},
    otherwise(text_at(".")),
};

inline constexpr Line kSummaryLines[] = {
    line(text_at("@name"), choice_at("@type", kSummaryValue)),
};

}  // namespace zr::b2bay::lines
