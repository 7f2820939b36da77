#include "platform/controls/control_watch.h"

namespace vorn {

ControlWatch* ControlWatch::first_ = nullptr;

ControlWatch::ControlWatch(TControl* control) : control_(control), next_(first_)
{
    first_ = this;
}

ControlWatch::~ControlWatch()
{
    ControlWatch** link = &first_;
    while (*link != this)
        link = &(*link)->next_;
    *link = next_;
}

void ControlWatch::ControlGone(const TControl* control)
{
    for (ControlWatch* watch = first_; watch; watch = watch->next_) {
        if (watch->control_ == control)
            watch->control_ = nullptr;
    }
}

} // namespace vorn
