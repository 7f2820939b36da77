#include "platform/controls/application.h"
#include "platform/controls/event_scope.h"
#include "platform/controls/form_window.h"
#include "platform/system/exceptions.h"
#include "platform/system/guards.h"

#include <QtCore/QEventLoop>

namespace vorn {

void TForm::SetModalResult(TModalResult result)
{
    modalResult_ = result;
    if (result == mrNone || !loop_)
        return;
    endRequested_ = true;
    loop_->quit();
}

TModalResult TForm::ShowModal()
{
    if (Visible() || modal_)
        throw EInvalidOperation(u"The form \"" + Caption() + u"\" is shown already: it can't be shown modally");
    if (Parent())
        throw EInvalidOperation(u"The form \"" + Caption() + u"\" lies inside a control: it can't be shown modally");
    Application().HideHint();
    const EventPause pause;
    const TLifeWatch watch(this);
    QEventLoop loop;
    loop_ = &loop;
    modal_ = true;
    modalResult_ = mrNone;
    const ScopeExit ended([&] {
        if (!watch.Alive())
            return;
        loop_ = nullptr;
        modal_ = false;
        Hide();
    });
    try {
        SetVisible(true);
    } catch (...) {
        Application().HandleException(std::current_exception());
    }
    return watch.Alive() && Visible() ? RunModal() : mrCancel;
}

TModalResult TForm::RunModal()
{
    const TLifeWatch watch(this);
    for (;;) {
        endRequested_ = false;
        if (modalResult_ == mrNone && window_)
            loop_->exec();
        if (!watch.Alive())
            return mrCancel;
        const bool gone = !window_ || (modalResult_ == mrNone && !endRequested_);
        if (gone)
            return modalResult_ = mrCancel; // the window was freed, or the application ends
        if (modalResult_ == mrNone)
            continue; // a handler took the result back
        const bool ends = MayEndModal();
        if (!watch.Alive())
            return mrCancel;
        if (ends)
            return modalResult_;
        modalResult_ = mrNone;
    }
}

/// A query that fails doesn't let the form close: what it raised is shown, and the user can go on.
bool TForm::MayEndModal()
{
    try {
        return CloseQuery();
    } catch (...) {
        Application().HandleException(std::current_exception());
        return false;
    }
}

} // namespace vorn
