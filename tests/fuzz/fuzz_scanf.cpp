// Formatted scanning. The input's first line is the format, the rest is the source.

#include "platform/system/exceptions.h"
#include "tests/fuzz/fuzz.h"
#include "utils/scan_internal.h"

#include <algorithm>
#include <deque>
#include <vector>

namespace vorn::fuzz {
namespace {

constexpr int largestWidth = 4096;

/// A target of exactly the size that its conversion may write, on the heap, so that one byte more is found.
class Target {
public:
    explicit Target(const ScanToken& token) : kind_(token.kind)
    {
        if (kind_ == ScanKind::Char)
            bytes_.assign(static_cast<std::size_t>(std::min(*token.width, largestWidth)), '~');
    }

    TVarRec VarRec() { return Typed().VarRec(); }
    ScanTarget Typed()
    {
        switch (kind_) {
        case ScanKind::Char:
            return std::span<char>(bytes_);
        case ScanKind::Int16:
            return int16_;
        case ScanKind::Int64:
            return int64_;
        case ScanKind::UInt32:
        case ScanKind::Hex:
            return uint32_;
        case ScanKind::Float:
            return number_;
        case ScanKind::Money:
            return money_;
        case ScanKind::Text:
            return text_;
        default:
            return int32_;
        }
    }

    friend bool operator==(const Target&, const Target&) = default;

private:
    ScanKind kind_;
    std::vector<char> bytes_;
    std::int16_t int16_ = 1;
    std::int32_t int32_ = 2;
    std::uint32_t uint32_ = 3;
    std::int64_t int64_ = 4;
    Extended number_ = 5;
    Currency money_{6};
    String text_ = u"untouched";
};

using Targets = std::deque<Target>;

/// Targets for the conversions of a format, as far as it is good. False if one wants more than a test should
/// hold.
bool MakeTargets(StringView format, Targets& targets)
{
    for (std::size_t position = 1; position <= format.size();) {
        const std::size_t start = position;
        const auto token = ScanNextToken(format, position);
        Require(position > start && position <= format.size() + 1, "a token moves on, and no further than the end");
        if (!token)
            return true;
        Require(!token->empty() && token->data() == format.data() + start - 1, "a token begins where the last ended");
        try {
            const ScanToken parsed = ScanParseToken(*token);
            if (parsed.kind == ScanKind::Char && *parsed.width > largestWidth)
                return false;
            if (parsed.store)
                targets.emplace_back(parsed);
        } catch (const Exception& e) {
            const StringView message = e.Message();
            Require(message == u"Bad format string" || message.starts_with(u"BAD SET : "), "a bad token says so");
            return true;
        }
    }
    return true;
}

constexpr int raised = -1;

/// Scans in either form; gives the count, or `raised` if there were too few targets.
int Scan(StringView source, StringView format, Targets& targets, std::size_t count, bool typed)
{
    std::vector<ScanTarget> list;
    std::vector<TVarRec> untyped;
    for (std::size_t i = 0; i < count; ++i) {
        list.push_back(targets[i].Typed());
        untyped.push_back(targets[i].VarRec());
    }
    try {
        const int stored = typed ? ScanTyped(source, format, list) : sscanf(source, format, untyped);
        Require(stored >= 0 && static_cast<std::size_t>(stored) <= count, "no more is counted than there are targets");
        return stored;
    } catch (const Exception& e) {
        Require(e.Message() == u"Insufficent pointers for format specifiers!", "no error but for missing targets");
        return raised;
    }
}

void CheckScan(StringView source, StringView format)
{
    Targets fresh;
    if (!MakeTargets(format, fresh))
        return;
    Targets full = fresh;
    const int count = Scan(source, format, full, full.size(), false);
    Require(count != raised, "a target for each conversion is enough");
    const auto stored = static_cast<std::ptrdiff_t>(count);
    Require(std::equal(full.begin() + stored, full.end(), fresh.begin() + stored), "what isn't counted isn't written");

    Targets again = fresh;
    Require(Scan(source, format, again, again.size(), true) == count && again == full, "both forms give the same");

    if (count > 0) {
        Targets few = fresh;
        Require(
            Scan(source, format, few, static_cast<std::size_t>(count) - 1, false) == raised, "too few targets raise");
        Require(std::equal(full.begin(), full.begin() + stored - 1, few.begin()), "the targets in front are written");
        Require(std::equal(few.begin() + stored - 1, few.end(), fresh.begin() + stored - 1), "and no other");
    }
}

} // namespace
} // namespace vorn::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace vorn::fuzz;
    const auto* const lineEnd = std::find(data, data + size, '\n');
    const auto formatSize = static_cast<std::size_t>(lineEnd - data);
    const std::size_t sourceAt = std::min(formatSize + 1, size);
    CheckScan(Text(data + sourceAt, size - sourceAt), Text(data, formatSize));
    return 0;
}
