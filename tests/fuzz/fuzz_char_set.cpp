// Set expressions.

#include "platform/system/exceptions.h"
#include "tests/fuzz/fuzz.h"
#include "utils/xdfUtils.h"

#include <optional>

namespace vorn::fuzz {
namespace {

/// The message of the error, none without one.
std::optional<String> Create(StringView text, TCharSet& set)
{
    try {
        CreateSet(text, set);
        return std::nullopt;
    } catch (const Exception& e) {
        return e.Message();
    }
}

void CheckSet(StringView text)
{
    TCharSet set;
    const auto error = Create(text, set);
    const bool negative = !text.empty() && (text.front() & 0xFF) == u'^';
    const StringView shown = text.substr(negative ? 1 : 0);
    Require(!error || *error == u"BAD SET : " + String(shown), "the error shows the text");

    TCharSet again;
    again.Fill();
    Require(Create(text, again) == error && again == set, "what the set held before plays no part");

    String narrow(text);
    for (char16_t& c : narrow)
        c &= 0xFF;
    Require(Create(narrow, again).has_value() == error.has_value() && again == set, "only the low 8 bits count");

    if (negative)
        return;
    TCharSet inverse;
    Require(Create(u"^" + String(text), inverse) == error, "a negative set fails as the plain one does");
    for (char16_t c = 0; c < 256; ++c)
        Require(set.Contains(c) != inverse.Contains(c), "a negative set is the complement, also behind an error");
    if (error || text.size() > 256)
        return;
    String members; // each escaped, which is the plainest way to name a set
    for (char16_t c = 0; c < 256; ++c)
        if (set.Contains(c))
            members += {u'\\', c};
    Require(!Create(members, again) && again == set, "a set can be named by its members");
}

} // namespace
} // namespace vorn::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    vorn::fuzz::CheckSet(vorn::fuzz::Text(data, size));
    return 0;
}
