#pragma once

#include "platform/controls/control.h"

namespace vorn {

enum class TShapeType : std::uint8_t { stRectangle, stSquare, stEllipse, stCircle };

/// What a shape draws with; a change repaints it.
class TShapePart : public TPersistent {
protected:
    explicit TShapePart(TControl& shape) : shape_(shape) {}
    template <typename V>
    void Change(V& member, V value)
    {
        if (member == value)
            return;
        member = value;
        shape_.Invalidate();
    }

private:
    TControl& shape_;
};

class TShapePen : public TShapePart {
public:
    explicit TShapePen(TControl& shape) : TShapePart(shape) {}
    TColor Color() const { return pen_.Color; }
    void SetColor(TColor color) { Change(pen_.Color, color); }
    TPenStyle Style() const { return pen_.Style; }
    void SetStyle(TPenStyle style) { Change(pen_.Style, style); }
    int Width() const { return pen_.Width; }
    void SetWidth(int width) { Change(pen_.Width, width); }
    const TPen& Value() const { return pen_; }

private:
    TPen pen_;
};

class TShapeBrush : public TShapePart {
public:
    explicit TShapeBrush(TControl& shape) : TShapePart(shape) {}
    TColor Color() const { return brush_.Color; }
    void SetColor(TColor color) { Change(brush_.Color, color); }
    TBrushStyle Style() const { return brush_.Style; }
    void SetStyle(TBrushStyle style) { Change(brush_.Style, style); }
    const TBrush& Value() const { return brush_; }

private:
    TBrush brush_;
};

/// A figure with an outline in its pen, filled with its brush. Starts as a white rectangle of 65 by 65 pixels with a
/// black outline; a square and a circle lie in the middle of theirs.
class TShape : public TGraphicControl {
public:
    explicit TShape(TComponent* owner);

    TShapeBrush& Brush() { return brush_; }
    TShapePen& Pen() { return pen_; }
    TShapeType Shape() const { return shape_; }
    void SetShape(TShapeType shape);

protected:
    void Paint() override;

private:
    TShapeBrush brush_{*this};
    TShapePen pen_{*this};
    TShapeType shape_ = TShapeType::stRectangle;
};

} // namespace vorn
