#include "labels/DrLabel.h"

#include <algorithm>

namespace vorn {

namespace {

constexpr std::size_t MaxCaption = 255; // what one label shows at most, in characters

/// The caption as painted: cut at the limit, but never inside a pair of units that is one character.
StringView PaintedCaption(const String& caption)
{
    StringView text(caption);
    if (text.size() <= MaxCaption)
        return text;
    const bool splitsPair = (text[MaxCaption - 1] & 0xFC00) == 0xD800;
    return text.substr(0, splitsPair ? MaxCaption - 1 : MaxCaption);
}

unsigned AlignmentFlag(TAlignment alignment)
{
    switch (alignment) {
    case TAlignment::taRightJustify:
        return DT_RIGHT;
    case TAlignment::taCenter:
        return DT_CENTER;
    case TAlignment::taLeftJustify:
        break;
    }
    return DT_LEFT;
}

} // namespace

TRect TDRLabel::GlyphRect() const
{
    if (!FImages)
        return {};
    const int imageWidth = FImages->Width();
    const int imageHeight = FImages->Height();
    int x = FXPicture;
    switch (FPictureXAlignment) {
    case TXAlign::alXNone:
        break;
    case TXAlign::alXLeft:
        x = 0;
        break;
    case TXAlign::alXRight:
        x = Width() - imageWidth;
        break;
    case TXAlign::alXCenter:
        x = Width() / 2 - imageWidth / 2;
        break;
    }
    int y = FYPicture;
    switch (FPictureYAlignment) {
    case TYAlign::alYNone:
        break;
    case TYAlign::alYTop:
        y = 0;
        break;
    case TYAlign::alYBottom:
        y = Height() - imageHeight;
        break;
    case TYAlign::alYCenter:
        y = Height() / 2 - imageHeight / 2;
        break;
    }
    return vorn::Bounds(x, y, imageWidth, imageHeight);
}

void TDRLabel::Paint()
{
    const TRect client = ClientRect();
    if (!Transparent()) {
        Canvas().Brush = {Color(), TBrushStyle::bsSolid};
        Canvas().FillRect(client);
    }
    Canvas().Brush.Style = TBrushStyle::bsClear;
    PaintGlyph();
    PaintFrame(client);
    PaintText(client);
    if (FInverted)
        Canvas().InvertRect(client);
    if (FHandleShown)
        PaintDragHandle();
}

void TDRLabel::PaintGlyph()
{
    if (!FGliphVisible || !FImages || FImageIndex < 0 || FImageIndex >= FImages->Count())
        return;
    const TRect place = GlyphRect();
    FImages->Draw(Canvas(), place.Left, place.Top, FImageIndex);
}

void TDRLabel::PaintFrame(const TRect& client)
{
    Canvas().Pen.Style = TPenStyle::psSolid;
    TRect frame = client;
    switch (FBorder) {
    case TDRBorder::boNone:
        break;
    case TDRBorder::boSingle:
        Frame3D(Canvas(), frame, clWindowFrame, clWindowFrame, 1);
        break;
    case TDRBorder::boRaised:
        Frame3D(Canvas(), frame, clBtnHighlight, clBtnShadow, 1);
        break;
    case TDRBorder::boLowered:
        Frame3D(Canvas(), frame, clBtnShadow, clBtnHighlight, 1);
        break;
    case TDRBorder::boDotted:
        Canvas().Pen.Style = TPenStyle::psDot;
        Canvas().Rectangle(client);
        break;
    }
}

void TDRLabel::PaintText(const TRect& client)
{
    const TColor textColor = Font().Color();
    // Text in the label's own colour is not shown at all: the blink mode blNone rests on it.
    if (textColor == Color())
        return;
    const unsigned flags = AlignmentFlag(Alignment()) | DT_EXPANDTABS | DT_WORDBREAK
        | (ShowAccelChar() ? 0u : static_cast<unsigned>(DT_NOPREFIX));
    const StringView text = PaintedCaption(Caption());
    Canvas().Font.Assign(Font());
    if (FCtl3D) {
        Canvas().Font.SetColor(FShadowColor);
        TRect shadow = client;
        OffsetRect(shadow, FDeep, FDeep);
        Canvas().DrawText(text, shadow, flags);
    }
    Canvas().Font.SetColor(Enabled() ? textColor : clGrayText);
    TRect area = client;
    Canvas().DrawText(text, area, flags);
}

void TDRLabel::PaintDragHandle()
{
    Canvas().Pen.Color = clRed;
    for (const int inset : {0, 2}) {
        const int far = 10 - inset;
        Canvas().MoveTo(inset, inset);
        Canvas().LineTo(inset, far);
        Canvas().LineTo(far, far);
        Canvas().LineTo(far, inset);
        Canvas().LineTo(inset, inset);
    }
}

int TDRLabel::GlyphRoom() const
{
    if (!FImages || !AutoSize())
        return 0;
    return FImageIndex != -1 ? FImages->Width() : 1;
}

int TDRLabel::TextRoom() const
{
    return WrapSub(Width(), FGlyphRoom);
}

void TDRLabel::Loaded()
{
    FGlyphRoom = GlyphRoom();
    TLabel::Loaded();
}

void TDRLabel::AdjustBounds()
{
    TLabel::AdjustBounds();
    if (!AutoSize() || InState(csLoading))
        return;
    const int glyph = FGlyphRoom = GlyphRoom();
    if (!FImages)
        return;
    // The base has moved a label that isn't left-justified as if its text were all; it must not creep with each call.
    int left = Left();
    if (Alignment() == TAlignment::taRightJustify)
        left = WrapSub(left, glyph);
    else if (Alignment() == TAlignment::taCenter)
        left = WrapSub(left, glyph / 2);
    SetBounds(left, Top(), WrapAdd(Width(), glyph), std::max(Height(), FImages->Height()));
}

} // namespace vorn
