#pragma once

#include "platform/controls/mouse.h"
#include "platform/graphics/canvas.h"
#include "platform/system/component.h"

#include <memory>

namespace vorn {

class TPopupMenu;
class TWinControl;

/// A thing on the screen with a place in its parent.
///
/// Left, Top, Width and Height are pixels in the parent's client area. The parent doesn't own the control but frees
/// its child controls when it goes.
class TControl : public TComponent {
public:
    explicit TControl(TComponent* owner);
    ~TControl() override;

    int Left() const { return bounds_.X; }
    int Top() const { return bounds_.Y; }
    virtual int Width() const { return width_; }
    virtual int Height() const { return height_; }
    void SetLeft(int left) { SetBounds(left, Top(), Width(), Height()); }
    void SetTop(int top) { SetBounds(Left(), top, Width(), Height()); }
    void SetWidth(int width) { SetBounds(Left(), Top(), width, Height()); }
    void SetHeight(int height) { SetBounds(Left(), Top(), Width(), height); }
    /// Negative sizes become 0.
    virtual void SetBounds(int left, int top, int width, int height);
    /// Right and bottom stop at the end of the 32-bit range.
    TRect BoundsRect() const;
    /// The area inside, from (0, 0).
    virtual TRect ClientRect() const { return {0, 0, Width(), Height()}; }
    int ClientWidth() const { return ClientRect().Width(); }
    int ClientHeight() const { return ClientRect().Height(); }
    virtual void SetClientWidth(int width) { SetWidth(width); }
    virtual void SetClientHeight(int height) { SetHeight(height); }

    TWinControl* Parent() const { return parent_; }
    virtual void SetParent(TWinControl* parent);
    bool Visible() const { return visible_; }
    virtual void SetVisible(bool visible);
    bool Enabled() const { return enabled_; }
    virtual void SetEnabled(bool enabled);

    const String& Caption() const { return caption_; }
    void SetCaption(StringView caption);
    const String& Hint() const { return hint_; }
    virtual void SetHint(StringView hint) { hint_ = hint; }
    TColor Color() const { return color_; }
    virtual void SetColor(TColor color);
    /// The control's own font; changing it re-measures and repaints the control.
    TFont& Font() { return font_; }
    const TFont& Font() const { return font_; }
    TCursor Cursor() const { return cursor_; }
    virtual void SetCursor(TCursor cursor);
    TPopupMenu* PopupMenu() const { return popupMenu_; }
    void SetPopupMenu(TPopupMenu* menu);

    /// Asks for a paint later.
    virtual void Invalidate() = 0;
    /// Paints at once what has been asked for.
    virtual void Update() = 0;
    void Repaint()
    {
        Invalidate();
        Update();
    }

    TPoint ClientToScreen(const TPoint& point) const;
    TPoint ScreenToClient(const TPoint& point) const;

    /// The events of rarely wired controls; made when first asked for.
    struct TMouseEvents {
        TNotifyEvent OnClick, OnDblClick;
        TMouseEvent OnMouseDown, OnMouseUp;
        TMouseMoveEvent OnMouseMove;
        TContextPopupEvent OnContextPopup;
        TDragOverEvent OnDragOver;
        TDragDropEvent OnDragDrop;
        TEndDragEvent OnEndDrag;
    };
    TMouseEvents& Events();
    bool HasEvents() const { return events_ != nullptr; }

    /// As if it had been clicked: the base raises OnClick. A handler may free the control.
    virtual void Click();

    /// What the control layer calls for each mouse message. The base handlers raise the ordinary events; the left
    /// button captures the mouse between press and release, and a release inside raises OnClick. A handler may free
    /// the control.
    virtual void WMLButtonDown(const TMouseMessage& message);
    virtual void WMLButtonUp(const TMouseMessage& message);
    virtual void WMLButtonDblClk(const TMouseMessage& message);
    virtual void WMLMouseMove(const TMouseMessage& message);
    virtual void WMRButtonDown(const TMouseMessage& message);
    virtual void WMRButtonUp(const TMouseMessage& message);
    /// A context request at a screen point: DoContextPopup, then, unless handled, the menu of GetPopupMenu opens.
    /// Gives whether there was a handler or a menu for it; if not, the mouse's request goes on to the parent.
    virtual bool WMContextMenu(const TPoint& screenPos);

    /// Draws the control with (0, 0) at its left top corner on a bound canvas.
    virtual void PaintTo(TCanvas& canvas) = 0;

protected:
    /// The pointer came over the control or left it. For the look only: raises no event, frees nothing.
    virtual void MouseEntered() {}
    virtual void MouseLeft() {}
    virtual void DoContextPopup(const TPoint& mousePos, bool& handled);
    virtual TPopupMenu* GetPopupMenu() { return popupMenu_; }
    /// The caption or the font changed. The base repaints.
    virtual void TextChanged() { Invalidate(); }
    virtual void FontChanged() { TextChanged(); }
    void Notification(TComponent* component, TOperation operation) override;

    /// Drags the control, with the middle of a picture under the pointer, and returns when the drag is over and
    /// OnEndDrag has been raised. While another drag is under way it does nothing. The control may be gone afterwards.
    void RunDrag(const QImage& picture);
    /// Breaks off a drag of this control; without one it does nothing.
    void CancelDrag();
    void RaiseEndDrag(TObject* target, const TPoint& at);

private:
    friend class TWinControl;
    friend class TGraphicControl;
    friend class ChildIndex;

    /// Screen coordinates of the client area's left top corner.
    virtual TPoint ClientOrigin() const;
    /// Raises OnMouseDown and the like; `this` may be gone afterwards.
    void RaiseMouse(TMouseEvent TMouseEvents::*event, TMouseButton button, const TMouseMessage& message);

    TPoint bounds_;
    int width_ = 0;
    int height_ = 0;
    TWinControl* parent_ = nullptr;
    std::size_t parentIndex_ = 0; // place in the parent's list; grows with the place in the stack
    int indexNode_ = -1;          // handle in the parent's index of what is visible
    String caption_;
    String hint_;
    TFont font_;
    TColor color_ = clBtnFace;
    TCursor cursor_ = crDefault;
    bool visible_ = true;
    bool enabled_ = true;
    bool pressed_ = false;
    TPopupMenu* popupMenu_ = nullptr;
    std::unique_ptr<TMouseEvents> events_;
};

/// A control without a window: its parent paints it, clips it and hands it the mouse.
class TGraphicControl : public TControl {
public:
    explicit TGraphicControl(TComponent* owner);
    ~TGraphicControl() override;

    void SetBounds(int left, int top, int width, int height) override;
    void SetVisible(bool visible) override;
    /// Only the part of the parent that the control covers.
    void Invalidate() override;
    void Update() override;
    void PaintTo(TCanvas& canvas) override;

protected:
    /// One parent carries very many; those who refer to one ask for its FreeNotification.
    bool NotifiesSiblings() const override { return false; }
    /// Draws the control on Canvas(). Changes nothing but the canvas.
    virtual void Paint() = 0;
    /// Only while Paint runs. Starts with the control's font, a solid white brush and a solid pen of width 1 whose
    /// colour is what the last paint left there.
    TCanvas& Canvas() const { return *canvas_; }

private:
    TCanvas* canvas_ = nullptr;
    TColor penColor_ = clBlack;
};

} // namespace vorn
