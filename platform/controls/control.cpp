#include "platform/controls/control.h"

#include "platform/controls/popup_menu.h"
#include "platform/controls/win_control.h"
#include "platform/system/exceptions.h"

#include <algorithm>
#include <limits>

namespace vorn {

namespace {

int SaturatingAdd(int a, int b)
{
    const std::int64_t sum = static_cast<std::int64_t>(a) + b;
    return static_cast<int>(
        std::clamp<std::int64_t>(sum, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

} // namespace

TControl::TControl(TComponent* owner) : TComponent(owner)
{
    font_.OnChange = [this](TObject*) { FontChanged(); };
}

TControl::~TControl()
{
    Destroying();
    if (parent_)
        parent_->RemoveControl(this);
}

void TControl::SetBounds(int left, int top, int width, int height)
{
    bounds_ = {left, top};
    width_ = std::max(width, 0);
    height_ = std::max(height, 0);
}

TRect TControl::BoundsRect() const
{
    return {Left(), Top(), SaturatingAdd(Left(), Width()), SaturatingAdd(Top(), Height())};
}

void TControl::SetParent(TWinControl* parent)
{
    if (parent == parent_)
        return;
    for (const TControl* above = parent; above; above = above->parent_) {
        if (above == this)
            throw EInvalidOperation(u"A control can't lie inside itself");
    }
    if (parent_)
        parent_->RemoveControl(this);
    if (parent)
        parent->InsertControl(this);
}

void TControl::SetVisible(bool visible)
{
    visible_ = visible;
}

void TControl::SetEnabled(bool enabled)
{
    if (enabled_ == enabled)
        return;
    enabled_ = enabled;
    Invalidate();
}

void TControl::SetCaption(StringView caption)
{
    if (caption_ == caption)
        return;
    caption_ = caption;
    TextChanged();
}

void TControl::SetColor(TColor color)
{
    if (color_ == color)
        return;
    color_ = color;
    Invalidate();
}

void TControl::SetCursor(TCursor cursor)
{
    if (cursor_ == cursor)
        return;
    cursor_ = cursor;
    if (parent_)
        parent_->RefreshCursor(this);
}

void TControl::SetPopupMenu(TPopupMenu* menu)
{
    popupMenu_ = menu;
    if (menu) {
        menu->ParentBiDiModeChanged(this);
        menu->FreeNotification(this);
    }
}

TPoint TControl::ClientOrigin() const
{
    const TPoint base = parent_ ? parent_->ClientOrigin() : TPoint{};
    return {WrapAdd(base.X, Left()), WrapAdd(base.Y, Top())};
}

TPoint TControl::ClientToScreen(const TPoint& point) const
{
    const TPoint origin = ClientOrigin();
    return {WrapAdd(point.X, origin.X), WrapAdd(point.Y, origin.Y)};
}

TPoint TControl::ScreenToClient(const TPoint& point) const
{
    const TPoint origin = ClientOrigin();
    return {WrapSub(point.X, origin.X), WrapSub(point.Y, origin.Y)};
}

TControl::TMouseEvents& TControl::Events()
{
    if (!events_)
        events_ = std::make_unique<TMouseEvents>();
    return *events_;
}

void TControl::RaiseMouse(TMouseEvent TMouseEvents::*event, TMouseButton button, const TMouseMessage& message)
{
    if (events_)
        Raise((*events_).*event, this, button, message.Shift, message.Pos.X, message.Pos.Y);
}

void TControl::Click()
{
    if (events_)
        Raise(events_->OnClick, this);
}

void TControl::WMLButtonDown(const TMouseMessage& message)
{
    pressed_ = true;
    RaiseMouse(&TMouseEvents::OnMouseDown, TMouseButton::mbLeft, message);
}

void TControl::WMLButtonUp(const TMouseMessage& message)
{
    const bool clicked = std::exchange(pressed_, false) && PtInRect(ClientRect(), message.Pos);
    if (clicked) {
        const TLifeWatch watch(this);
        Click();
        if (!watch.Alive())
            return;
    }
    RaiseMouse(&TMouseEvents::OnMouseUp, TMouseButton::mbLeft, message);
}

void TControl::WMLButtonDblClk(const TMouseMessage& message)
{
    if (!events_)
        return;
    const TLifeWatch watch(this);
    Raise(events_->OnDblClick, this);
    if (watch.Alive())
        RaiseMouse(&TMouseEvents::OnMouseDown, TMouseButton::mbLeft, {message.Pos, message.Shift | ssDouble});
}

void TControl::WMLMouseMove(const TMouseMessage& message)
{
    if (events_)
        Raise(events_->OnMouseMove, this, message.Shift, message.Pos.X, message.Pos.Y);
}

void TControl::WMRButtonDown(const TMouseMessage& message)
{
    RaiseMouse(&TMouseEvents::OnMouseDown, TMouseButton::mbRight, message);
}

void TControl::WMRButtonUp(const TMouseMessage& message)
{
    RaiseMouse(&TMouseEvents::OnMouseUp, TMouseButton::mbRight, message);
}

bool TControl::WMContextMenu(const TPoint& screenPos)
{
    const TLifeWatch watch(this);
    bool handled = false;
    DoContextPopup(ScreenToClient(screenPos), handled);
    if (handled || !watch.Alive())
        return true;
    TPopupMenu* menu = GetPopupMenu();
    if (!menu)
        return !watch.Alive();
    menu->Popup(screenPos.X, screenPos.Y, watch.Alive() ? this : nullptr);
    return true;
}

void TControl::DoContextPopup(const TPoint& mousePos, bool& handled)
{
    if (events_)
        Raise(events_->OnContextPopup, this, mousePos, handled);
}

void TControl::Notification(TComponent* component, TOperation operation)
{
    TComponent::Notification(component, operation);
    if (operation == TOperation::opRemove && component == popupMenu_)
        popupMenu_ = nullptr;
}

} // namespace vorn
