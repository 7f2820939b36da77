#include "platform/graphics/image_integrity.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace vorn {

namespace {

using Span = std::span<const std::byte>;

std::uint32_t Byte(Span data, std::size_t at)
{
    return std::to_integer<std::uint32_t>(data[at]);
}

std::uint32_t BigEndian(Span data, std::size_t at, int bytes)
{
    std::uint32_t value = 0;
    for (int i = 0; i < bytes; ++i)
        value = (value << 8) | Byte(data, at + static_cast<std::size_t>(i));
    return value;
}

std::uint32_t LittleEndian(Span data, std::size_t at, int bytes)
{
    std::uint32_t value = 0;
    for (int i = bytes - 1; i >= 0; --i)
        value = (value << 8) | Byte(data, at + static_cast<std::size_t>(i));
    return value;
}

/// Walks over the segments, so that the end mark of a thumbnail inside one isn't taken for the picture's.
bool IsCompleteJpeg(Span data)
{
    constexpr std::uint32_t endOfImage = 0xD9, restart = 0xD0;
    std::size_t at = 2;
    while (at + 1 < data.size()) {
        if (Byte(data, at) != 0xFF) { // inside a scan
            ++at;
            continue;
        }
        const std::uint32_t marker = Byte(data, at + 1);
        if (marker == endOfImage)
            return true;
        if (marker == 0xFF) {
            ++at;
        } else if (marker == 0 || marker == 1 || (marker >= restart && marker < restart + 8)) {
            at += 2;
        } else {
            if (at + 3 >= data.size())
                return false;
            at += 2 + BigEndian(data, at + 2, 2);
        }
    }
    return false;
}

bool IsCompleteBmp(Span data)
{
    constexpr std::size_t headers = 14 + 40;
    if (data.size() < headers)
        return LittleEndian(data, 14, 4) == 12; // the short header of old: its decoder's word is taken
    const std::uint64_t pixels = LittleEndian(data, 10, 4);
    const std::int64_t width = static_cast<std::int32_t>(LittleEndian(data, 18, 4));
    const std::int64_t height = static_cast<std::int32_t>(LittleEndian(data, 22, 4));
    const std::uint32_t bits = LittleEndian(data, 28, 2);
    const std::uint32_t compression = LittleEndian(data, 30, 4);
    const std::uint64_t encodedSize = LittleEndian(data, 34, 4); // 0 where nothing is compressed
    constexpr std::uint32_t plain = 0, bitFields = 3;
    if (LittleEndian(data, 14, 4) < 40 || width < 0)
        return true;
    if (compression != plain && compression != bitFields)
        return pixels + encodedSize <= data.size();
    const std::uint64_t line = (static_cast<std::uint64_t>(width) * bits + 31) / 32 * 4;
    return pixels + line * static_cast<std::uint64_t>(std::llabs(height)) <= data.size();
}

/// Passes over the chain of data blocks at `at`; behind the data if it has no end.
std::size_t SkipGifBlocks(Span data, std::size_t at)
{
    while (at < data.size() && Byte(data, at) != 0)
        at += 1 + Byte(data, at);
    return at + 1;
}

std::size_t GifPaletteSize(std::uint32_t flags)
{
    return (flags & 0x80) != 0 ? std::size_t{3} << ((flags & 7) + 1) : 0;
}

/// The first picture is the one that is shown, so it is the one that must be whole.
bool IsCompleteGif(Span data)
{
    if (data.size() < 13)
        return false;
    std::size_t at = 13 + GifPaletteSize(Byte(data, 10));
    constexpr std::uint32_t extension = 0x21, picture = 0x2C;
    while (at + 1 < data.size()) {
        const std::uint32_t mark = Byte(data, at);
        if (mark == extension) {
            at = SkipGifBlocks(data, at + 2);
        } else if (mark == picture) {
            if (at + 10 >= data.size())
                return false;
            at += 11 + GifPaletteSize(Byte(data, at + 9));
            return SkipGifBlocks(data, at) <= data.size();
        } else {
            return false;
        }
    }
    return false;
}

/// Cut-off pixels are noticed by the decoder, but without its palette a picture just comes out in other colours.
bool IsCompleteTiff(Span data, std::uint32_t (*number)(Span, std::size_t, int))
{
    constexpr std::size_t entrySize = 12, nextDirectory = 4;
    constexpr std::uint32_t colorMap = 320, bytesPerColor = 2;
    const std::size_t directory = number(data, 4, 4);
    if (directory + 2 > data.size())
        return false;
    const std::size_t entries = number(data, directory, 2);
    if (directory + 2 + entries * entrySize + nextDirectory > data.size())
        return false;
    for (std::size_t i = 0; i < entries; ++i) {
        const std::size_t entry = directory + 2 + i * entrySize;
        if (number(data, entry, 2) == colorMap)
            return std::size_t{number(data, entry + 8, 4)} + std::size_t{number(data, entry + 4, 4)} * bytesPerColor
                <= data.size();
    }
    return true;
}

/// A text that defines an array of bits; it may be of any length.
bool IsCompleteXbm(Span data)
{
    return std::ranges::find(data, std::byte{'}'}) != data.end();
}

} // namespace

bool IsComplete(Span encoded)
{
    if (encoded.size() < 20)
        return true; // too short for any of them: the decoder refuses it
    const std::uint32_t mark = LittleEndian(encoded, 0, 2);
    if (mark == 0xD8FF)
        return IsCompleteJpeg(encoded);
    if (mark == 0x4D42)
        return IsCompleteBmp(encoded);
    switch (BigEndian(encoded, 0, 4)) {
    case 0x47494638: // "GIF8"
        return IsCompleteGif(encoded);
    case 0x49492A00: // "II", 42
        return IsCompleteTiff(encoded, LittleEndian);
    case 0x4D4D002A: // "MM", 42
        return IsCompleteTiff(encoded, BigEndian);
    case 0x23646566: // "#def"
        return IsCompleteXbm(encoded);
    default:
        break;
    }
    return true;
}

} // namespace vorn
