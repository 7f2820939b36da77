#include "platform/controls/win_control.h"

#include "platform/controls/win_control_private.h"
#include "platform/system/qt_convert.h"

#include <QtWidgets/QLayout>

#include <algorithm>

namespace vorn {

namespace {

bool Holds(const QLayout& layout, const QWidget& widget)
{
    for (int i = 0; i < layout.count(); ++i) {
        const QLayoutItem* item = layout.itemAt(i);
        if (!item)
            continue;
        if (const QLayout* inner = const_cast<QLayoutItem*>(item)->layout(); inner && Holds(*inner, widget))
            return true;
        if (const_cast<QLayoutItem*>(item)->widget() == &widget)
            return true;
    }
    return false;
}

bool InLayout(const QWidget& widget)
{
    const QWidget* parent = widget.parentWidget();
    return parent && parent->layout() && Holds(*parent->layout(), widget);
}

void Place(QWidget& widget, int left, int top, int width, int height, bool moved)
{
    if (InLayout(widget)) {
        widget.updateGeometry();
    } else if (widget.isWindow()) {
        widget.resize(width, height);
        if (moved)
            widget.move(left, top);
    } else {
        widget.setGeometry(left, top, width, height);
    }
}

} // namespace

TWinControl::TWinControl(TComponent* owner) : TControl(owner), d_(std::make_unique<Private>()) {}

TWinControl::~TWinControl()
{
    Destroying();
    d_->Created = true;
    d_->Index.Clear();
    while (!d_->Children.empty())
        delete d_->Children.back();
    ReleaseWidget();
}

QWidget* TWinControl::Widget() const
{
    if (!d_->Created)
        const_cast<TWinControl*>(this)->MakeWidget();
    return d_->Widget;
}

QWidget* TWinControl::CreateWidget()
{
    return new ControlWidget(*this);
}

void TWinControl::MakeWidget()
{
    d_->Created = true;
    QWidget* widget = CreateWidget();
    d_->Widget = widget;
    widget->setObjectName(ToQt(Name()));
    widget->setAccessibleName(ToQt(Caption().empty() ? Name() : Caption()));
    widget->setEnabled(Enabled());
    widget->resize(TControl::Width(), TControl::Height());
    d_->Size = {Width(), Height()};
    SetTabStop(d_->TabStop);
    ShowCursor();
}

void TWinControl::AttachWindow()
{
    QWidget* own = Widget();
    Parent()->Widget();
    ControlWidget* surface = Parent()->Surface();
    if (!own || !surface)
        return;
    own->setParent(surface);
    Place(*own, Left(), Top(), TControl::Width(), TControl::Height(), true);
    own->setVisible(Visible());
    SizeChanged();
}

void TWinControl::ReleaseWidget()
{
    // A top-level window mustn't go inside an event of a window that lies in it either.
    const bool topLevel = d_->Widget && d_->Widget->isWindow();
    const bool inEvent = d_->Surface && (topLevel ? ControlWidget::AnyInEvent() : d_->Surface->InEvent());
    if (d_->Surface)
        d_->Surface->Detach();
    if (!d_->Widget)
        return;
    if (inEvent) {
        // Qt is still inside this window's event: it goes when the event loop turns.
        d_->Widget->hide();
        d_->Widget->setParent(nullptr);
        d_->Widget->deleteLater();
    } else {
        delete d_->Widget;
    }
}

ControlWidget* TWinControl::Surface() const
{
    return d_->Surface;
}

TPoint TWinControl::ClientOrigin() const
{
    return d_->Surface ? FromQPoint(d_->Surface->mapToGlobal(QPoint(0, 0))) : TControl::ClientOrigin();
}

int TWinControl::Width() const
{
    return d_ && d_->Widget ? d_->Widget->width() : TControl::Width();
}

int TWinControl::Height() const
{
    return d_ && d_->Widget ? d_->Widget->height() : TControl::Height();
}

void TWinControl::SetBounds(int left, int top, int width, int height)
{
    const TRect old = BoundsRect();
    TControl::SetBounds(left, top, width, height);
    if (d_->Widget) {
        const bool moved = left != old.Left || top != old.Top;
        Place(*d_->Widget, left, top, TControl::Width(), TControl::Height(), moved);
    }
    SizeChanged();
    if (Parent() && BoundsRect() != old)
        Parent()->ChildMoved(this, old);
}

void TWinControl::SizeChanged()
{
    const TPoint size{Width(), Height()};
    if (size == d_->Size)
        return;
    d_->Size = size;
    Resized();
    if (Parent())
        Parent()->ChildrenChanged();
}

void TWinControl::SetParent(TWinControl* parent)
{
    TControl::SetParent(parent);
}

void TWinControl::SetVisible(bool visible)
{
    if (visible == Visible())
        return;
    TControl::SetVisible(visible);
    if (d_->Widget)
        d_->Widget->setVisible(visible);
    if (Parent())
        Parent()->ChildrenChanged();
}

void TWinControl::SetEnabled(bool enabled)
{
    TControl::SetEnabled(enabled);
    if (d_->Widget)
        d_->Widget->setEnabled(enabled);
}

void TWinControl::SetCursor(TCursor cursor)
{
    TControl::SetCursor(cursor);
    ShowCursor();
}

} // namespace vorn
