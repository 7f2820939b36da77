#pragma once

#include "platform/controls/control_widget.h"
#include "platform/controls/form.h"

namespace vorn {

/// The window of a form.
class TForm::Window : public ControlWidget {
public:
    explicit Window(TForm& form) : ControlWidget(form) {}
    ~Window() override;

    /// The form goes: nothing is forwarded any more.
    void Release() { Detach(); }
    /// Makes the window system's window. Unlike asking for its id that leaves the windows around it as they are.
    void MakeNative() { create(); }

protected:
    /// The frame's button asks the form to close.
    void closeEvent(QCloseEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    TForm* Form() const { return static_cast<TForm*>(Control()); }
};

} // namespace vorn
