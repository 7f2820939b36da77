#pragma once

#include "platform/graphics/font.h"

#include <QFont>

namespace vorn {

/// A font found on this machine, with the measures that text needs of it. Lengths are whole pixels.
struct FontFace {
    QFont font;
    /// The same without underline and strike-out, which are drawn along whole lines.
    QFont shaping;
    int ascent = 0;
    int lineHeight = 0;
    /// Distance of the tab stops: eight average characters.
    int tabWidth = 0;
    /// From the top of the line.
    int underlineTop = 0;
    int strikeOutTop = 0;
    int ruleHeight = 1;
    bool underlined = false;
    bool struckOut = false;
};

/// The one face of this name, height and style. Needs an application object.
const FontFace& ResolveFont(StringView name, int height, TFontStyles style);

} // namespace vorn
