#include "zrcreditbureau/currency.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace zr {
namespace {

constexpr std::int64_t kHighest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kLowest = std::numeric_limits<std::int64_t>::min();

TEST(Currency, WritesItselfExactly) {
    const struct {
        std::int64_t units;
        const char* fixed4;
        const char* plain;
    } cases[] = {
        {0, "0.0000", "0"},
        {1, "0.0001", "0.0001"},
        {-5000, "-0.5000", "-0.5"},
        {150009900, "15000.9900", "15000.99"},
        {1000000, "100.0000", "100"},
        {-10000, "-1.0000", "-1"},
        {kHighest, "922337203685477.5807", "922337203685477.5807"},
        {kLowest, "-922337203685477.5808", "-922337203685477.5808"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(Currency::from_units(row.units).to_fixed4(), row.fixed4);
        EXPECT_EQ(Currency::from_units(row.units).to_plain(), row.plain);
    }
}

TEST(Currency, StaysAtTheEndsOfItsRange) {
    const auto sum = [](std::int64_t left, std::int64_t right) {
        return (Currency::from_units(left) += Currency::from_units(right)).units();
    };
    EXPECT_EQ(sum(kHighest - 1, 1), kHighest);
    EXPECT_EQ(sum(kHighest, 1), kHighest);
    EXPECT_EQ(sum(kLowest, -1), kLowest);
    EXPECT_EQ(sum(kHighest, kLowest), -1);
    EXPECT_EQ(Currency::from_whole(922337203685477).units(), 9223372036854770000);
    EXPECT_EQ(Currency::from_whole(922337203685478).units(), kHighest);
    EXPECT_EQ(Currency::from_whole(-922337203685478).units(), kLowest);
}

TEST(Currency, RoundsDownToWholeDollars) {
    EXPECT_EQ(Currency::from_units(19999).floor_whole(), 1);
    EXPECT_EQ(Currency::from_units(-1).floor_whole(), -1);
    EXPECT_EQ(Currency::from_units(-20000).floor_whole(), -2);
}

}  // namespace
}  // namespace zr
