// Form files: any text is read or refused; what is read comes back from what is written.

#include "platform/forms/form_file.h"
#include "tests/forms/form_classes.h"
#include "tests/fuzz/fuzz.h"

namespace vorn::fuzz {
namespace {

const TFormOffers& Offers()
{
    static const TFormOffers offers = [] {
        test::RegisterSampleClasses();
        TFormOffers made;
        made.Offer<TNotifyEvent>(u"Open", [](TObject*) {});
        made.Offer<test::Change>(u"Change", [](TObject*, int, bool&) {});
        return made;
    }();
    return offers;
}

/// The form written anew; none if the text was refused.
std::optional<String> Rewritten(const String& text)
{
    try {
        return WriteForm(*MakeForm(text, Offers()));
    } catch (const EFormError& error) {
        const auto lines = std::count_if(text.begin(), text.end(), [](char16_t c) { return c == u'\n' || c == u'\r'; });
        // Two refusals come from writing, which has no line: a reference to what has no name.
        Require(error.Line() >= 0 && error.Line() <= lines + 1, "an error names a line of the text");
        return std::nullopt;
    }
}

void Check(const String& text)
{
    const std::optional<String> once = Rewritten(text);
    Require(test::Tile::alive == 0, "nothing is left of a form");
    test::Tile::loaded.clear();
    if (!once)
        return;
    const std::optional<String> twice = Rewritten(*once);
    Require(twice == once, "a written form is read and written the same");
    Require(test::Tile::alive == 0, "nothing is left of a form that was read again");
    test::Tile::loaded.clear();

    // An existing component either takes the text or stays free of its components.
    test::Tile root(nullptr);
    try {
        ReadForm(text, root, Offers());
    } catch (const EFormError&) {
        Require(root.ComponentCount() == 0 && root.children.empty(), "a refused form leaves no component");
    }
}

} // namespace
} // namespace vorn::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    vorn::fuzz::Check(vorn::fuzz::Text(data, size));
    return 0;
}
