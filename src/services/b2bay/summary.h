// The summary's lines, which the B2Bay reports of both countries have.
#pragma once

#include "reports/layout.h"

namespace zr::b2bay {

inline layout::Lines summary_lines() {
    using namespace layout;
    return {
        line(text_at("@name"), choice_at("@type", {{"amount", amount_at(Form::kMoneyText, ".")},
                                                   {"months", text_at(".").within("", " months")},
                                                   {"years", text_at(".").within("", " years")},
                                                   otherwise(text_at("."))}))};
}

}  // namespace zr::b2bay
