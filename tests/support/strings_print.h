#pragma once

#include "platform/system/strings.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace vorn {

// Found by the test framework beside the types, so that a failure shows values in place of bytes.

inline void PrintTo(const TPoint& p, std::ostream* out)
{
    *out << '(' << p.X << ", " << p.Y << ')';
}

inline void PrintTo(const TRect& r, std::ostream* out)
{
    *out << '[' << r.Left << ", " << r.Top << ", " << r.Right << ", " << r.Bottom << ']';
}

} // namespace vorn

namespace vorn::test {

/// A text as failures should show it: EXPECT_EQ(Utf8(a), Utf8(b)) prints accents as accents.
inline std::string Utf8(StringView text)
{
    return ToUtf8(text);
}

/// Runs `action` and gives the message of the E that it raises; fails the test if it raises nothing or
/// something else.
template <typename E, typename F>
std::string MessageOf(F action)
{
    try {
        action();
    } catch (const E& e) {
        return e.what();
    } catch (const std::exception& e) {
        ADD_FAILURE() << "another exception was raised: " << e.what();
        return {};
    }
    ADD_FAILURE() << "nothing was raised";
    return {};
}

} // namespace vorn::test
