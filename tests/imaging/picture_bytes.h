#pragma once

#include <QtCore/QByteArray>

#include <array>
#include <cstdint>

namespace vorn::test {

// Files that the toolkit doesn't write, put together by hand.

inline QByteArray Big(std::uint32_t value, int bytes)
{
    QByteArray out;
    for (int i = bytes - 1; i >= 0; --i)
        out.append(static_cast<char>(std::uint64_t{value} >> (8 * i)));
    return out;
}

inline QByteArray Little(std::uint32_t value, int bytes)
{
    QByteArray out;
    for (int i = 0; i < bytes; ++i)
        out.append(static_cast<char>(std::uint64_t{value} >> (8 * i)));
    return out;
}

/// A JPEG with the mark of a camera that was held another way: 1 upright, 6 to be turned clockwise, 8 the other way.
inline QByteArray WithOrientation(const QByteArray& jpeg, std::uint32_t orientation)
{
    const QByteArray tiff = QByteArray("MM\0*", 4) + Big(8, 4) + Big(1, 2) // one entry
        + Big(0x0112, 2) + Big(3, 2) + Big(1, 4) + Big(orientation, 2) + Big(0, 2) + Big(0, 4);
    const QByteArray body = QByteArray("Exif\0\0", 6) + tiff;
    return jpeg.left(2) + QByteArray("\xFF\xE1", 2) + Big(static_cast<std::uint32_t>(body.size()) + 2, 2) + body
        + jpeg.mid(2);
}

/// A TIFF of one strip with its directory in front: 16-bit grey, or with a palette 8-bit indices into it.
inline QByteArray Tiff(int width, int height, const QByteArray& pixels, const QByteArray& palette = {})
{
    const bool grey = palette.isEmpty();
    const std::uint32_t directorySize = 2 + (grey ? 8 : 9) * 12 + 4;
    const std::uint32_t strip = 8 + directorySize;
    const auto entry = [](std::uint32_t tag, std::uint32_t type, std::uint32_t count, std::uint32_t value) {
        return Little(tag, 2) + Little(type, 2) + Little(count, 4) + Little(value, 4);
    };
    const auto size = static_cast<std::uint32_t>(pixels.size());
    QByteArray file = QByteArray("II*\0", 4) + Little(8, 4) + Little(grey ? 8 : 9, 2)
        + entry(256, 3, 1, static_cast<std::uint32_t>(width)) + entry(257, 3, 1, static_cast<std::uint32_t>(height))
        + entry(258, 3, 1, grey ? 16 : 8) + entry(259, 3, 1, 1) + entry(262, 3, 1, grey ? 1 : 3)
        + entry(273, 4, 1, strip) + entry(278, 3, 1, static_cast<std::uint32_t>(height)) + entry(279, 4, 1, size);
    if (!grey)
        file += entry(320, 3, static_cast<std::uint32_t>(palette.size() / 2), strip + size);
    return file + Little(0, 4) + pixels + palette;
}

/// An 8-bit run-length encoded BMP of one colour per line: the first two of its palette in turn.
inline QByteArray RunLengthBmp(int width, int height)
{
    QByteArray lines;
    for (int y = 0; y < height; ++y)
        lines += Little(static_cast<std::uint32_t>(width), 1) + Little(y % 2, 1) + Little(0, 2);
    lines += QByteArray("\0\1", 2);
    const QByteArray palette = Little(0x0000FF, 4) + Little(0x00FF00, 4);
    const auto size = static_cast<std::uint32_t>(lines.size());
    return "BM" + Little(54 + 8 + size, 4) + Little(0, 4) + Little(54 + 8, 4) + Little(40, 4)
        + Little(static_cast<std::uint32_t>(width), 4) + Little(static_cast<std::uint32_t>(height), 4) + Little(1, 2)
        + Little(8, 2) + Little(1, 4) + Little(size, 4) + Little(0, 8) + Little(2, 4) + Little(0, 4) + palette + lines;
}

/// A GIF of two frames of two by two pixels, the first red, the second green.
inline QByteArray TwoFrameGif()
{
    const auto frame = [](const char* data) {
        return QByteArray::fromHex("21f904000a000000") + QByteArray::fromHex("2c000000000200020000")
            + QByteArray::fromHex(data);
    };
    return QByteArray::fromHex("47494638396102000200800000ff000000ff00") + frame("0202845100") // index 0 all over
        + frame("02028c5300") + QByteArray::fromHex("3b");                                     // index 1 all over
}

/// An animation of still WebP files of the same size.
template <typename... Frames>
QByteArray AnimatedWebp(int width, int height, const Frames&... frames)
{
    const auto chunk = [](const char* name, const QByteArray& body) {
        return QByteArray(name, 4) + Little(static_cast<std::uint32_t>(body.size()), 4) + body
            + QByteArray(body.size() % 2, '\0');
    };
    const auto w = static_cast<std::uint32_t>(width - 1);
    const auto h = static_cast<std::uint32_t>(height - 1);
    QByteArray body
        = QByteArray("WEBP") + chunk("VP8X", Little(2, 4) + Little(w, 3) + Little(h, 3)) + chunk("ANIM", Little(0, 6));
    for (const QByteArray& still : {frames...})
        body += chunk(
            "ANMF", Little(0, 6) + Little(w, 3) + Little(h, 3) + Little(100, 3) + Little(0, 1) + still.mid(12));
    return "RIFF" + Little(static_cast<std::uint32_t>(body.size()), 4) + body;
}

/// A PNG header's width and height replaced, its checksum set right.
inline QByteArray WithPngSize(QByteArray png, std::uint32_t width, std::uint32_t height)
{
    constexpr int header = 12, length = 4 + 13; // name and content, which the checksum covers
    png.replace(16, 8, Big(width, 4) + Big(height, 4));
    std::uint32_t crc = 0xFFFFFFFFu;
    for (const char c : png.mid(header, length)) {
        crc ^= static_cast<std::uint8_t>(c);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ ((crc & 1) != 0 ? 0xEDB88320u : 0);
    }
    return png.replace(header + length, 4, Big(~crc, 4));
}

} // namespace vorn::test
