#pragma once

#include "platform/system/stream.h"
#include "platform/system/types.h"

#include <memory>
#include <variant>

namespace vorn {

/// The content of a blob; shared, never changed in place.
using BlobValue = std::shared_ptr<const Bytes>;

/// One cell: null, integer (Booleans too), float, date as TDateTime, text or bytes.
struct TDateValue {
    TDateTime Value = 0;
    friend bool operator==(const TDateValue&, const TDateValue&) = default;
};
using TValue = std::variant<std::monostate, std::int64_t, double, TDateValue, String, BlobValue>;

inline bool IsNull(const TValue& value)
{
    return std::holds_alternative<std::monostate>(value);
}
/// Equality by content: an integer equals the same number as a float or as its decimal text; blobs by their bytes.
/// Text regards case. Null equals only null.
bool SameValue(const TValue& a, const TValue& b);

enum class TFieldType { ftString, ftInteger, ftFloat, ftBoolean, ftDate, ftDateTime, ftBlob };

} // namespace vorn
