#pragma once

#include "platform/controls/control.h"

#include <memory>
#include <vector>

class QPainter;
class QRegion;
class QWidget;

namespace vorn {

class ControlWidget;

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

    /// Whether the user can give it the keyboard, by Tab and by a click. Starts false.
    bool TabStop() const;
    /// A window of another kind than the base's must take no keyboard of its own: the surface on which the control
    /// paints gets it.
    void SetTabStop(bool tabStop);
    /// Place in the order in which Tab walks over the controls of one parent. Those with -1, the start value, come
    /// last, in the order in which they were added.
    int TabOrder() const;
    void SetTabOrder(int order);
    /// Has the keyboard.
    bool Focused() const;
    /// Takes the keyboard, or will have it when its window is next in front.
    void SetFocus();
    /// What the control layer calls for each key of keyboard.h. True if the key is used up; else the parent gets it. A
    /// held key repeats, but for VK_RETURN, VK_ESCAPE and VK_SPACE. A handler may free the control.
    virtual bool KeyDown(unsigned key, TShiftState shift);

protected:
    /// The keyboard came or went. The base repaints a control that takes it.
    virtual void FocusChanged();
    /// Whether the hints of the controls inside are shown; the base asks the parent.
    virtual bool ShowsHints() const;
    /// What lies behind the graphic controls. The base fills with Color.
    virtual void PaintBackground(TCanvas& canvas, const TRect& part);
    /// The window takes child windows and mouse events here; a descendant with another kind of window overrides it.
    virtual QWidget* CreateWidget();
    /// Called after the window has taken a new size, however it came.
    virtual void Resized() {}
    /// A child control came, went, moved, took another size or was shown or hidden.
    virtual void ChildrenChanged() {}
    /// For a descendant with a window of its own kind: looks whether its size changed.
    void SizeChanged();
    /// Asks for a paint of what changed while UpdateLocked held it back.
    void FlushUpdates();
    /// The hint at a client point: that of the graphic control there, or else of the control itself.
    virtual const String& HintAt(const TPoint& point) const;
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
    void ChildShown(TControl* control);
    TPoint ClientOrigin() const override;

    void MakeWidget();
    void AttachWindow();
    void ReleaseWidget();
    ControlWidget* Surface() const;

    void PaintRegion(QPainter& painter, const QRegion& region);
    void PaintChildren(TCanvas& canvas, QPainter& painter, const TRect& part);
    void MarkDirty(const TRect& r);

    TControl* TopmostAt(const TPoint& point, bool onlyEnabled) const;
    TControl* MouseTarget(const TPoint& point);
    void MousePress(TMouseButton button, const TMouseMessage& message, bool twice);
    void MouseRelease(TMouseButton button, const TMouseMessage& message, const TPoint& screenPos);
    void MouseMove(const TMouseMessage& message);
    void Hover(TControl* control);
    void RefreshCursor(const TControl* control);
    void ShowCursor();

    struct Private;
    std::unique_ptr<Private> d_;
    TControl* capture_ = nullptr;
};

/// Asks a control for its context menu, and the windows it lies on while nobody answers.
void RequestContextMenu(TControl* control, const TPoint& screenPos);

} // namespace vorn
