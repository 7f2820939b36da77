#include "platform/controls/control_widget.h"
#include "platform/imaging/thumbnail_view_private.h"
#include "platform/system/qt_convert.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QAbstractScrollArea>
#include <QtWidgets/QScrollBar>

#include <algorithm>

namespace vorn {

namespace {

constexpr std::int64_t Longest = 1 << 30; // as far as a grid reaches

int Saturate(std::int64_t value)
{
    return static_cast<int>(std::clamp(value, -Longest, Longest));
}

} // namespace

/// The frame with the scroll bars. The surface covers the visible part only and paints the grid as it is scrolled.
class TImageEnMView::Area : public QAbstractScrollArea {
public:
    explicit Area(TImageEnMView& view) : view_(&view), surface_(new ControlWidget(view, viewport()))
    {
        setFrameShape(QFrame::NoFrame);
        setFocusPolicy(Qt::NoFocus);
        setFocusProxy(surface_);
    }
    ~Area() override
    {
        if (view_)
            view_->area_ = nullptr;
    }

    void Detach() { view_ = nullptr; }
    QSize ShownSize() const { return shown_; }
    ControlWidget& Surface() { return *surface_; }

    /// Works from sizes, not from what is shown, so that it holds for a hidden window too.
    void Arrange()
    {
        if (!view_)
            return;
        const int barWidth = verticalScrollBar()->sizeHint().width();
        const int barHeight = horizontalScrollBar()->sizeHint().height();
        shown_ = size();
        TPoint extent = view_->Extent(view_->ColumnsIn(shown_.width()));
        const auto narrow = [&] {
            shown_.rwidth() = std::max(shown_.width() - barWidth, 0);
            extent = view_->Extent(view_->ColumnsIn(shown_.width()));
        };
        const bool down = extent.Y > shown_.height();
        if (down)
            narrow();
        if (extent.X > shown_.width()) {
            shown_.rheight() = std::max(shown_.height() - barHeight, 0);
            if (!down && extent.Y > shown_.height())
                narrow();
        }
        view_->columns_ = view_->ColumnsIn(shown_.width());
        SetRange(*horizontalScrollBar(), extent.X, shown_.width(), view_->Pitch().X);
        SetRange(*verticalScrollBar(), extent.Y, shown_.height(), view_->Pitch().Y);
        surface_->setGeometry(QRect({}, shown_));
    }

protected:
    /// Keys are the view's, or else its parent's; the bars have none.
    void keyPressEvent(QKeyEvent* event) override { event->ignore(); }
    void resizeEvent(QResizeEvent* event) override
    {
        QAbstractScrollArea::resizeEvent(event);
        if (!view_)
            return;
        view_->Rearrange();
        view_->SizeChanged();
    }
    void scrollContentsBy(int, int) override
    {
        if (!view_)
            return;
        view_->scroll_ = {horizontalScrollBar()->value(), verticalScrollBar()->value()};
        view_->Invalidate();
    }
    QSize sizeHint() const override { return surface_->sizeHint(); }

private:
    static void SetRange(QScrollBar& bar, int extent, int shown, int step)
    {
        bar.setPageStep(shown);
        bar.setSingleStep(std::max(step / 3, 1)); // a notch of the wheel is three steps: one row
        bar.setRange(0, std::max(extent - shown, 0));
    }

