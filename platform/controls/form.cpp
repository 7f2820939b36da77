#include "platform/controls/form.h"

#include "platform/controls/button.h"
#include "platform/controls/form_window.h"
#include "platform/controls/keyboard.h"
#include "platform/system/guards.h"
#include "platform/system/qt_convert.h"

#include <QtCore/QEventLoop>

#include <algorithm>

namespace vorn {

namespace {

/// The first visible and enabled button inside that `wanted` picks.
TButton* FindButton(const TWinControl& parent, bool (TButton::*wanted)() const)
{
    for (int i = 0; i < parent.ControlCount(); ++i) {
        auto* inside = dynamic_cast<TWinControl*>(parent.Controls(i));
        if (!inside || !inside->Visible() || !inside->Enabled())
            continue;
        if (auto* button = dynamic_cast<TButton*>(inside); button && (button->*wanted)())
            return button;
        if (TButton* button = FindButton(*inside, wanted))
            return button;
    }
    return nullptr;
}

} // namespace

TForm::TForm(TComponent* owner) : TWinControl(owner)
{
    TWinControl::SetVisible(false); // no window exists yet
}

TForm::~TForm()
{
    Destroying();
    if (loop_)
        loop_->quit();
    if (window_)
        window_->Release();
}

void TForm::SetBorderStyle(TFormBorderStyle style)
{
    borderStyle_ = style;
    if (Visible() && !Parent()) {
        PrepareWindow(modal_);
        window_->show();
    }
}

void TForm::SetAutoSize(bool autoSize)
{
    autoSize_ = autoSize;
    FitToContents();
}

void TForm::FitToContents()
{
    if (!autoSize_)
        return;
    TPoint reach;
    for (int i = 0; i < ControlCount(); ++i) {
        const TControl* child = Controls(i);
        if (!child->Visible())
            continue;
        const TRect bounds = child->BoundsRect();
        reach = {std::max(reach.X, bounds.Right), std::max(reach.Y, bounds.Bottom)};
    }
    if (reach.X > 0 && reach.Y > 0 && reach != TPoint{Width(), Height()})
        SetBounds(Left(), Top(), reach.X, reach.Y);
}

void TForm::ChildrenChanged()
{
    FitToContents();
}

void TForm::SetActiveControl(TWinControl* control)
{
    activeControl_ = control;
    if (!control)
        return;
    control->FreeNotification(this);
    if (Visible())
        control->SetFocus();
}

void TForm::Notification(TComponent* component, TOperation operation)
{
    TWinControl::Notification(component, operation);
    if (operation == TOperation::opRemove && component == activeControl_)
        activeControl_ = nullptr;
}

void TForm::TextChanged()
{
    TWinControl::TextChanged();
    if (window_)
        window_->setWindowTitle(ToQt(Caption()));
}

void TForm::SetParent(TWinControl* parent)
{
    if (parent == Parent())
        return;
    TWinControl::SetParent(parent);
    if (parent && parentFont_)
        Font().Assign(parent->Font());
    LimitSize();
    if (window_ && !parent && Visible()) {
        PrepareWindow(modal_);
        window_->show();
    } else if (window_ && parent) {
        window_->raise();
    }
}

void TForm::SetVisible(bool visible)
{
    if (visible == Visible() || showing_)
        return;
    if (!visible && modal_) {
        Close();
        return;
    }
    const TLifeWatch watch(this);
    if (visible) {
        showing_ = true;
        const ScopeExit shown([&] {
            if (watch.Alive())
                showing_ = false;
        });
        Raise(OnShow, this);
        if (!watch.Alive())
            return;
        if (!Parent())
            PrepareWindow(modal_);
    }
    TWinControl::SetVisible(visible);
    if (visible && window_ && watch.Alive()) {
        window_->raise();
        if (!Parent())
            window_->activateWindow();
        GiveFocus();
    }
}

void TForm::Show()
{
    SetVisible(true);
}

void TForm::Close()
{
    if (modal_) {
        SetModalResult(mrCancel);
        return;
    }
    const TLifeWatch watch(this);
    if (CloseQuery() && watch.Alive())
        Hide();
}

bool TForm::CloseQuery()
{
    bool canClose = true;
    Raise(OnCloseQuery, this, canClose);
    return canClose;
}

bool TForm::KeyDown(unsigned key, TShiftState shift)
{
    TButton* button = nullptr;
    if (key == VK_RETURN)
        button = FindButton(*this, &TButton::Default);
    else if (key == VK_ESCAPE)
        button = FindButton(*this, &TButton::Cancel);
    if (!button)
        return TWinControl::KeyDown(key, shift);
    button->Click();
    return true;
}

TForm* GetParentForm(TControl* control)
{
    for (; control; control = control->Parent()) {
        if (auto* form = dynamic_cast<TForm*>(control))
            return form;
    }
    return nullptr;
}

} // namespace vorn
