#include "utils/scan_internal.h"

#include "platform/system/exceptions.h"
#include "platform/system/strings.h"

#include <vector>

namespace vorn {

namespace {

/// Raises if a conversion that would be stored doesn't fit its target. What the scan never gets to isn't
/// looked at: the tokens behind a bad one, and conversions without a target.
void CheckTargets(StringView format, std::span<const ScanTarget> targets)
{
    std::size_t position = 1;
    for (std::size_t index = 0; index < targets.size();) {
        const auto token = ScanNextToken(format, position);
        if (!token)
            return;
        ScanToken parsed;
        try {
            parsed = ScanParseToken(*token);
        } catch (const std::exception&) {
            return;
        }
        if (!parsed.store)
            continue;
        if (!targets[index].Takes(parsed))
            throw EConvertError(u"'" + String(*token) + u"' can't be stored in target "
                + IntToStr(static_cast<std::int64_t>(index) + 1) + u", of type " + targets[index].TypeName());
        ++index;
    }
}

} // namespace

bool ScanTarget::Takes(const ScanToken& token) const
{
    switch (token.kind) {
    case ScanKind::Char:
        return type_ == TypeChar && token.width && static_cast<std::size_t>(*token.width) <= size_;
    case ScanKind::Int16:
        return type_ == TypeInt16;
    case ScanKind::Int32:
        return type_ == TypeInt32;
    case ScanKind::Int64:
        return type_ == TypeInt64;
    case ScanKind::UInt32:
        return type_ == TypeUInt32;
    case ScanKind::Hex:
    case ScanKind::Pointer:
        return type_ == TypeInt32 || type_ == TypeUInt32;
    case ScanKind::Float:
        return type_ == TypeExtended;
    case ScanKind::Money:
        return type_ == TypeCurrency;
    case ScanKind::Text:
        return type_ == TypeString || type_ == TypeShortString;
    default:
        return false;
    }
}

const char16_t* ScanTarget::TypeName() const
{
    constexpr const char16_t* names[] = {
        u"char", u"int16_t", u"int32_t", u"uint32_t", u"int64_t", u"Extended", u"Currency", u"String", u"ShortString"};
    return names[type_];
}

int ScanTyped(StringView source, StringView format, std::span<const ScanTarget> targets)
{
    CheckTargets(format, targets);
    std::vector<TVarRec> untyped;
    untyped.reserve(targets.size());
    for (const ScanTarget& target : targets)
        untyped.push_back(target.VarRec());
    return sscanf(source, format, std::span<const TVarRec>(untyped));
}

} // namespace vorn
