// The lines of a reply's summary.
#pragma once

#include "reports/layout.h"

namespace zr {

/// A figure in the form that its type asks for, an amount in this one.
inline layout::Lines summary_lines(layout::Form amount) {
    using namespace layout;
    return {
        line(text_at("@name"), choice_at("@type", {{"amount", amount_at(amount, ".")},
                                                   {"months", text_at(".").within("", " months")},
                                                   {"years", text_at(".").within("", " years")},
                                                   otherwise(text_at("."))}))};
}

}  // namespace zr
