#include "utils/xdfUtils.h"

#include "platform/system/exceptions.h"

namespace vorn {

namespace {

class SetReader {
public:
    explicit SetReader(StringView text) : text_(text) {}

    bool AtEnd() const { return at_ == text_.size(); }

    /// One character, with "\" undone.
    std::uint8_t ReadChar()
    {
        std::uint8_t c = Low(at_++);
        if (c == '\\') {
            if (AtEnd())
                Fail();
            c = Low(at_++);
        }
        return c;
    }

    /// Passes over a "-" that makes a range. At the end of the text it is an item of its own.
    bool SkipDash()
    {
        if (at_ + 1 >= text_.size() || Low(at_) != '-')
            return false;
        ++at_;
        return true;
    }

    [[noreturn]] void Fail() const { throw Exception(u"BAD SET : " + String(text_)); }

private:
    std::uint8_t Low(std::size_t at) const { return static_cast<std::uint8_t>(text_[at] & 0xFF); }

    StringView text_;
    std::size_t at_ = 0;
};

} // namespace

void CreateSet(StringView text, TCharSet& set)
{
    const bool negative = !text.empty() && (text.front() & 0xFF) == u'^';
    set.Clear();
    if (negative) {
        set.Fill();
        text.remove_prefix(1);
    }
    for (SetReader reader(text); !reader.AtEnd();) {
        const unsigned first = reader.ReadChar();
        const unsigned last = reader.SkipDash() ? reader.ReadChar() : first;
        if (last < first)
            reader.Fail();
        for (unsigned c = first; c <= last; ++c)
            set.Put(static_cast<std::uint8_t>(c), !negative);
    }
}

} // namespace vorn
