#include "platform/controls/application.h"
#include "platform/system/strings.h"

#include <QtWidgets/QApplication>

#include <gtest/gtest.h>

namespace {

/// A warning of the toolkit, such as of a database connection still in use, is a fault of ours.
void FailOnWarning(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    // The offscreen platform says so for every top-level window.
    const bool usual = message.startsWith(QLatin1String("This plugin does not support"));
    if (type != QtDebugMsg && type != QtInfoMsg && !usual)
        ADD_FAILURE() << "unexpected toolkit warning: " << message.toStdString();
}

/// What a handler lets out into the event loop fails the test, unless the test has taken OnException.
void FailOnException(const std::exception_ptr& exception)
{
    ADD_FAILURE() << "unexpected exception in an event: " << vorn::ToUtf8(vorn::ExceptionText(exception));
}

/// Frees what a test has left to the event loop, so that each test pays for its own leaks.
class DeferredDeletes : public testing::EmptyTestEventListener {
    void OnTestEnd(const testing::TestInfo&) override
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
};

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    qInstallMessageHandler(FailOnWarning);
    vorn::Application().OnException = FailOnException;
    testing::UnitTest::GetInstance()->listeners().Append(new DeferredDeletes);
    return RUN_ALL_TESTS();
}
