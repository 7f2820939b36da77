#include "platform/data/value.h"

#include "platform/system/strings.h"

#include <type_traits>

namespace vorn {

namespace {

bool SameNumber(std::int64_t a, double b)
{
    constexpr double limit = 9223372036854775808.0; // 2^63
    return b >= -limit && b < limit && static_cast<std::int64_t>(b) == a && static_cast<double>(a) == b;
}

/// Values of different kinds, each pair in one order only.
struct MixedEqual {
    bool operator()(std::int64_t a, double b) const { return SameNumber(a, b); }
    bool operator()(std::int64_t a, const String& b) const { return IntToStr(a) == b; }
    bool operator()(double a, const String& b) const { return TryStrToFloat(b) == a; }
    bool operator()(const TDateValue& a, const String& b) const { return DateToIso(a.Value) == b; }
    template <typename A, typename B>
    bool operator()(const A&, const B&) const
    {
        return false;
    }
};

bool SameKind(const TValue& a, const TValue& b)
{
    const auto* const bytes = std::get_if<BlobValue>(&a);
    if (!bytes)
        return a == b;
    const BlobValue& other = std::get<BlobValue>(b);
    return *bytes == other || (*bytes && other && **bytes == *other);
}

} // namespace

bool SameValue(const TValue& a, const TValue& b)
{
    if (a.index() == b.index())
        return SameKind(a, b);
    return a.index() < b.index() ? std::visit(MixedEqual(), a, b) : std::visit(MixedEqual(), b, a);
}

} // namespace vorn
