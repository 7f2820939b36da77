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
    Require(good || (font.Size() == untouched.Size() && font.Style() == untouched.Style()), "a bad size changes no more");

    TFont again;
    Require(Load(text, again) == good && again == font, "the same text gives the same font");
    if (good) {
        // A size that a picture could have comes back as it was written.
        const String size(text.substr(comma + 1, text.find(u',', comma + 1) - comma - 1));
        const auto points = TryStrToInt(size);
        const bool sized = text.find(u',', comma + 1) != StringView::npos;
        Require(!sized || (points && (std::abs(*points) > 1000 || font.Size() == *points)), "the size comes back");
    }
    CheckStream(font);
}

} // namespace
} // namespace vorn::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    vorn::fuzz::CheckFont(vorn::fuzz::Text(data, size));
    return 0;
}
