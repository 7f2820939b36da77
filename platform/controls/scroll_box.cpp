#include "platform/controls/scroll_box.h"

#include "platform/controls/control_widget.h"

#include <QtCore/QPointer>
#include <QtWidgets/QAbstractScrollArea>
#include <QtWidgets/QScrollBar>

#include <algorithm>
#include <limits>

namespace vorn {

namespace {

constexpr int WidestWindow = 16'777'215; // Qt's limit for the size of a window

} // namespace

/// The frame with the scroll bars; the content is as large as the children need and at least as the view.
class TScrollBox::Area : public QAbstractScrollArea {
public:
    explicit Area(TScrollBox& box) : box_(&box), content_(new ControlWidget(box, viewport()))
    {
        setFrameShape(QFrame::NoFrame);
    }
    ~Area() override
    {
        if (box_)
            box_->area_ = nullptr;
    }

    void Detach() { box_ = nullptr; }
    const QSize& View() const { return view_; }

    /// Works from sizes, not from what is shown, so that it holds for a hidden window too.
    void Arrange()
    {
        if (!box_)
            return;
        const TPoint extent = box_->Extent();
        const QSize full = size();
        const int barWidth = verticalScrollBar()->sizeHint().width();
        const int barHeight = horizontalScrollBar()->sizeHint().height();
        const bool across = extent.X > full.width() - (extent.Y > full.height() ? barWidth : 0);
        const bool down = extent.Y > full.height() - (across ? barHeight : 0);
        view_ = QSize(
            std::max(full.width() - (down ? barWidth : 0), 0), std::max(full.height() - (across ? barHeight : 0), 0));
        SetRange(*horizontalScrollBar(), extent.X, view_.width());
        SetRange(*verticalScrollBar(), extent.Y, view_.height());
        content_->setGeometry(-horizontalScrollBar()->value(), -verticalScrollBar()->value(),
            std::max(extent.X, view_.width()), std::max(extent.Y, view_.height()));
    }

protected:
    void resizeEvent(QResizeEvent* event) override
    {
        QAbstractScrollArea::resizeEvent(event);
        Arrange();
        if (box_)
            box_->SizeChanged();
    }
    void scrollContentsBy(int, int) override
    {
        content_->move(-horizontalScrollBar()->value(), -verticalScrollBar()->value());
    }
    QSize sizeHint() const override { return content_->sizeHint(); }

private:
    static void SetRange(QScrollBar& bar, int extent, int view)
    {
        bar.setPageStep(view);
        bar.setSingleStep(std::max(view / 20, 1));
        bar.setRange(0, std::max(extent - view, 0));
    }

    TScrollBox* box_;
    ControlWidget* content_;
    QSize view_;
};

TScrollBox::TScrollBox(TComponent* owner) : TWinControl(owner) {}

TScrollBox::~TScrollBox()
{
    Destroying();
    if (area_)
        area_->Detach();
}

QWidget* TScrollBox::CreateWidget()
{
    area_ = new Area(*this);
    return area_;
}

TScrollBox::Area* TScrollBox::MakeArea() const
{
    Widget();
    if (area_)
        area_->Arrange();
    return area_;
}

TPoint TScrollBox::Extent() const
{
    TPoint extent;
    for (int i = 0; i < ControlCount(); ++i) {
        const TControl* child = Controls(i);
        if (!child->Visible())
            continue;
        const TRect bounds = child->BoundsRect();
        extent = {std::max(extent.X, bounds.Right), std::max(extent.Y, bounds.Bottom)};
    }
    return {std::min(extent.X, WidestWindow), std::min(extent.Y, WidestWindow)};
}

TRect TScrollBox::ClientRect() const
{
    const Area* area = MakeArea();
    return area ? TRect{0, 0, area->View().width(), area->View().height()} : TWinControl::ClientRect();
}

void TScrollBox::Resized()
{
    if (area_)
        area_->Arrange();
}

void TScrollBox::ChildrenChanged()
{
    if (area_)
        area_->Arrange();
}

TPoint TScrollBox::ScrollPosition() const
{
    const Area* area = MakeArea();
    return area ? TPoint{area->horizontalScrollBar()->value(), area->verticalScrollBar()->value()} : TPoint{};
}

void TScrollBox::SetScrollPosition(const TPoint& position)
{
    if (Area* area = MakeArea()) {
        area->horizontalScrollBar()->setValue(position.X);
        area->verticalScrollBar()->setValue(position.Y);
    }
}

void TScrollBox::ScrollInView(TControl* control)
{
    if (!control)
        return;
    TRect r{0, 0, control->Width(), control->Height()};
    const TControl* step = control;
    for (; step && step != this; step = step->Parent())
        OffsetRect(r, step->Left(), step->Top());
    if (!step)
        return;
    const auto nearest = [](int now, int from, int to, int view) {
        if (from < now || to - from > view)
            return from;
        return to > now + view ? to - view : now;
    };
    const TPoint now = ScrollPosition();
    const TRect view = ClientRect();
    SetScrollPosition({nearest(now.X, r.Left, r.Right, view.Width()), nearest(now.Y, r.Top, r.Bottom, view.Height())});
}

} // namespace vorn
