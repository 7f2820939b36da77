#include "platform/controls/form_window.h"

#include "platform/controls/win_control_private.h"
#include "platform/system/qt_convert.h"

#include <QtGui/QCloseEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>

#include <algorithm>

namespace vorn {

namespace {

constexpr int LargestWindow = 16'777'215; // Qt's limit for the size of a window

Qt::WindowFlags FlagsOf(TFormBorderStyle style)
{
    const Qt::WindowFlags titled = Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
    switch (style) {
    case TFormBorderStyle::bsNone:
        return Qt::Window | Qt::FramelessWindowHint;
    case TFormBorderStyle::bsDialog:
        return Qt::Dialog | titled;
    case TFormBorderStyle::bsSingle:
        return Qt::Window | titled | Qt::WindowMinimizeButtonHint;
    default:
        return Qt::Window | titled | Qt::WindowMinMaxButtonsHint;
    }
}

/// The controls inside that Tab reaches, in its order. Those of an inner panel stand at the panel's place.
void CollectTabStops(const TWinControl& parent, std::vector<TWinControl*>& found)
{
    std::vector<TWinControl*> inside;
    for (int i = 0; i < parent.ControlCount(); ++i) {
        auto* control = dynamic_cast<TWinControl*>(parent.Controls(i));
        if (control && control->Visible() && control->Enabled())
            inside.push_back(control);
    }
    const auto place = [](const TWinControl* control) { return static_cast<unsigned>(control->TabOrder()); };
    std::stable_sort(
        inside.begin(), inside.end(), [&](const TWinControl* a, const TWinControl* b) { return place(a) < place(b); });
    for (TWinControl* control : inside) {
        if (control->TabStop())
            found.push_back(control);
        CollectTabStops(*control, found);
    }
}

} // namespace

TForm::Window::~Window()
{
    if (TForm* form = Form())
        form->WindowGone();
}

void TForm::Window::closeEvent(QCloseEvent* event)
{
    event->ignore();
    if (TForm* form = Form())
        form->Close();
}

bool TForm::Window::focusNextPrevChild(bool next)
{
    TForm* form = Form();
    return (form && form->FocusNext(next)) || ControlWidget::focusNextPrevChild(next);
}

QWidget* TForm::CreateWidget()
{
    window_ = new Window(*this);
    return window_;
}

void TForm::WindowGone()
{
    window_ = nullptr;
    SetModalResult(mrCancel);
}

/// Makes the window what the border style, the caption and the position ask for.
void TForm::PrepareWindow(bool modal)
{
    Widget();
    if (!window_)
        return;
    const Qt::WindowFlags flags = FlagsOf(borderStyle_);
    if (window_->windowFlags() != flags)
        window_->setWindowFlags(flags);
    window_->setWindowTitle(ToQt(Caption()));
    window_->setWindowModality(modal ? Qt::ApplicationModal : Qt::NonModal);
    QWidget* front = QApplication::activeWindow();
    if (front && front != window_) {
        // Above the window in front, but not its child: that would free this one with it.
        window_->MakeNative();
        window_->windowHandle()->setTransientParent(front->windowHandle());
    }
    const QScreen* screen = front ? front->screen() : QGuiApplication::primaryScreen();
    if (position_ == TPosition::poScreenCenter && screen) {
        const QRect area = screen->availableGeometry();
        const QPoint corner = area.center() - QRect(0, 0, Width(), Height()).center();
        SetBounds(std::max(corner.x(), area.left()), std::max(corner.y(), area.top()), Width(), Height());
    }
    LimitSize();
}

/// A window that the user may not resize has its limits at its size; a floating form has none.
void TForm::LimitSize()
{
    if (!window_)
        return;
    const bool fixed = !Parent() && borderStyle_ != TFormBorderStyle::bsSizeable;
    window_->setMinimumSize(fixed ? QSize(Width(), Height()) : QSize(0, 0));
    window_->setMaximumSize(fixed ? QSize(Width(), Height()) : QSize(LargestWindow, LargestWindow));
}

void TForm::SetBounds(int left, int top, int width, int height)
{
    if (window_) {
        window_->setMinimumSize(0, 0);
        window_->setMaximumSize(LargestWindow, LargestWindow);
    }
    TWinControl::SetBounds(left, top, width, height);
    if (Visible())
        LimitSize();
}

void TForm::GiveFocus()
{
    if (activeControl_ && activeControl_->TabStop()) {
        activeControl_->SetFocus();
        return;
    }
    std::vector<TWinControl*> stops;
    CollectTabStops(*this, stops);
    if (!stops.empty())
        stops.front()->SetFocus();
}

bool TForm::FocusNext(bool forward)
{
    std::vector<TWinControl*> stops;
    CollectTabStops(*this, stops);
    if (stops.empty())
        return false;
    if (!forward)
        std::reverse(stops.begin(), stops.end());
    const auto now
        = std::find_if(stops.begin(), stops.end(), [](const TWinControl* control) { return control->Focused(); });
    const bool wraps = now == stops.end() || now + 1 == stops.end();
    TWinControl* next = wraps ? stops.front() : *(now + 1);
    next->SetFocus();
    return true;
}

} // namespace vorn
