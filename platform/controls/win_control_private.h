#pragma once

#include "platform/controls/child_index.h"
#include "platform/controls/control_widget.h"

#include <QtCore/QPointer>

#include <vector>

namespace vorn {

struct TWinControl::Private {
    // Children, lowest first. A removed one leaves a gap until enough of them are worth closing, so that
    // removal is constant in time; gaps at the front and the back cost nothing.
    std::vector<TControl*> Children;
    std::size_t First = 0;
    std::size_t Gaps = 0; // between First and the end
    ChildIndex Index;

    QPointer<QWidget> Widget;
    QPointer<ControlWidget> Surface;
    bool Created = false;
    TPoint Size; // as last told to Resized

    TRect Held;            // what changed while updates were locked
    int DirtyCount = 0;    // parts asked for since the last paint
    bool AllDirty = false; // so many that the whole is painted
    bool Painting = false;

    bool TabStop = false;
    int TabOrder = -1;

    TControl* Hovered = nullptr;
    TCursor ShownCursor = crDefault;

    void AddChild(TControl* control);
    void RemoveChild(TControl* control);
    std::size_t Count() const { return Children.size() - First - Gaps; }
    void CloseGaps();
};

} // namespace vorn
