#pragma once

namespace vorn {

class TControl;

/// Follows a control across a call that may free it. Lives on the stack of whoever makes the call.
class ControlWatch {
public:
    explicit ControlWatch(TControl* control);
    ~ControlWatch();
    ControlWatch(const ControlWatch&) = delete;
    ControlWatch& operator=(const ControlWatch&) = delete;

    /// None once the control has gone.
    TControl* Control() const { return control_; }
    bool Alive() const { return control_ != nullptr; }

    /// For the control's destructor.
    static void ControlGone(const TControl* control);

private:
    TControl* control_;
    ControlWatch* next_;
    static ControlWatch* first_; // watches nest like the calls they guard, so this chain is short
};

} // namespace vorn
