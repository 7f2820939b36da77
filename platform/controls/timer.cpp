#include "platform/controls/timer.h"

#include "platform/controls/application.h"

#include <QtCore/QTimer>

#include <algorithm>

namespace vorn {

TTimer::TTimer(TComponent* owner) : TComponent(owner)
{
    Restart();
}

TTimer::~TTimer()
{
    Destroying();
}

void TTimer::SetEnabled(bool enabled)
{
    if (enabled_ == enabled)
        return;
    enabled_ = enabled;
    Restart();
}

void TTimer::SetInterval(int milliseconds)
{
    interval_ = std::max(milliseconds, 0);
    Restart();
}

void TTimer::Restart()
{
    if (!enabled_ || interval_ == 0) {
        if (timer_)
            timer_->stop();
        return;
    }
    if (!timer_) {
        timer_ = std::make_unique<QTimer>();
        timer_->callOnTimeout([this] {
            try {
                Raise(OnTimer, this);
            } catch (...) {
                Application().HandleException(std::current_exception());
            }
        });
    }
    timer_->start(interval_);
}

} // namespace vorn
