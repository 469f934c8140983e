#include "zrcreditbureau/error.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zr {
namespace {

TEST(ErrorText, IsOneLineOfDescriptionSourceAndNumber) {
    const struct {
        PlatformError error;
        const char* expected;
    } cases[] = {
        {{5, "D", "S"}, "D (S error 5)."},
        {{5, "D"}, "D (error 5)."},
        {{5, ""}, " (error 5)."},
        {{5, "D\r\n"}, "D (error 5)."},
        {{5, "D\r\n\r\n"}, "D\r\n (error 5)."},
        {{5, "D\n"}, "D\n (error 5)."},
        {{error_number::kTimeout, "The operation timed out", "Transport"},
         "The operation timed out (Transport error -2147012894)."},
        {{error_number::kMessageOnly, "D\r\n", "S"}, "D\r\n"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(error_text(row.error), row.expected);
        EXPECT_EQ(error_text(static_cast<const std::exception&>(row.error)), row.expected);
    }
}

TEST(ErrorText, NumbersOtherExceptionsAsUnexpected) {
    EXPECT_EQ(error_text(std::runtime_error("Out of luck\r\n")),
              "Out of luck (error -2147418113).");
    EXPECT_EQ(error_text(std::bad_alloc()), "Not enough memory.");
    try {
        throw 5;
    } catch (...) {
        EXPECT_EQ(current_error_text(), "Something unknown was thrown (error -2147418113).");
    }
}

}  // namespace
}  // namespace zr
