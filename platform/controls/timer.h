#pragma once

#include "platform/system/component.h"

#include <memory>

class QTimer;

namespace vorn {

/// Calls OnTimer every Interval milliseconds on the user-interface thread while it is enabled.
class TTimer : public TComponent {
public:
    explicit TTimer(TComponent* owner = nullptr);
    ~TTimer() override;

    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled);
    int Interval() const { return interval_; }
    /// 0 stops the calls without changing Enabled. Restarts the count.
    void SetInterval(int milliseconds);

    TNotifyEvent OnTimer;

private:
    void Restart();

    std::unique_ptr<QTimer> timer_;
    int interval_ = 1000;
    bool enabled_ = true;
};

} // namespace vorn
