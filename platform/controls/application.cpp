#include "platform/controls/application.h"

#include "platform/controls/control_widget.h"
#include "platform/controls/event_scope.h"
#include "platform/system/event.h"
#include "platform/system/exceptions.h"
#include "platform/system/guards.h"
#include "platform/system/qt_convert.h"
#include "platform/system/strings.h"

#include <QtGui/QTextDocument>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QToolTip>

#include <cstdio>
#include <utility>

namespace vorn {

namespace {

std::function<void(StringView)>& MessageHandler()
{
    static std::function<void(StringView)> handler;
    return handler;
}

bool HasScreen()
{
    if (!qobject_cast<QApplication*>(QCoreApplication::instance()))
        return false;
    const QString platform = QGuiApplication::platformName();
    return platform != QLatin1String("offscreen") && platform != QLatin1String("minimal");
}

ControlWidget* SurfaceAt(const QPoint& point)
{
    for (QWidget* widget = QApplication::widgetAt(point); widget; widget = widget->parentWidget()) {
        if (auto* surface = dynamic_cast<ControlWidget*>(widget))
            return surface;
    }
    // A platform without real windows can't tell; then it is where the mouse was last.
    ControlWidget* last = ControlWidget::LastUnderMouse();
    return last && last->rect().contains(last->mapFromGlobal(point)) ? last : nullptr;
}

} // namespace

void ShowMessage(StringView text)
{
    if (const auto handler = MessageHandler()) {
        handler(text);
    } else if (HasScreen()) {
        QMessageBox box(QMessageBox::Information, QGuiApplication::applicationDisplayName(), ToQt(text));
        box.setTextFormat(Qt::PlainText);
        const EventPause pause;
        box.exec();
    } else {
        std::fprintf(stderr, "%s\n", ToUtf8(text).c_str());
    }
}

std::function<void(StringView)> SetMessageHandler(std::function<void(StringView)> handler)
{
    return std::exchange(MessageHandler(), std::move(handler));
}

String ExceptionText(const std::exception_ptr& exception)
{
    try {
        std::rethrow_exception(exception);
    } catch (const Exception& e) {
        return e.Message();
    } catch (const std::exception& e) {
        return FromUtf8(e.what());
    } catch (...) {
        return u"Unknown exception";
    }
}

void TApplication::HandleException(std::exception_ptr exception)
{
    // What the report itself raises is only written down: a painting that fails would be reported for ever.
    try {
        if (!reporting_) {
            const ScopedValue<bool> reporting(reporting_, true);
            if (OnException)
                Raise(OnException, exception);
            else
                ShowMessage(ExceptionText(exception));
            return;
        }
    } catch (...) {
        exception = std::current_exception();
    }
    std::fprintf(stderr, "%s\n", ToUtf8(ExceptionText(exception)).c_str());
}

void TApplication::ActivateHint(const TPoint& screenPoint)
{
    const QPoint point = ToQPoint(screenPoint);
    ControlWidget* surface = SurfaceAt(point);
    const String hint = surface ? surface->HintAt(surface->mapFromGlobal(point)) : String();
    if (hint.empty()) {
        HideHint();
        return;
    }
    shownHint_ = hint;
    shownAt_ = screenPoint;
    ShowHint();
}

void TApplication::ShowHint()
{
    const QPoint point = ToQPoint(shownAt_);
    QString text = ToQt(shownHint_);
    if (Qt::mightBeRichText(text))
        text = text.toHtmlEscaped();
    QToolTip::showText(point, text, SurfaceAt(point));
}

void TApplication::KeepHint()
{
    if (!shownHint_.empty() && !QToolTip::isVisible())
        ShowHint();
}

void TApplication::HideHint()
{
    if (shownHint_.empty())
        return;
    shownHint_.clear();
    QToolTip::hideText();
}

TApplication& Application()
{
    static TApplication application;
    return application;
}

} // namespace vorn
