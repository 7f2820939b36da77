#include "chart/font_text.h"

#include "platform/system/strings.h"

#include <array>

namespace vorn {

namespace {

void WriteInt32(TStream& stream, std::int32_t value)
{
    const auto bits = static_cast<std::uint32_t>(value);
    std::array<std::byte, 4> bytes;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<std::byte>(bits >> (8 * i));
    stream.Write(bytes);
}

std::int32_t ReadInt32(TStream& stream)
{
    std::array<std::byte, 4> bytes{};
    stream.Read(bytes);
    std::uint32_t bits = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bits |= static_cast<std::uint32_t>(bytes[i]) << (8 * i);
    return static_cast<std::int32_t>(bits);
}

} // namespace

void LoadFontFromString(StringView text, TFont& Font)
{
    auto comma = text.find(u',');
    if (comma == StringView::npos)
        return;
    Font.SetName(text.substr(0, comma));
    text.remove_prefix(comma + 1);

    comma = text.find(u',');
    if (comma == StringView::npos)
        return;
    Font.SetSize(StrToInt(text.substr(0, comma)));
    text.remove_prefix(comma + 1);

    if (text.find(u',') != 4)
        return;
    constexpr TFontStyle order[] = {fsBold, fsItalic, fsUnderline, fsStrikeOut};
    TFontStyles style = 0;
    for (std::size_t i = 0; i < std::size(order); ++i)
        if (text[i] == u'1')
            style |= order[i];
    Font.SetStyle(style);
}

void SaveFontToStream(TStream& Stream, const TFont& Font)
{
    WriteInt32(Stream, Font.Charset());
    WriteInt32(Stream, static_cast<std::int32_t>(Font.Color()));
    WriteInt32(Stream, Font.Height());
    WriteInt32(Stream, Font.Size());
    WriteInt32(Stream, static_cast<std::int32_t>(Font.Name().size()));
    for (const char16_t unit : Font.Name()) {
        const std::array bytes{static_cast<std::byte>(unit & 0xFF), static_cast<std::byte>(unit >> 8)};
        Stream.Write(bytes);
    }
}

std::unique_ptr<TFont> LoadFontFromStream(TStream& Stream)
{
    auto font = std::make_unique<TFont>();
    font->SetCharset(static_cast<std::uint8_t>(ReadInt32(Stream) & 0xFF));
    font->SetColor(static_cast<TColor>(ReadInt32(Stream)));
    const int height = ReadInt32(Stream);
    font->SetSize(ReadInt32(Stream));
    font->SetHeight(height); // last: it says exactly what the size says in whole points
    // A length that the stream can't hold is cut to what is there: nothing is allocated on its word alone.
    const std::size_t left = Stream.Size() > Stream.Position() ? Stream.Size() - Stream.Position() : 0;
    const auto length = std::min<std::size_t>(static_cast<std::uint32_t>(ReadInt32(Stream)), left / 2);
    String name;
    for (std::size_t i = 0; i < length; ++i) {
        std::array<std::byte, 2> bytes{};
        if (Stream.Read(bytes) < bytes.size())
            break;
        name += static_cast<char16_t>(std::to_integer<unsigned>(bytes[0]) | std::to_integer<unsigned>(bytes[1]) << 8);
    }
    font->SetName(name);
    return font;
}

} // namespace vorn
