#include "platform/controls/label.h"

#include <utility>

namespace vorn {

TLabel::TLabel(TComponent* owner) : TGraphicControl(owner) {}

void TLabel::SetAutoSize(bool autoSize)
{
    if (autoSize_ == autoSize)
        return;
    autoSize_ = autoSize;
    AdjustBounds();
}

void TLabel::SetAlignment(TAlignment alignment)
{
    if (alignment_ == alignment)
        return;
    alignment_ = alignment;
    Invalidate();
}

void TLabel::SetShowAccelChar(bool show)
{
    if (showAccelChar_ == show)
        return;
    showAccelChar_ = show;
    TextChanged();
}

void TLabel::SetTransparent(bool transparent)
{
    if (transparent_ == transparent)
        return;
    transparent_ = transparent;
    Invalidate();
}

void TLabel::SetWordWrap(bool wrap)
{
    if (wordWrap_ == wrap)
        return;
    wordWrap_ = wrap;
    TextChanged();
}

void TLabel::SetParent(TWinControl* parent)
{
    if (parent == Parent())
        return;
    TGraphicControl::SetParent(parent);
    if (parent)
        AdjustBounds();
}

void TLabel::SetBounds(int left, int top, int width, int height)
{
    if (InState(csLoading) && (width != Width() || height != Height()))
        sizeRead_ = true;
    TGraphicControl::SetBounds(left, top, width, height);
}

void TLabel::Loaded()
{
    TGraphicControl::Loaded();
    if (!std::exchange(sizeRead_, false) && !Caption().empty())
        AdjustBounds();
}

unsigned TLabel::TextFlags() const
{
    return DT_EXPANDTABS | (wordWrap_ ? DT_WORDBREAK : 0u) | (showAccelChar_ ? 0u : DT_NOPREFIX);
}

void TLabel::Remeasure()
{
    // Only wrapped text depends on the width; a width of 0 doesn't limit it yet.
    const int room = TextRoom();
    const bool limited = wordWrap_ && room > 0;
    const FontFace* face = &Font().Face();
    if (measuredFace_ == face && !limited)
        return;
    measuredFace_ = face;
    if (Caption().empty()) {
        textSize_ = {0, LineHeight(Font())};
        return;
    }
    const unsigned flags = limited ? TextFlags() : TextFlags() & ~static_cast<unsigned>(DT_WORDBREAK);
    textSize_ = MeasureText(Font(), Caption(), flags, room);
    if (limited)
        textSize_.X = room;
}

void TLabel::AdjustBounds()
{
    if (!autoSize_ || InState(csLoading))
        return;
    Remeasure();
    int left = Left();
    const int grown = textSize_.X - Width();
    if (alignment_ == TAlignment::taRightJustify)
        left = WrapSub(left, grown);
    else if (alignment_ == TAlignment::taCenter)
        left = WrapSub(left, grown / 2);
    SetBounds(left, Top(), textSize_.X, textSize_.Y);
}

void TLabel::TextChanged()
{
    measuredFace_ = nullptr;
    AdjustBounds();
    Invalidate();
}

void TLabel::FontChanged()
{
    // A new colour leaves the size alone.
    if (measuredFace_ != &Font().Face())
        TextChanged();
    else
        Invalidate();
}

void TLabel::Paint()
{
    TCanvas& canvas = Canvas();
    TRect r = ClientRect();
    if (!transparent_) {
        canvas.Brush.Color = Color();
        canvas.FillRect(r);
    }
    canvas.Brush.Style = TBrushStyle::bsClear;
    if (!Enabled())
        canvas.Font.SetColor(clGrayText);
    static constexpr unsigned align[] = {DT_LEFT, DT_RIGHT, DT_CENTER};
    canvas.DrawText(Caption(), r, align[static_cast<int>(alignment_)] | TextFlags());
}

} // namespace vorn
