#include "platform/controls/button.h"

#include "platform/controls/keyboard.h"
#include "platform/system/qt_convert.h"

#include <QtGui/QPainter>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionButton>
#include <QtWidgets/QWidget>

namespace vorn {

TButton::TButton(TComponent* owner) : TWinControl(owner)
{
    SetTabStop(true);
    TWinControl::SetBounds(0, 0, 75, 25);
}

TButton::~TButton()
{
    Destroying();
}

void TButton::SetDefault(bool isDefault)
{
    default_ = isDefault;
    Invalidate();
}

void TButton::Click()
{
    TForm* form = GetParentForm(this);
    if (form && modalResult_ != mrNone)
        form->SetModalResult(modalResult_);
    TWinControl::Click();
}

bool TButton::KeyDown(unsigned key, TShiftState shift)
{
    if (key != VK_RETURN && key != VK_SPACE)
        return TWinControl::KeyDown(key, shift);
    Click();
    return true;
}

void TButton::SetLook(bool down, bool hot)
{
    if (down_ == down && hot_ == hot)
        return;
    down_ = down;
    hot_ = hot;
    Invalidate();
}

void TButton::WMLButtonDown(const TMouseMessage& message)
{
    SetLook(true, true);
    TWinControl::WMLButtonDown(message);
}

/// The second of two quick clicks is a click like the first.
void TButton::WMLButtonDblClk(const TMouseMessage& message)
{
    WMLButtonDown(message);
}

void TButton::WMLMouseMove(const TMouseMessage& message)
{
    const bool inside = PtInRect(ClientRect(), message.Pos);
    SetLook(MouseCapture() == this && inside, inside);
    TWinControl::WMLMouseMove(message);
}

void TButton::WMLButtonUp(const TMouseMessage& message)
{
    SetLook(false, PtInRect(ClientRect(), message.Pos));
    TWinControl::WMLButtonUp(message);
}

void TButton::MouseLeave()
{
    SetLook(false, false);
}

void TButton::PaintBackground(TCanvas& canvas, const TRect& part)
{
    TWinControl::PaintBackground(canvas, part);
    QPainter* painter = canvas.Painter();
    const QWidget* widget = Widget();
    if (!painter || !widget)
        return;
    QStyleOptionButton option;
    option.initFrom(widget);
    option.rect = ToQRect(ClientRect());
    option.text = ToQt(Caption()).replace(u'&', QLatin1String("&&")); // no access keys
    option.state |= down_ ? QStyle::State_Sunken : QStyle::State_Raised;
    option.state.setFlag(QStyle::State_MouseOver, hot_ && Enabled());
    if (default_)
        option.features |= QStyleOptionButton::DefaultButton;
    painter->setFont(Font().Resolved());
    widget->style()->drawControl(QStyle::CE_PushButton, &option, painter, widget);
}

} // namespace vorn