    TImageEnMView* view_;
    ControlWidget* surface_;
    QSize shown_;
};

TImageEnMView::~TImageEnMView()
{
    Destroying();
    if (area_)
        area_->Detach();
}

QWidget* TImageEnMView::CreateWidget()
{
    area_ = new Area(*this);
    Describe();
    return area_;
}

TImageEnMView::Area* TImageEnMView::MakeArea() const
{
    Widget();
    if (area_)
        area_->Arrange();
    return area_;
}

/// For screen readers: the surface has the keyboard, so it tells what is selected.
void TImageEnMView::Describe()
{
    if (!area_)
        return;
    area_->Surface().setAccessibleName(ToQt(Caption().empty() ? Name() : Caption()));
    const QString text = selected_ < 0 ? QString() : ToQt(GetImageBottomText(selected_));
    area_->Surface().setAccessibleDescription(text.simplified());
}

TPoint TImageEnMView::CellSize() const
{
    return {thumbSize_.X, thumbSize_.Y + (showText_ ? textLines_ * LineHeight(Font()) : 0)};
}

TPoint TImageEnMView::Pitch() const
{
    const TPoint cell = CellSize();
    return {cell.X + border_.X, cell.Y + border_.Y};
}

int TImageEnMView::ColumnsIn(int width) const
{
    return gridWidth_ > 0 ? gridWidth_ : std::max((width - border_.X) / Pitch().X, 1);
}

TPoint TImageEnMView::Extent(int columns) const
{
    if (entries_.empty())
        return {};
    const TPoint pitch = Pitch();
    const std::int64_t across = std::min(columns, GetImageCount());
    const std::int64_t rows = (GetImageCount() - 1) / columns + 1;
    return {Saturate(border_.X + across * pitch.X), Saturate(border_.Y + rows * pitch.Y)};
}

TRect TImageEnMView::ContentCell(int idx) const
{
    const TPoint cell = CellSize();
    const TPoint pitch = Pitch();
    const std::int64_t column = idx % columns_;
    const std::int64_t row = idx / columns_;
    return Bounds(Saturate(border_.X + column * pitch.X), Saturate(border_.Y + row * pitch.Y), cell.X, cell.Y);
}

TRect TImageEnMView::ImageCell(int idx) const
{
    At(idx);
    MakeArea();
    TRect cell = ContentCell(idx);
    OffsetRect(cell, -scroll_.X, -scroll_.Y);
    return cell;
}

int TImageEnMView::ImageAt(const TPoint& point) const
{
    MakeArea();
    const TPoint pitch = Pitch();
    const std::int64_t x = std::int64_t{point.X} + scroll_.X - border_.X;
    const std::int64_t y = std::int64_t{point.Y} + scroll_.Y - border_.Y;
    if (x < 0 || y < 0 || x / pitch.X >= columns_)
        return -1;
    const std::int64_t idx = y / pitch.Y * columns_ + x / pitch.X;
    const TPoint cell = CellSize();
    return idx < GetImageCount() && x % pitch.X < cell.X && y % pitch.Y < cell.Y ? static_cast<int>(idx) : -1;
}

std::pair<int, int> TImageEnMView::EntriesBetween(int top, int bottom) const
{
    constexpr int rim = 2; // the frame around a cell
    const int height = Pitch().Y;
    const auto first = [&](int y) {
        const std::int64_t row = std::max(std::int64_t{y} + scroll_.Y - border_.Y, std::int64_t{0}) / height;
        return static_cast<int>(std::min<std::int64_t>(row * columns_, GetImageCount()));
    };
    return {first(top - rim), first(Saturate(std::int64_t{bottom} + rim + height))};
}

void TImageEnMView::Rearrange()
{
    if (!area_)
        return;
    const int columns = columns_;
    area_->Arrange();
    if (columns == columns_)
        return;
    Invalidate();
    if (selectedAlwaysVisible_ && selected_ >= 0)
        ScrollInView(selected_);
}

void TImageEnMView::Resized()
{
    Rearrange();
    if (selectedAlwaysVisible_ && selected_ >= 0)
        ScrollInView(selected_);
}

void TImageEnMView::InvalidateCell(int idx)
{
    if (area_ && idx >= 0 && idx < GetImageCount())
        InvalidateRect(Framed(ImageCell(idx)));
}

TRect TImageEnMView::ClientRect() const
{
    const Area* area = MakeArea();
    return area ? TRect{0, 0, area->ShownSize().width(), area->ShownSize().height()} : TWinControl::ClientRect();
}

void TImageEnMView::SetScrollPosition(const TPoint& position)
{
    if (Area* area = MakeArea()) {
        area->horizontalScrollBar()->setValue(position.X);
        area->verticalScrollBar()->setValue(position.Y);
    }
}

void TImageEnMView::ScrollInView(int idx)
{
    At(idx);
    const TRect view = ClientRect();
    const TRect cell = ContentCell(idx);
    const auto nearest = [](int now, int from, int to, int shown) {
        if (from < now || to - from > shown)
            return from;
        return to > now + shown ? to - shown : now;
    };
    SetScrollPosition({nearest(scroll_.X, cell.Left - border_.X, cell.Right + border_.X, view.Width()),
        nearest(scroll_.Y, cell.Top - border_.Y, cell.Bottom + border_.Y, view.Height())});
}

} // namespace vorn
