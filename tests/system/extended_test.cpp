#include "platform/system/extended.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

namespace vorn::test {

namespace {

constexpr int Least = std::numeric_limits<int>::min();
constexpr int Most = std::numeric_limits<int>::max();

/// The same in the processor's own extended floats, whose rounding is to nearest, ties to even.
int Reference(int value, int tenths)
{
    const long double factor = static_cast<long double>(tenths) / 10;
    const long double product = std::nearbyint(static_cast<long double>(value) * factor);
    return static_cast<int>(std::clamp(product, static_cast<long double>(Least), static_cast<long double>(Most)));
}

} // namespace

TEST(ExtendedTest, TimesTenthsRoundsTheProductAndThenTiesToEven)
{
    struct Case {
        int value, tenths, expected;
    };
    for (const auto& [value, tenths, expected] : std::initializer_list<Case>{
             {100, 11, 110},
             {110, 11, 121},
             {55, 11, 60}, // 60.5
             {5, 11, 6},   // 5.5
             {15, 11, 16}, // 16.5
             {25, 11, 28}, // 27.5
             {100, 9, 90},
             {45, 9, 40}, // 40.5
             {15, 9, 14}, // 13.5
             {5, 9, 4},   // 4.5
             {1, 9, 1},
             {0, 11, 0},
             {-55, 11, -60},
             {Most, 11, Most},
             {Least, 11, Least},
             {Most, 9, 1932735282},
         })
        EXPECT_EQ(TimesTenths(value, tenths), expected) << value << " * " << tenths << "/10";
}

TEST(ExtendedTest, TimesTenthsAgreesWithAProcessorThatHasExtendedFloats)
{
    if constexpr (std::numeric_limits<long double>::digits != 64) {
        GTEST_SKIP() << "no extended floats here";
    } else {
        for (int value = -100'000; value <= 100'000; ++value)
            for (const int tenths : {9, 11})
                ASSERT_EQ(TimesTenths(value, tenths), Reference(value, tenths)) << value << " * " << tenths;
        std::mt19937 random(20);
        std::uniform_int_distribution<int> values(Least, Most);
        for (int i = 0; i < 200'000; ++i) {
            const int value = values(random);
            for (const int tenths : {9, 11})
                ASSERT_EQ(TimesTenths(value, tenths), Reference(value, tenths)) << value << " * " << tenths;
        }
    }
}

TEST(ExtendedTest, RoundHalfEvenTakesTheEvenOneOfTwoNeighbours)
{
    struct Case {
        double value;
        int expected;
    };
    for (const auto& [value, expected] : std::initializer_list<Case>{
             {0.5, 0},
             {1.5, 2},
             {62.5, 62},
             {87.5, 88},
             {-0.5, 0},
             {-1.5, -2},
             {-2.5, -2},
             {2.4999999999999996, 2},
             {0.49999999999999994, 0},
             {-314.6, -315},
             {2147483646.5, 2147483646},
             {1e300, Most},
             {-1e300, Least},
             {std::numeric_limits<double>::infinity(), Most},
             {std::nan(""), 0},
         })
        EXPECT_EQ(RoundHalfEven(value), expected) << value;
}

} // namespace vorn::test
