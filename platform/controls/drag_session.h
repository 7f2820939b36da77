#pragma once

#include "platform/controls/win_control.h"

#include <QtCore/QByteArray>

#include <functional>
#include <memory>
#include <optional>

class QMimeData;

namespace vorn {

/// A drag of one of this process's controls, from its begin to its end. There is one at a time, on the stack of what
/// began it. What travels with it is a token and nothing else: the source is known here.
class DragSession {
public:
    explicit DragSession(TControl& source);
    ~DragSession();
    DragSession(const DragSession&) = delete;
    DragSession& operator=(const DragSession&) = delete;

    static DragSession* Current() { return current_; }
    /// The one under way whose token `data` bears; none for what other programs drag, and once the source has gone.
    static DragSession* Of(const QMimeData* data);
    bool IsFrom(const TControl& control) const { return source_.Get() == &control; }
    std::unique_ptr<QMimeData> MakeData() const;

    /// What a window tells: the thing came to a point of it, left it, was let go over it. Handlers may free the
    /// target. An exception of theirs while the thing moves ends the drag.
    void Over(TWinControl& target, const TPoint& at);
    void Leave(TWinControl& target);
    /// False if the target hadn't accepted the thing.
    bool Drop(TWinControl& target, const TPoint& at);
    /// Whether the target would take what is dragged, by its last answer.
    bool AcceptedBy(const TWinControl* target) const { return accepted_ && target && over_.Get() == target; }

    /// Breaks the drag off: from now on nobody takes what is dragged.
    void Cancel();
    /// From now on another drag may begin.
    void End();
    /// Who took the drop and where in its client area; none if nobody did or it has been freed since.
    TControl* Taker() const { return taker_.Get(); }
    TPoint TakenAt() const { return Taker() ? takenAt_ : TPoint{}; }

private:
    /// A control that may be freed any time.
    class Followed {
    public:
        void Set(TControl* control)
        {
            watch_.reset();
            control_ = control;
            if (control)
                watch_.emplace(control);
        }
        TControl* Get() const { return watch_ && watch_->Alive() ? control_ : nullptr; }

    private:
        TControl* control_ = nullptr;
        std::optional<TLifeWatch> watch_;
    };

    bool Ask(TWinControl& target, TDragState state);

    static DragSession* current_;
    QByteArray token_;
    Followed source_;
    Followed over_;
    TPoint at_; // the last place over it
    bool accepted_ = false;
    bool cancelled_ = false;
    Followed taker_;
    TPoint takenAt_;
};

/// Carries a drag over the screen and returns when it was dropped or given up.
using DragCarrier = std::function<void(std::unique_ptr<QMimeData> data)>;
/// Puts something else in the place of the window system's drag, such as a test's own events; none puts that back.
/// Gives what was there.
DragCarrier SetDragCarrier(DragCarrier carrier);

} // namespace vorn
