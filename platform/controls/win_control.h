#pragma once

#include "platform/controls/control.h"

#include <memory>
#include <vector>

class QEvent;
class QPainter;
class QRegion;
class QWidget;

namespace vorn {

class ChildIndex;

/// A control with a window: a QWidget that the application may place wherever it likes.
class TWinControl : public TControl {
public:
    explicit TWinControl(TComponent* owner);
    /// Frees the child controls.
    ~TWinControl() override;

    /// The control's window. Owned by the control; if a layout or parent window destroys it first, the control goes
    /// on without one.
    QWidget* Widget() const;

    int ControlCount() const;
    /// In the order in which they lie over each other, lowest first.
    TControl* Controls(int index) const;

    int Width() const override;
    int Height() const override;
    void SetBounds(int left, int top, int width, int height) override;
    void SetParent(TWinControl* parent) override;
    void SetVisible(bool visible) override;
    void SetEnabled(bool enabled) override;
    void SetHint(StringView hint) override;
    void SetColor(TColor color) override;
    void SetCursor(TCursor cursor) override;
    void Invalidate() override;
    void Update() override;
    /// Asks for a paint of one part, in client coordinates.
    void InvalidateRect(const TRect& r);
    /// Draws this control with its graphic controls, whole.
    void PaintTo(TCanvas& canvas) override;
    /// The same, but only what touches `part`.
    void PaintPartTo(TCanvas& canvas, const TRect& part);

    /// The topmost visible graphic control at a client point, or none.
    TControl* ControlAt(const TPoint& point) const;
    /// The control that gets the mouse until release, or none.
    TControl* MouseCapture() const { return capture_; }

protected:
    /// What lies behind the graphic controls. The base fills with Color.
    virtual void PaintBackground(TCanvas& canvas, const TRect& part);
    /// The window takes child windows and mouse events here; a descendant with another kind of window overrides it.
    virtual QWidget* CreateWidget();
    /// Called after the window has taken a new size, however it came.
    virtual void Resized() {}
    /// The mouse left the window.
    virtual void MouseLeave() {}
    /// Holds back the painting of the whole control while it returns true.
    virtual bool UpdateLocked() const { return false; }

private:
    friend class TControl;
    friend class TGraphicControl;
    friend class ControlWidget;

    void InsertControl(TControl* control);
    void RemoveControl(TControl* control);
    void ChildMoved(TControl* control, const TRect& oldBounds);

    struct Private;
    std::unique_ptr<Private> d_;
    TControl* capture_ = nullptr;
};

} // namespace vorn
