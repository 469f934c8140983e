#include <gtest/gtest.h>

#include "zrcreditbureau/zr_string_builder.h"

namespace zr {
namespace {

TEST(StringBuilder, GrowsInLargeSteps) {
    const struct {
        std::int32_t capacity;
        std::vector<std::size_t> lengths;
        std::size_t buffer_size;
    } cases[] = {
        {4096, {}, 4096},
        {4096, {4096}, 4096},
        {4096, {5000}, 4096 + 9096},
        {4096, {32768}, 4096 + 32768},
        {4096, {40000}, 4096 + 40000},
        {40000, {40000, 1}, 40000 + 32768},
        {4096, {4096, 1}, 4096 + 4097},
        {0, {3}, 3},
        {-1, {3}, 3},
    };
    for (const auto& row : cases) {
        ZRStringBuilder builder;
        builder.Initialise(row.capacity);
        std::string expected;
        for (const std::size_t length : row.lengths) {
            builder.Append(std::string(length, 'x'));
            expected.append(length, 'x');
        }
        EXPECT_EQ(builder.buffer_size(), row.buffer_size);
        EXPECT_EQ(builder.ToString(), expected);
        EXPECT_EQ(builder.Length(), static_cast<std::int32_t>(expected.size()));
        builder.Clear();
        EXPECT_EQ(builder.buffer_size(), static_cast<std::size_t>(std::max(row.capacity, 0)));
        EXPECT_EQ(builder.ToString(), "");
        EXPECT_EQ(builder.Length(), 0);
    }
}

TEST(StringBuilder, AppendsItsOwnText) {
    ZRStringBuilder builder;
    builder.Initialise(4);
    builder.Append("abcd");
    std::string expected = "abcd";
    for (int turn = 0; turn < 8; ++turn) {
        builder.Append(builder.view().substr(1));
        expected += expected.substr(1);
        EXPECT_EQ(builder.ToString(), expected);
    }
}

TEST(StringBuilder, CountsCharacters) {
    ZRStringBuilder builder;
    EXPECT_EQ(builder.Length(), 0);
    EXPECT_EQ(builder.buffer_size(), 4096U);
    builder.Append("");
    builder.Append("caf\u00E9");
    builder.Append("\U0001F600");
    EXPECT_EQ(builder.Length(), 5);
    EXPECT_EQ(builder.ToString(), "caf\u00E9\U0001F600");
}

}  // namespace
}  // namespace zr
