#pragma once

#include "platform/controls/win_control.h"

namespace vorn {

/// A window that scrolls over child controls larger than itself. Children's Left and Top don't change as it scrolls.
class TScrollBox : public TWinControl {
public:
    explicit TScrollBox(TComponent* owner);
    ~TScrollBox() override;

    /// The visible area, without the scroll bars that are shown.
    TRect ClientRect() const override;
    /// Scrolls as little as needed to bring `control` into sight; of one that is too large, its left top corner.
    void ScrollInView(TControl* control);
    TPoint ScrollPosition() const;
    void SetScrollPosition(const TPoint& position);

protected:
    QWidget* CreateWidget() override;
    void Resized() override;
    void ChildrenChanged() override;

private:
    class Area;

    Area* MakeArea() const;
    TPoint Extent() const;

    Area* area_ = nullptr; // valid while the window lives
};

} // namespace vorn
