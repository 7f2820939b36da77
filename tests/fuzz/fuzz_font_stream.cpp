// Fonts read from stored bytes.

#include "chart/font_text.h"
#include "tests/fuzz/fuzz.h"

#include <span>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace vorn;
    TMemoryStream stream;
    stream.Write(std::as_bytes(std::span(data, size)));
    stream.SetPosition(0);
    const auto font = LoadFontFromStream(stream);
    fuzz::Require(font->Name().size() * 2 <= size, "the name is no longer than the stream");

    TMemoryStream written;
    SaveFontToStream(written, *font);
    written.SetPosition(0);
    const auto again = LoadFontFromStream(written);
    fuzz::Require(again->Name() == font->Name() && again->Color() == font->Color()
            && again->Charset() == font->Charset() && again->Height() == font->Height(),
        "a font survives being written");
    return 0;
}
