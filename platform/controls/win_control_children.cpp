#include "platform/controls/win_control_private.h"

#include "platform/system/exceptions.h"
#include "platform/system/strings.h"

namespace vorn {

namespace {

constexpr std::size_t FewGaps = 32;

} // namespace

void TWinControl::Private::AddChild(TControl* control)
{
    control->parentIndex_ = Children.size();
    Children.push_back(control);
}

void TWinControl::Private::RemoveChild(TControl* control)
{
    Children[control->parentIndex_] = nullptr;
    ++Gaps;
    while (!Children.empty() && Children.size() > First && !Children.back()) {
        Children.pop_back();
        --Gaps;
    }
    while (First < Children.size() && !Children[First]) {
        ++First;
        --Gaps;
    }
    if (First == Children.size()) {
        Children.clear();
        First = 0;
    } else if (First + Gaps > FewGaps && First + Gaps > Count()) {
        CloseGaps();
    }
}

void TWinControl::Private::CloseGaps()
{
    std::erase(Children, nullptr);
    for (std::size_t i = 0; i < Children.size(); ++i)
        Children[i]->parentIndex_ = i;
    First = 0;
    Gaps = 0;
}

int TWinControl::ControlCount() const
{
    return static_cast<int>(d_->Count());
}

TControl* TWinControl::Controls(int index) const
{
    if (index < 0 || index >= ControlCount())
        throw EListError(u"There is no child control " + IntToStr(index));
    if (d_->Gaps > 0)
        d_->CloseGaps();
    return d_->Children[d_->First + static_cast<std::size_t>(index)];
}

void TWinControl::InsertControl(TControl* control)
{
    control->parent_ = this;
    d_->AddChild(control);
    if (auto* window = dynamic_cast<TWinControl*>(control)) {
        window->AttachWindow();
    } else if (control->visible_) {
        d_->Index.Add(control, control->BoundsRect());
        InvalidateRect(control->BoundsRect());
    }
    ChildrenChanged();
}

void TWinControl::RemoveControl(TControl* control)
{
    if (control->indexNode_ >= 0) {
        d_->Index.Remove(control);
        InvalidateRect(control->BoundsRect());
    }
    d_->RemoveChild(control);
    control->parent_ = nullptr;
    if (capture_ == control)
        capture_ = nullptr;
    if (d_->Hovered == control)
        d_->Hovered = nullptr;
    if (auto* window = dynamic_cast<TWinControl*>(control); window && window->d_->Widget)
        window->d_->Widget->setParent(nullptr);
    if (!InState(csDestroying))
        ChildrenChanged();
}

void TWinControl::ChildMoved(TControl* control, const TRect& oldBounds)
{
    if (control->indexNode_ >= 0) {
        d_->Index.Move(control, control->BoundsRect());
        InvalidateRect(oldBounds);
        InvalidateRect(control->BoundsRect());
    }
    ChildrenChanged();
}

void TWinControl::ChildShown(TControl* control)
{
    if (control->visible_) {
        d_->Index.Add(control, control->BoundsRect());
    } else {
        d_->Index.Remove(control);
        if (capture_ == control)
            capture_ = nullptr;
        if (d_->Hovered == control)
            d_->Hovered = nullptr;
    }
    InvalidateRect(control->BoundsRect());
    ChildrenChanged();
}

TControl* TWinControl::TopmostAt(const TPoint& point, bool onlyEnabled) const
{
    TControl* top = nullptr;
    for (TControl* control : d_->Index.At(point)) {
        if ((!onlyEnabled || control->Enabled()) && (!top || control->parentIndex_ > top->parentIndex_))
            top = control;
    }
    return top;
}

TControl* TWinControl::ControlAt(const TPoint& point) const
{
    return TopmostAt(point, false);
}

} // namespace vorn
