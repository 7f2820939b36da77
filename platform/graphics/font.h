#pragma once

#include "platform/graphics/colors.h"
#include "platform/system/object.h"

class QFont;

namespace vorn {

struct FontFace;

enum TFontStyle : std::uint8_t { fsBold = 1, fsItalic = 2, fsUnderline = 4, fsStrikeOut = 8 };
/// Any of TFontStyle, or-ed.
using TFontStyles = std::uint8_t;

/// The character set of a font that leaves it to the system.
inline constexpr std::uint8_t DEFAULT_CHARSET = 1;

/// A font at 96 dots per inch. Starts as Tahoma, 8 points, clWindowText.
class TFont : public TPersistent {
public:
    const String& Name() const { return name_; }
    void SetName(StringView name);
    /// In points; kept in step with Height and of the other sign: a negative size is a height of the line.
    int Size() const;
    void SetSize(int points);
    /// In pixels: negative for the height of the characters, positive for the height of the line.
    int Height() const { return height_; }
    void SetHeight(int pixels);
    TFontStyles Style() const { return style_; }
    void SetStyle(TFontStyles style);
    TColor Color() const { return color_; }
    void SetColor(TColor color);
    std::uint8_t Charset() const { return charset_; }
    void SetCharset(std::uint8_t charset);

    /// Takes over everything but OnChange, and raises OnChange once if anything changed.
    void Assign(const TPersistent& source) override;
    bool operator==(const TFont& other) const;

    /// The font that draws and measures it: metric-compatible ones stand in for Arial and Tahoma where those are
    /// missing. Absurd sizes are brought into 1 to 2,000 pixels for drawing only; a height of 0 is drawn as the default
    /// one.
    const QFont& Resolved() const;
    /// What Resolved and the text routines share. It lives as long as the process, the same for equal fonts.
    const FontFace& Face() const;

    TNotifyEvent OnChange;

private:
    void Changed();
    void FaceChanged();

    String name_ = u"Tahoma";
    mutable const FontFace* face_ = nullptr;
    int height_ = -11;
    TColor color_ = clWindowText;
    TFontStyles style_ = 0;
    std::uint8_t charset_ = DEFAULT_CHARSET;
};

} // namespace vorn
