// The text form of fonts, and what the font stream keeps of them.

#include "chart/font_text.h"
#include "platform/system/exceptions.h"
#include "tests/fuzz/fuzz.h"

namespace vorn::fuzz {
namespace {

bool Load(StringView text, TFont& font)
{
    try {
        LoadFontFromString(text, font);
        return true;
    } catch (const EConvertError&) {
        return false;
    }
}

void CheckStream(const TFont& font)
{
    TMemoryStream stream;
    SaveFontToStream(stream, font);
    stream.SetPosition(0);
    const auto read = LoadFontFromStream(stream);
    Require(read->Name() == font.Name() && read->Size() == font.Size(), "the stream keeps name and size");
    Require(stream.Position() == stream.Size(), "a font reads all that it wrote");
}

/// `text` is what stands behind the name.
void CheckSizeAndStyle(StringView text, const TFont& font)
{
    const auto comma = text.find(u',');
    if (comma == StringView::npos) {
        Require(font.Size() == TFont().Size(), "a size needs a comma behind it");
    } else {
        // A size that a picture could have comes back as it was written.
        const auto points = TryStrToInt(text.substr(0, comma));
        Require(points.has_value(), "a size is a number");
        Require(*points < -1000 || *points > 1000 || font.Size() == *points, "the size comes back");
        text.remove_prefix(comma + 1);
    }
    const bool hasStyle = comma != StringView::npos && text.find(u',') == 4;
    Require(hasStyle || font.Style() == 0, "only four characters make a style");
}

void CheckFont(StringView text)
{
    const TFont untouched;
    TFont font;
    const bool good = Load(text, font);
    const auto comma = text.find(u',');
    if (comma == StringView::npos) {
        Require(good && font == untouched, "text without a comma changes nothing");
        return;
    }
    Require(font.Name() == text.substr(0, comma), "the name is what stands in front of the comma");
    Require(font.Style() < 16, "the style has four bits");
    Require(
        good || (font.Size() == untouched.Size() && font.Style() == untouched.Style()), "a bad size changes no more");

    TFont again;
    Require(Load(text, again) == good && again == font, "the same text gives the same font");
    if (good)
        CheckSizeAndStyle(text.substr(comma + 1), font);
    CheckStream(font);
}

} // namespace
} // namespace vorn::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    vorn::fuzz::CheckFont(vorn::fuzz::Text(data, size));
    return 0;
}
