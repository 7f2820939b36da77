#pragma once

#include "platform/controls/control.h"

namespace vorn {

enum class TAlignment : std::uint8_t { taLeftJustify, taRightJustify, taCenter };

/// Text on its parent. Under AutoSize it is as large as its caption needs; an empty caption is one line high.
class TLabel : public TGraphicControl {
public:
    explicit TLabel(TComponent* owner);

    bool AutoSize() const { return autoSize_; }
    void SetAutoSize(bool autoSize);
    TAlignment Alignment() const { return alignment_; }
    void SetAlignment(TAlignment alignment);
    bool ShowAccelChar() const { return showAccelChar_; }
    void SetShowAccelChar(bool show);
    bool Transparent() const { return transparent_; }
    void SetTransparent(bool transparent);
    bool WordWrap() const { return wordWrap_; }
    void SetWordWrap(bool wrap);
    void SetParent(TWinControl* parent) override;
    void SetBounds(int left, int top, int width, int height) override;
    /// A label to which the form that was read gave no size takes that of its text.
    void Loaded() override;

protected:
    /// Fits Width and Height to the text under AutoSize; the left edge, and with another alignment the right edge or
    /// the middle, stays. Nothing happens while a form is read, which gives the label its bounds.
    virtual void AdjustBounds();
    /// The part of the width that the text fills: what wrapped text is measured for. None that limits it if not above
    /// 0.
    virtual int TextRoom() const { return Width(); }
    void TextChanged() override;
    void FontChanged() override;
    void Paint() override;

private:
    void Remeasure();
    /// Flags for measuring and drawing alike.
    unsigned TextFlags() const;

    const FontFace* measuredFace_ = nullptr; // none: the text size isn't known
    TPoint textSize_;
    TAlignment alignment_ = TAlignment::taLeftJustify;
    bool autoSize_ = true;
    bool showAccelChar_ = true;
    bool transparent_ = false;
    bool wordWrap_ = false;
    bool sizeRead_ = false; // a form that is being read has given the size
};

} // namespace vorn
