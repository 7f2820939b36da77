#pragma once

#include "platform/controls/button.h"
#include "platform/controls/keyboard.h"
#include "platform/controls/win_control.h"

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace vorn::test {

/// A control that takes the keyboard and uses the arrows, as a list does.
class KeyBox : public TWinControl {
public:
    explicit KeyBox(TComponent* owner) : TWinControl(owner) { SetTabStop(true); }
    ~KeyBox() override { Destroying(); }
    bool KeyDown(unsigned key, TShiftState shift) override
    {
        Keys.push_back(key);
        return key == VK_DOWN || TWinControl::KeyDown(key, shift);
    }
    std::vector<unsigned> Keys;
};

/// Shows a form modally; each step comes in an event of its own once its window is in front. One that never ends is
/// closed with 99.
inline TModalResult RunModal(TForm& form, std::vector<std::function<void()>> steps)
{
    std::size_t next = 0;
    const QPointer<QWidget> window = form.Widget();
    QTimer ticker;
    ticker.callOnTimeout([&] {
        if (window && QApplication::activeWindow() == window && next < steps.size())
            steps[next++]();
    });
    ticker.start(0);
    QTimer::singleShot(10'000, &ticker, [&] { form.SetModalResult(99); });
    return form.ShowModal();
}

/// A dialog with a list that has the keyboard first, an OK and a Cancel button.
struct Dialog {
    Dialog()
    {
        Form->SetBounds(0, 0, 200, 120);
        Form->SetBorderStyle(TFormBorderStyle::bsDialog);
        Form->SetCaption(u"Scelta");
        Place(List, 10, 2);
        Place(Ok, 60, 0);
        Place(Cancel, 90, 1);
        Ok->SetDefault(true);
        Ok->SetModalResult(mrOk);
        Cancel->SetCancel(true);
        Cancel->SetModalResult(mrCancel);
        Form->SetActiveControl(List);
    }
    void Place(TWinControl* control, int top, int tabOrder)
    {
        control->SetBounds(10, top, 75, 25);
        control->SetTabOrder(tabOrder);
        control->SetParent(Form.get());
    }
    TModalResult Run(std::vector<std::function<void()>> steps) { return RunModal(*Form, std::move(steps)); }

    std::unique_ptr<TForm> Form = std::make_unique<TForm>(nullptr);
    KeyBox* List = new KeyBox(Form.get());
    TButton* Ok = new TButton(Form.get());
    TButton* Cancel = new TButton(Form.get());
};

} // namespace vorn::test
